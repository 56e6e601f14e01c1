// The pass run after a desktop synchronisation ("AppRunAfterSync"): brings the
// reminders of every task back in line with its record, without any window.
#pragma once

namespace velmo {

// Loads the settings (an incomplete load is not saved here), opens the tasks
// database and, unless it is unchanged since the last load or pass, goes over
// every record and stores the database's new last-modified time. Every failure
// ends the pass silently.
void RunAfterSyncPass();

}  // namespace velmo
