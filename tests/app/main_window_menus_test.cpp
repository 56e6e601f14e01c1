#include "platform/ui/menu.h"
#include "res/command_ids.h"
#include "tests/app/main_window_fixture.h"

namespace velmo::testing {
namespace {

class MenusTest : public MainWindowTest {
 protected:
  // The state of an item after the menu was made ready to open.
  UINT State(UINT command) {
    SendMessageW(window_, WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(app::MainWindow().main_menu), 0);
    return GetMenuState(app::MainWindow().main_menu, command, MF_BYCOMMAND);
  }
  bool Grey(UINT command) { return State(command) & MF_GRAYED; }
  bool Checked(UINT command) { return State(command) & MF_CHECKED; }
  std::wstring SoftKeyRow() { return screen_.Row(screen_.height() - 1); }
};

TEST_F(MenusTest, ItemsForShownTasksAllTasksAndTheSelectedTaskFollowTheList) {
  // A view_key of 0 is All Tasks.
  struct Case { const wchar_t* name; bool tasks; UINT view_key;
                bool displayed_grey, all_grey, task_items_grey; } const cases[] = {
      {L"no task at all", false, 0, true, true, true},
      {L"tasks shown", true, 0, false, false, false},
      {L"tasks, none in this view", true, '2', true, false, true},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    if (c.tasks) Load({T().Subject(L"Open"), T().Subject(L"Done").Done(Day(-1))});
    if (c.view_key) Press(c.view_key, static_cast<wchar_t>(c.view_key));
    EXPECT_EQ(Grey(cmd::kBeamDisplayed), c.displayed_grey);
    EXPECT_EQ(Grey(cmd::kDeleteDisplayed), c.displayed_grey);
    EXPECT_EQ(Grey(cmd::kBeamAll), c.all_grey);
    for (UINT command : {cmd::kDelete, cmd::kCreateCopy, cmd::kRename, cmd::kHigh, cmd::kTeamTask})
      EXPECT_EQ(Grey(command), c.task_items_grey) << command;
  }
}

TEST_F(MenusTest, DefaultViewItemsAndRadioMarksFollowTheView) {
  Load({T().Subject(L"Open").Categories(L"Work").Priority(kImportanceHigh)});
  EXPECT_TRUE(Checked(40048)) << "at the default view";
  EXPECT_TRUE(Grey(40049));
  EXPECT_TRUE(Checked(40050));
  EXPECT_TRUE(Checked(cmd::kHigh)) << "the selected task's priority";
  Press('4', L'4');
  EXPECT_FALSE(Checked(40048));
  EXPECT_FALSE(Grey(40049));
  EXPECT_TRUE(Checked(40052));
  EXPECT_FALSE(Checked(40050));
  app::SendCommand(48002);  // the Filter menu's first category item: Work
  EXPECT_TRUE(Checked(48002));
  EXPECT_FALSE(Checked(cmd::kAllCategories));
  EXPECT_EQ(Title(), L"Active 7d [0] Work");
}

TEST_F(MenusTest, ExitIsInTheMenuOnlyWithTheExitMenuSetting) {
  EXPECT_EQ(State(cmd::kExit), static_cast<UINT>(-1));
  DestroyWindow(window_);
  CurrentSettings().exit_menu = 1;
  window_ = app::CreateMainWindow();
  EXPECT_EQ(State(cmd::kExit), 0u);
}

TEST_F(MenusTest, LeftSoftKeyNamesWhatItDoesToTheSelectedTask) {
  Load({T().Subject(L"Open"), T().Subject(L"Done").Done(Day(0))});
  EXPECT_NE(SoftKeyRow().find(L"Complete"), std::wstring::npos) << SoftKeyRow();
  app::SendCommand(cmd::kLastTask);
  Pump();
  EXPECT_NE(SoftKeyRow().find(L"Activate"), std::wstring::npos) << SoftKeyRow();
  EXPECT_NE(SoftKeyRow().find(L"Menu"), std::wstring::npos);
}

}  // namespace
}  // namespace velmo::testing
