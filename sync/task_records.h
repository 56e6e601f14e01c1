// The tasks database as the synchronisation sees it: each record's task
// values, the UID of its file and the file's text as last synchronised, kept
// in two properties of the record that only this bridge uses (the object model
// carries them along like any property it does not know).
#pragma once

#include <string>
#include <vector>

#include "platform/cedb.h"
#include "platform/poom_task.h"

namespace velmo::sync {

constexpr CEPROPID kPropSyncUid = 0x7F00001F;
constexpr CEPROPID kPropSyncKept = 0x7F010041;  // UTF-8 text

struct SyncRecord {
  CEOID oid = 0;
  poom::TaskValues values;
  std::string uid;
  std::string kept;
};

// Reads record oid; false when it is gone or unreadable.
bool ReadSyncRecord(HANDLE db, CEOID oid, SyncRecord* out);
// Every record in database order.
bool ReadAllSyncRecords(HANDLE db, std::vector<SyncRecord>* out);

// Writes a task's values, UID and kept text into record oid (0: a new
// record). Returns the record's identifier, 0 on failure.
CEOID WriteSyncRecord(HANDLE db, CEOID oid, const poom::TaskValues& values, const std::string& uid,
                      const std::string& kept);
// Writes only the UID and the kept text.
bool WriteSyncIdentity(HANDLE db, CEOID oid, const std::string& uid, const std::string& kept);

}  // namespace velmo::sync
