// A task as the summary shows it, read through the object model (and its
// categories from its record).
#pragma once

#include "editor/summary_lines.h"
#include "platform/poom.h"

namespace velmo {

// Reads the item's fields; S_OK, or the failure of the first read that failed
// (the fields read so far are kept).
HRESULT ReadSummaryTask(ITask* item, SummaryTask* task);

}  // namespace velmo
