// The task editor dialog, in the full or the compact layout (setting
// EditCompact): every field of one task, Done committing them.
#pragma once

#include "platform/cedb.h"
#include "platform/ui/types.h"

namespace velmo {

// Edits the task `oid`, or a new task when `oid` is 0. Returns 40023 after a
// save, 40022 (or IDOK/IDCANCEL) when cancelled, 0 after "Delete Task" or when
// the task cannot be read.
INT_PTR RunTaskEditor(HWND owner, CEOID oid);

}  // namespace velmo
