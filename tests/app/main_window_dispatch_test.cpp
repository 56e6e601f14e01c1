#include "app/day_timer.h"
#include "categories/category_state.h"
#include "platform/ui/virtual_keys.h"
#include "res/command_ids.h"
#include "tests/app/main_window_fixture.h"

namespace velmo::testing {
namespace {

class DispatchTest : public MainWindowTest {
 protected:
  void SetUp() override {
    MainWindowTest::SetUp();
    Load({T().Subject(L"Report").Categories(L"Work").Due(Day(-2)),
          T().Subject(L"Garden").Categories(L"Home").Due(Day(0)),
          T().Subject(L"Call").Done(Day(0)), T().Subject(L"Someday")});
  }
};

TEST_F(DispatchTest, NumberAndNavigationKeysSwitchViewsAsTheShortcutsSay) {
  struct Case { UINT vk; wchar_t ch; const wchar_t* title; } const cases[] = {
      {'2', L'2', L"Overdue [1]"},   {'5', L'5', L"Completed [1]"}, {'7', L'7', L"Today [2]"},
      {'1', L'1', L"Tasks [4]"},     {'D', L'd', L"Completed [1]"},  // a keyboard's "5"
      {VK_RIGHT, 0, L"Today [2]"},  // from Completed, "View: Filter »"
      {VK_TRECORD, 0, L"Tasks [4]"},  // "View: Default View"
      {'0', L'0', L"Undated [1]"},
  };
  for (const Case& c : cases) {
    Press(c.vk, c.ch);
    EXPECT_EQ(Title(), c.title) << "key " << c.vk;
    EXPECT_EQ(app::RowCount(), std::stoi(Title().substr(Title().find('[') + 1)));
  }
  EXPECT_TRUE(screen_.Contains(L"Undated [1]")) << "the title line shows the active window's title";
}

TEST_F(DispatchTest, VolumeKeysStepTheCategoryFilterBothWays) {
  const wchar_t* forward[] = {L"No Category [2]", L"Home [1]", L"Work [1]", L"Tasks [4]"};
  for (const wchar_t* title : forward) {
    Press(VK_TVOLUMEDOWN);
    EXPECT_EQ(Title(), title);
  }
  Press(VK_TVOLUMEUP);
  EXPECT_EQ(Title(), L"Work [1]");
  EXPECT_EQ(CurrentFilterText(), L"Work");
}

TEST_F(DispatchTest, SelectionCommandsStopAtTheEnds) {
  ASSERT_EQ(app::SelectedRow(), 0) << screen_.Text();
  const std::pair<UINT, int> steps[] = {
      {cmd::kPreviousTask, 0}, {cmd::kNextTask, 1},  {cmd::kLastTask, 3},
      {cmd::kNextTask, 3},     {cmd::kFirstTask, 0}, {cmd::kPageDown, 3}};
  for (auto [command, row] : steps) {
    app::SendCommand(command);
    EXPECT_EQ(app::SelectedRow(), row) << command;
  }
}

TEST_F(DispatchTest, SelectionSurvivesARebuildThatKeepsItsTask) {
  app::SendCommand(cmd::kLastTask);
  const CEOID before = Selected();
  app::RebuildList();
  EXPECT_EQ(Selected(), before);
  EXPECT_FALSE(app::RunCommand(12345, 0)) << "not a command of the main window";
}

TEST_F(DispatchTest, SmallTerminalShowsANoticeUntilItGrows) {
  screen_.Resize(20, 4);
  Pump();
  EXPECT_TRUE(screen_.Contains(L"small")) << screen_.Text();
  screen_.Resize(80, 24);
  Pump();
  EXPECT_TRUE(screen_.Contains(L"Tasks [4]"));
  EXPECT_TRUE(screen_.Contains(L"Report"));
}

TEST(DayTimerTest, FiresOneSecondAfterTheNextMidnight) {
  struct Case { SYSTEMTIME now; UINT ms; } const cases[] = {
      {{2024, 5, 3, 15, 0, 0, 0, 0}, 86401000},   {{2024, 5, 3, 15, 23, 59, 59, 999}, 1001},
      {{2024, 5, 3, 15, 12, 0, 0, 0}, 43201000},
  };
  for (const Case& c : cases) EXPECT_EQ(app::MillisUntilDayChange(c.now), c.ms);
}

}  // namespace
}  // namespace velmo::testing
