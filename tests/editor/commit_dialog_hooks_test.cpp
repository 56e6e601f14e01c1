// The window hooks of the commit: the main window hears of a saved task in the
// order it must handle them, and a declined past reminder puts the focus on
// the reminder picker.
#include <gtest/gtest.h>

#include "editor/commit_dialog_hooks.h"
#include "tests/ui/ui_fixture.h"

namespace velmo::testing {
namespace {

class CommitDialogHooksTest : public UiTest {};

TEST_F(CommitDialogHooksTest, SavedTaskIsAnnouncedThenItsCompletionHandedOver) {
  HWND main = MakeMain();
  const struct { bool deferred; std::vector<UINT> messages; } cases[] = {
      {false, {WM_APP + 3}},
      {true, {WM_APP + 3, WM_APP + 5}},
  };
  for (const auto& c : cases) {
    DialogCommitHooks(nullptr, main).saved(77, c.deferred);
    std::vector<UINT> seen;
    MSG msg{};
    while (PeekMessageW(&msg, main, WM_APP, WM_APP + 10, PM_REMOVE)) {
      seen.push_back(msg.message);
      if (msg.message == WM_APP + 3) {
        EXPECT_EQ(msg.wParam, 1030u) << "1030 and the task in lParam";
      }
      EXPECT_EQ(msg.message == WM_APP + 3 ? static_cast<CEOID>(msg.lParam) : static_cast<CEOID>(msg.wParam), 77u);
    }
    EXPECT_EQ(seen, c.messages);
  }
}

TEST_F(CommitDialogHooksTest, DeclinedPastReminderFocusesTheReminderPicker) {
  HWND dialog = MakeMain(L"Edit Task");
  MakeChild(dialog, 40180);
  HWND picker = MakeChild(dialog, kReminderPickerId, 0, 2);
  DialogCommitHooks(dialog, nullptr).focus_reminder();
  EXPECT_EQ(GetFocus(), picker);
}

}  // namespace
}  // namespace velmo::testing
