// The commit's questions and messages as a window asks and shows them: message
// boxes over the dialog (or view) that committed, and the main window told of
// the saved task. The editor, the due-date picker and the other views that
// save through the commit use these.
#pragma once

#include "editor/commit.h"
#include "platform/ui/types.h"

namespace velmo {

// The control that takes the focus when a past reminder is declined.
constexpr int kReminderPickerId = 40201;

// Messages the main window gets after a save.
constexpr UINT kMsgCompletionDeferred = WM_APP + 5;  // wParam: the task's identifier

// Hooks for a commit run from `owner` (the dialog; null for a view without
// one). The past-reminder question is a Yes/No box with the question icon under
// the program's title; a refused save an OK box with the stop icon; a declined
// past reminder moves the focus to the owner's reminder picker, when it has
// one; a saved task is announced to `main_window` with WM_APP + 3 (wParam
// 1030, lParam the identifier) and, for a deferred completion, WM_APP + 5.
CommitHooks DialogCommitHooks(HWND owner, HWND main_window);

}  // namespace velmo
