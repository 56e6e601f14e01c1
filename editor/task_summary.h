// The task summary: a full-screen, read-only page of one task (subject,
// priority, dates in words, reminder, recurrence in words, categories,
// sensitivity, team task, completion, notes with their links marked), with
// "Edit" on the left soft key and "Menu" on the right.
#pragma once

#include "platform/cedb.h"
#include "platform/ui/types.h"

namespace velmo {

// Shows the task; returns the command chosen there (11 or more: the main window
// carries it out, "Edit" among them), or 0 when closed with the back key or the
// task cannot be read.
INT_PTR ShowTaskSummary(HWND owner, CEOID oid);

}  // namespace velmo
