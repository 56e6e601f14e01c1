// The occurrences of the editor's recurrence choice, counted the way the save
// will count them: written into the pattern of a scratch task (a new item that
// is never saved) and read back.
#pragma once

#include "editor/editor_fields.h"
#include "platform/poom.h"

namespace velmo {

// 0 when the pattern has no limit or the count cannot be read.
LONG CountOccurrencesOnScratchTask(IPOutlookApp* app, const EditorFields& fields, DATE today);

}  // namespace velmo
