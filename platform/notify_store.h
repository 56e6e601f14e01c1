// The notifications file of the device root (<root>/notify.db): start-on-event
// registrations and user notifications, shared by every process of the device.
#pragma once

#include <sqlite3.h>

#include <memory>
#include <string>

namespace velmo::notify {

// A connection and a statement of the file, closed when they go.
struct CloseStoreDb {
  void operator()(sqlite3* db) const { sqlite3_close(db); }
};
using StoreDb = std::unique_ptr<sqlite3, CloseStoreDb>;

struct FinalizeStatement {
  void operator()(sqlite3_stmt* s) const { sqlite3_finalize(s); }
};
using StoreStatement = std::unique_ptr<sqlite3_stmt, FinalizeStatement>;

// Null when the statement cannot be prepared.
StoreStatement PrepareStore(sqlite3* db, const char* sql);

// The file of the current device root.
std::string StoreFilePath();

// Opens the file (creating the root and the file when missing) in WAL mode with a
// busy timeout, and creates the tables when absent. Returns null with the last
// error set on failure (the file is never replaced); StoreFailure() then names
// the file and the cause. The caller closes the connection with sqlite3_close.
sqlite3* OpenStore();

// This thread's own connection to the file of the current device root, kept open
// between calls (reopened when the root or the file changes) so that many calls
// in a row stay cheap. Owned by the module: the caller never closes it. Null with
// the last error set on failure, like OpenStore.
sqlite3* ThreadStore();

// Groups this thread's writes of user notifications until EndStoreBatch into one
// transaction (nested pairs count). False when the file cannot be locked or the
// commit fails.
bool BeginStoreBatch();
bool EndStoreBatch();

// The file whose change tells watchers (the reminder service, through inotify)
// that user notifications changed: it is rewritten after each committed write,
// so a watcher that wakes on it reads the new state.
std::string ChangeMarkPath();
// Rewrites the change mark, unless a batch is open (EndStoreBatch then does).
void AnnounceChange();

// One row, true when the open file is a notifications file (for velmo check).
std::string IdentitySql();

// The last failure of OpenStore in this thread, naming the file.
std::string StoreFailure();

// Why the last CeSetUserNotificationEx of this thread failed (empty after a
// success): a reminder that was not scheduled is told to the user, never dropped.
void NoteUnscheduled(std::string why);
// The sentence for a write to the file that failed with rc: damaged, full,
// read-only, held by another program (which).
std::string DescribeWriteFailure(sqlite3* db, int rc);

}  // namespace velmo::notify
