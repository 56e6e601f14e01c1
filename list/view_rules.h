// Which tasks a view shows at a given moment, before the category filter.
#pragma once

#include "platform/wintypes.h"
#include "settings/settings.h"
#include "store/task.h"

namespace velmo {

// The due date the views and the list go by: a task with a reminder but no due
// date is due on the reminder's day.
DATE EffectiveDueDate(const Task& task);

// Midnight of the reference moment's day (whole days truncate toward zero).
DATE DayOf(DATE moment);

// Whether `view` shows `task` at the reference moment `ref` (not none) under
// the view settings of `s`. A number that is no view shows every task.
bool TaskInView(const Task& task, DATE ref, UINT view, const Settings& s);

}  // namespace velmo
