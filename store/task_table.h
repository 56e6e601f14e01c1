// The task table: every task of the tasks database (at most 2,550 in the
// interactive load) in database order, program-wide, rebuilt whole on every
// reload and refreshed task by task after single changes.
#pragma once

#include "store/task.h"

namespace velmo {

TaskTable& Tasks();

// A Task record to read into for the table: one the last FreeTaskTable let go
// when there is one, so that its texts' room is used again.
std::unique_ptr<Task> NewTableTask();
// Keeps a task record that did not go into the table for the next NewTableTask.
void ReturnTableTask(std::unique_ptr<Task> task);

// Reads record `oid` (0: the one at the position) into `entry`, or when entry is
// null into a new task appended to the table. With check_reminder the reminder
// time is settled and the notification made to match (reminders/). Returns
// FALSE, appending nothing, when the record cannot be read.
BOOL ReadTask(Task* entry, CEOID oid, bool check_reminder);

// Reloads the table when the reload flag is set (clearing it): up to `limit`
// records from the first, the reminder check on each when the database changed
// since the last load, then the database's last-modified time is kept and the
// categories in use are marked. A record that cannot be read is skipped but
// counted. Returns TRUE when the table was reloaded.
BOOL LoadTaskTable(size_t limit = kMaxTasks);

// Empties the table and clears the state of today's task.
void FreeTaskTable();

// The index of the task with that identifier, or -1.
int FindTask(CEOID oid);

}  // namespace velmo
