// The change journal as the program's message loop reads it, and the
// notifications the window receives.
#include "platform/cedb.h"
#include "platform/cedb_failure.h"
#include "platform/cedb_journal_position.h"
#include "platform/cedb_objects.h"

namespace velmo::cedb {
namespace {

// True when something may have changed since the handle last looked: a commit
// through this process's connection, or any other connection's (data_version).
bool VolumeMoved(DbHandle* h, bool* moved) {
  Query version = h->volume->Prepare(Sql::kDataVersion);
  if (!version.Step()) return false;
  std::int64_t data_version = version.Int(0);
  *moved = data_version != h->data_version || h->volume->generation() != h->generation;
  h->data_version = data_version;
  h->generation = h->volume->generation();
  return true;
}

}  // namespace

bool PollChanges(HANDLE db, std::vector<DbChange>* out) {
  auto lock = LockDatabases();
  DbHandle* h = FindHandle(db);
  if (!h) return false;
  bool moved = false;
  if (!VolumeMoved(h, &moved)) return false;
  if (!moved) return true;
  h->cursor.Drop();

  Volume* volume = h->volume.get();
  std::int64_t oldest = 0;
  {
    Query bounds = volume->Prepare(Sql::kJournalBounds);
    if (!bounds.Step()) return false;
    oldest = bounds.Int(0);
  }
  // Entries this handle never saw were pruned: it can only reload everything.
  bool lost = oldest > h->journal_seq + 1;
  bool lost_reported = false;
  Query since = volume->Prepare(Sql::kJournalSince);
  since.Bind(1, h->journal_seq);
  while (since.Step()) {
    h->journal_seq = since.Int(0);
    if (static_cast<CEOID>(since.Int(1)) != h->db) continue;
    if (lost) {
      if (!lost_reported) out->push_back(DbChange{DB_CEOID_CHANGED, h->db, 0});
      lost_reported = true;
      continue;
    }
    out->push_back(DbChange{static_cast<UINT>(since.Int(4)), static_cast<CEOID>(since.Int(2)),
                            static_cast<CEOID>(since.Int(3))});
  }
  return since.ok() && !since.failed();
}

bool GetJournalPosition(HANDLE db, std::int64_t* position) {
  auto lock = LockDatabases();
  DbHandle* h = FindHandle(db);
  if (!h) return false;
  *position = h->journal_seq;
  return true;
}

bool SetJournalPosition(HANDLE db, std::int64_t position) {
  auto lock = LockDatabases();
  DbHandle* h = FindHandle(db);
  if (!h) return false;
  Query bounds = h->volume->Prepare(Sql::kJournalBounds);
  if (!bounds.Step()) return false;
  if (position < 0 || position > bounds.Int(1)) {
    SetFailure(ERROR_INVALID_PARAMETER, "The change journal never reached that position.");
    return false;
  }
  h->journal_seq = position;
  h->data_version = -1;  // the next poll reads the journal whatever the version says
  return true;
}

std::vector<HANDLE> NotifyingHandles() {
  auto lock = LockDatabases();
  return HandlesWithRequests();
}

bool GetNotifyRequest(HANDLE db, CENOTIFYREQUEST* out) {
  auto lock = LockDatabases();
  DbHandle* h = FindHandle(db);
  if (!h) return false;
  if (!h->notify) {
    SetFailure(ERROR_INVALID_PARAMETER, "The database was opened without change notifications.");
    return false;
  }
  *out = h->request;
  return true;
}

CENOTIFICATION* NewNotification(HANDLE db, const DbChange& change) {
  auto lock = LockDatabases();
  DbHandle* h = FindHandle(db);
  if (!h) return nullptr;
  return new CENOTIFICATION{sizeof(CENOTIFICATION), h->request.dwParam, change.uType, h->guid,
                            change.oid, change.oidParent};
}

}  // namespace velmo::cedb

BOOL CeFreeNotification(PCENOTIFYREQUEST, PCENOTIFICATION notification) {
  delete notification;
  return TRUE;
}
