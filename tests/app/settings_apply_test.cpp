// Settings pages opened from the main window's commands change the list as
// soon as they are done; "Reset Settings" with the default-view group goes
// back to the default view through command 40047.
#include "list/draw_appearance.h"
#include "platform/ui/virtual_keys.h"
#include "res/command_ids.h"
#include "tests/app/main_window_fixture.h"

namespace velmo::testing {
namespace {

class SettingsApplyTest : public MainWindowTest {
 protected:
  void SetUp() override {
    MainWindowTest::SetUp();
    Load({T().Subject(L"Report").Due(Day(-2)), T().Subject(L"Garden").Due(Day(0)),
          T().Subject(L"Call").Done(Day(0)), T().Subject(L"Someday")});
  }
  // Runs a settings command whose page gets `keys` and then "Done".
  void RunPage(UINT command, std::initializer_list<UINT> keys) {
    screen_.AddIdleStep([this, keys] {
      for (UINT key : keys) screen_.TypeKey(key);
      screen_.TypeKey(VK_TSOFT1);
    });
    EXPECT_TRUE(app::RunCommand(command, 0));
    Pump();
  }
};

TEST_F(SettingsApplyTest, ViewsPageChangesTheListAtOnce) {
  ASSERT_EQ(Title(), L"Tasks [4]");
  RunPage(cmd::kSettingsViews, {VK_SPACE});  // "Show completed tasks" off
  EXPECT_EQ(Title(), L"Tasks [3]");
  EXPECT_FALSE(screen_.Contains(L"Call"));
  EXPECT_EQ(CurrentSettings().show_completed, 0u);
}

TEST_F(SettingsApplyTest, ResetOfTheDefaultViewShowsAllTasks) {
  Press('5', L'5');
  CurrentSettings().selected_view = 40053;  // Completed as the default view
  ASSERT_EQ(Title(), L"Completed [1]");
  RunPage(cmd::kSettingsReset, {VK_DOWN, VK_DOWN, VK_SPACE});  // "Default view"
  EXPECT_EQ(CurrentSettings().selected_view, 40050u);
  EXPECT_EQ(Title(), L"Tasks [4]");
}

TEST_F(SettingsApplyTest, CompactListByDefaultSwitchesTheListMode) {
  const int before = ListRowLines();
  // Appearance: down to "Compact list by default" and switch it.
  RunPage(cmd::kSettingsAppearance,
          {VK_DOWN, VK_DOWN, VK_DOWN, VK_DOWN, VK_DOWN, VK_DOWN, VK_DOWN, VK_DOWN, VK_DOWN,
           VK_DOWN, VK_DOWN, VK_DOWN, VK_SPACE});
  EXPECT_EQ(CurrentSettings().compressed, 0u);
  EXPECT_EQ(ListRowLines(), 2);
  EXPECT_NE(ListRowLines(), before);
}

TEST_F(SettingsApplyTest, ShortcutsCommandOpensTheShortcutsPage) {
  bool shown = false;
  screen_.AddIdleStep([&] {
    shown = screen_.Contains(L"Key 5: View: Completed Tasks");
    screen_.TypeKey(VK_ESCAPE);
  });
  EXPECT_TRUE(app::RunCommand(cmd::kSettingsShortcuts, 0));
  Pump();
  EXPECT_TRUE(shown);
}

}  // namespace
}  // namespace velmo::testing
