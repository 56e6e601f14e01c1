// Done in the task editor: the editor's values written into a task through the
// object model, the task saved, the team flag and the categories written
// straight into its record, and, when the save is refused, the reason told in
// words. The command line's `velmo add` and `velmo edit` commit the same way.
#pragma once

#include <functional>
#include <string>

#include "editor/editor_values.h"
#include "editor/save_failure.h"
#include "platform/poom.h"
#include "platform/wintypes.h"

namespace velmo {

// What the commit asks of whoever runs it: the dialog answers with message boxes
// and posts to the main window; the command line answers from its options and
// prints.
struct CommitHooks {
  // "The reminder for this task is in the past..." Yes: true.
  std::function<bool()> confirm_past_reminder;
  // A refused save's message (OK button, stop icon).
  std::function<void(const SaveFailureMessage&)> show_failure;
  // The past reminder was declined: the reminder field takes the focus.
  std::function<void()> focus_reminder;
  // Saved: the task's object identifier now (a copy has a new one), and whether
  // its completion was deferred to the main window (a recurring task).
  std::function<void(CEOID oid, bool completion_deferred)> saved;
};

// The question asked before a reminder in the past is dropped (caption: the
// program's title, string 121).
constexpr UINT kPastReminderQuestion = 347;

// Writes `values` into `task` and saves it; S_OK when saved. On any failure the
// reason has been shown through the hooks (or, for a declined past reminder,
// nothing: 0x80040068 is returned) and nothing is written. The task is released
// on every path. A hook left empty is skipped (an empty confirm_past_reminder
// answers No). The settings are the program-wide block's; "now" is the clock's.
HRESULT CommitTask(const EditorValues& values, ITask* task, bool is_new, const CommitHooks& hooks);

// Done on task `oid`, or on a new task when `oid` is 0: the item is fetched (or
// created) and committed. A task that can no longer be fetched is reported as
// one that cannot be modified; a new item that cannot be created fails with no
// message.
HRESULT CommitTaskById(IPOutlookApp* app, CEOID oid, const EditorValues& values, const CommitHooks& hooks);

}  // namespace velmo
