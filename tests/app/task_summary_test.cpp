// The task summary over the main window: opened with the action key, read,
// scrolled, and left with "Edit", a command of its menu, or the back key.
#include <functional>
#include <iterator>
#include <string>
#include <vector>

#include "editor/task_summary.h"
#include "platform/poom.h"
#include "platform/ui/virtual_keys.h"
#include "res/command_ids.h"
#include "app/task_changes.h"
#include "store/connection.h"
#include "tests/app/main_window_fixture.h"

namespace velmo::testing {
namespace {

class SummaryTest : public StartedMainWindowTest {
 protected:
  CEOID Add(const wchar_t* subject, const std::wstring& notes = L"") {
    const CEOID oid = AddTask(subject, [&](ITask* item) {
      item->put_DueDate(Day(1));
      item->put_Body(notes.c_str());
    });
    EXPECT_TRUE(app::SelectTaskRow(oid));
    return oid;
  }
  // Opens the summary on `oid`, runs `while_open` over it, returns its result.
  INT_PTR Summary(CEOID oid, std::function<void()> while_open) {
    screen_.AddIdleStep(std::move(while_open));
    return ShowTaskSummary(window_, oid);
  }
};

TEST_F(SummaryTest, EachWayOutGivesItsCommand) {
  const CEOID oid = Add(L"Pay rent");
  struct Case { std::vector<UINT> keys; INT_PTR result; } const cases[] = {
      {{VK_TSOFT1}, cmd::kEdit},            // "Edit"
      {{VK_RETURN}, cmd::kEdit},            // the action key
      {{VK_ESCAPE}, 0},                     // back
      {{VK_TSOFT2, '5'}, cmd::kNotes},      // "Menu", its fifth item
      {{VK_TSOFT2, '2', '1'}, cmd::kHigh},  // "Menu", "Priority", "High"
  };
  for (const Case& c : cases) {
    const INT_PTR result = Summary(oid, [&] {
      EXPECT_TRUE(screen_.Contains(L"Task Summary"));
      EXPECT_TRUE(screen_.Contains(L"Pay rent"));
      EXPECT_TRUE(screen_.Contains(L"Due: Tomorrow, "));
      for (UINT key : c.keys) screen_.TypeKey(key, key >= '0' && key <= '9' ? static_cast<wchar_t>(key) : 0);
    });
    EXPECT_EQ(result, c.result) << c.keys[0];
  }
  EXPECT_EQ(ShowTaskSummary(window_, oid + 1000), 0) << "a task that is not there";
}

TEST_F(SummaryTest, TheActionKeyOpensItAndAChosenCommandActsOnTheTask) {
  const CEOID oid = Add(L"Plan trip");
  EXPECT_EQ(Find(oid)->importance, kImportanceNormal);
  screen_.AddIdleStep([&] {
    EXPECT_TRUE(screen_.Contains(L"Plan trip"));
    EXPECT_TRUE(screen_.Contains(L"Priority: Normal"));
    screen_.TypeKey(VK_TSOFT2);
    screen_.TypeKey('2', L'2');
    screen_.TypeKey('1', L'1');
  });
  Press(VK_RETURN);
  EXPECT_EQ(Find(oid)->importance, kImportanceHigh) << "the main window carried out \"High\"";
  EXPECT_FALSE(screen_.Contains(L"Task Summary"));
}

TEST_F(SummaryTest, ALongTaskScrollsByLineAndByPage) {
  std::wstring notes;
  for (int i = 1; i <= 60; ++i) notes += L"line " + std::to_wstring(i) + L"\r\n";
  const CEOID oid = Add(L"Long", notes);
  // Each key, then what the page's first row shows and a line no longer on screen.
  struct Step { UINT key; const wchar_t* first_row; const wchar_t* gone; } const steps[] = {
      {VK_DOWN, L"Priority: Normal", L"Long"},
      {VK_UP, L"Long", L"line 17"},
      {VK_UP, L"Long", L"line 17"},  // already at the top
      {VK_TVOLUMEDOWN, L"line 16", L"line 15"},
      {VK_TVOLUMEDOWN, L"line 37", L"line 36"},
      {VK_TVOLUMEDOWN, L"line 40", L"line 39"},  // the last page ends with the last line
      {VK_DOWN, L"line 40", L"line 39"},
      {VK_TVOLUMEUP, L"line 19", L"line 18"},
  };
  screen_.AddIdleStep([&] {
    EXPECT_EQ(screen_.Row(1).find(L"Long"), 0u);
    EXPECT_FALSE(screen_.Contains(L"line 17"));
    screen_.TypeKey(steps[0].key);
  });
  for (size_t i = 0; i < std::size(steps); ++i) {
    screen_.AddIdleStep([&, i] {
      const Step& s = steps[i];
      EXPECT_EQ(screen_.Row(1).find(s.first_row), 0u) << i << ": " << std::string(s.first_row, s.first_row + 4);
      EXPECT_FALSE(screen_.Contains(s.gone)) << i;
      screen_.TypeKey(i + 1 < std::size(steps) ? steps[i + 1].key : VK_ESCAPE);
    });
  }
  EXPECT_EQ(ShowTaskSummary(window_, oid), 0);
}

}  // namespace
}  // namespace velmo::testing
