// The text of `velmo list`: one line per task, fields separated by a tab, and for
// a view its title first, exactly as the program shows it.
#pragma once

#include <string>

#include "platform/wintypes.h"
#include "store/task.h"

namespace velmo::cli {

// Object identifier, subject, start, due, reminder time (empty when no reminder
// is set), date completed, priority (low, normal, high), categories; days as
// YYYY-MM-DD, the reminder as YYYY-MM-DDTHH:MM, no date as nothing. A tab or a
// line break inside a text becomes a space so that a task stays one line; other
// control characters show as "^[" and the like. UTF-8, no line end.
std::string TaskLine(const Task& task);

// The current view under the filter in force, judged at `ref` (kNoDate: now):
// its title, then its tasks in the list's order, each line ending in "\n".
std::string ViewListing(const TaskTable& table, DATE ref);

}  // namespace velmo::cli
