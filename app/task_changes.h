// Keeping the task table and the list in step with the tasks database: one
// task re-read after a change, the whole table reloaded when the reload flag is
// set, the database's own change messages, and a database that goes away and
// comes back.
#pragma once

#include "platform/cedb.h"
#include "platform/poom.h"
#include "platform/wintypes.h"

namespace velmo::app {

// Re-reads one task with the reminder check: in place when it is in the table,
// appended when it is new (and the table has room), removed when its record is
// gone. The list is rebuilt once the messages waiting have been handled; with
// `select` the task is then the selected one.
void RereadTask(CEOID oid, bool select = false);

// Removes a task from the table (its record was deleted).
void ForgetTask(CEOID oid);

// Posts one rebuild of the list, the Filter menu and the title, however many
// changes come before it is handled.
void ScheduleRebuild();

// Sets the reload flag and reloads the table now.
void ReloadTasksNow();

// The object model could not deliver the item of a listed task: the reload flag
// is set and the reload timer (re)started.
void ScheduleReload();

// The reload timer: reopens a database that went away, then reloads the table
// when the reload flag is set.
void OnReloadTimer();

// A change message of the tasks database (DB_CEOID_*; lParam the notification,
// freed here).
void OnDatabaseChange(UINT type, CENOTIFICATION* notification);

// The tasks database cannot be read any more: its message is shown once, the
// list is emptied, and the reload timer looks for the database until it is back.
void OnDatabaseLost();

// The object model's item of a task; on failure the table is reloaded soon.
HRESULT OpenTaskItem(CEOID oid, ITask** item);

}  // namespace velmo::app
