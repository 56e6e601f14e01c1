// The platform notification that reminds of a task: one per task with a
// reminder to come, starting the program with the task's object identifier.
#pragma once

#include <string>

#include "platform/wintypes.h"
#include "store/task.h"

namespace velmo {

// The reminder's text: the subject ("<No Subject>" when empty), a line break,
// the start date, a separator and the due date (or the due date alone without a
// start date) in the short date format, and " (!)" or " (¡)" for a high or a
// low importance. The due date is shown even when there is none.
std::wstring ReminderText(const Task& task);

// Creates the task's notification, or replaces the one of its handle, for its
// reminder time. A replacement that fails removes the old notification and
// makes a new one. Default options (negative) become 13 and an empty sound
// "reminder", both kept in the task. Returns the handle, 0 on failure.
DWORD SetTaskNotification(Task* task);

// The start time of notification `handle`; kNoDate for 0, for one that cannot
// be read and for one made by the platform's own task program.
DATE NotificationTime(DWORD handle);

}  // namespace velmo
