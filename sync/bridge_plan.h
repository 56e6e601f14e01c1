// The bridge's decisions: from what changed on each side, the records and
// files to write or remove and the state that follows.
#pragma once

#include <ctime>
#include <optional>

#include "sync/bridge_changes.h"

namespace velmo::sync {

struct RecordWrite {
  CEOID oid = 0;               // 0: a new record
  bool identity_only = false;  // only the UID and the kept text
  poom::TaskValues values;
  std::string uid;
  std::string kept;
  std::size_t entry;  // the state entry that receives the record's identifier
};

struct FileWrite {
  std::string name;
  std::string text;
  std::size_t entry;                   // the state entry of the file
  std::optional<StateEntry> previous;  // kept instead when the write fails
};

struct BridgePlan {
  std::vector<StateEntry> entries;
  std::vector<RecordWrite> records;
  std::vector<CEOID> record_removals;
  std::vector<FileWrite> files;
  std::vector<std::string> file_removals;
  int conflicts = 0;
};

// local_time: when the database was last written (seconds since the epoch),
// which a conflict weighs against the file's LAST-MODIFIED.
BridgePlan PlanBridge(const SyncState& state, const LocalChanges& local, const FolderChanges& folder,
                      std::time_t local_time);

// A new UID for a task made on this device.
std::string NewUid();

}  // namespace velmo::sync
