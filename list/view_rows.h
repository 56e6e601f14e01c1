// The rows of a view: the tasks of the table that belong to it, judged against
// one moment, in the list's sort order.
#pragma once

#include <vector>

#include "platform/wintypes.h"
#include "store/task.h"

namespace velmo {

// The listed tasks of the current view in table order (freed slots skipped);
// `ref` kNoDate is the local time now, taken once for the whole pass.
std::vector<const Task*> ViewRows(const TaskTable& table, DATE ref);

// The same, sorted by CompareRows: the list after a rebuild.
std::vector<const Task*> SortedViewRows(const TaskTable& table, DATE ref);

// Whether `view` would list no task of the table under the filter in force.
bool ViewIsEmpty(const TaskTable& table, UINT view, DATE ref);

}  // namespace velmo
