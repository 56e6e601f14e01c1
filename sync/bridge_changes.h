// What changed on each side of the bridge since its last run.
#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "sync/bridge.h"
#include "sync/sync_state.h"
#include "sync/task_records.h"
#include "sync/todo.h"

namespace velmo::sync {

// A task file read from the folder.
struct ReadFile {
  std::string name;
  std::string text;
  FileStamp stamp;
  Todo todo;
};

struct LocalChanges {
  std::map<std::string, SyncRecord> changed;  // by UID: records of state entries whose values moved
  std::set<CEOID> deleted;                    // records of state entries that are gone
  std::map<std::string, CEOID> moved;          // by UID: an entry's task now in another record
  std::map<std::string, SyncRecord> unpaired;  // records with a UID the state does not know
  std::vector<SyncRecord> fresh;               // records without a UID of their own yet
  std::int64_t journal = -1;                   // where the journal was read to
};

struct FolderChanges {
  std::map<std::string, ReadFile> changed;   // by UID: files of state entries whose text moved
  std::set<std::string> deleted;             // UIDs of state entries whose file is gone
  std::map<std::string, FileStamp> touched;  // by UID: same text, new stamp
  std::map<std::string, std::string> renamed;  // by UID: the new file name of an entry
  std::map<std::string, ReadFile> unpaired;  // files of UIDs the state does not know
};

// The database's side; false when the database cannot be read.
bool FindLocalChanges(const TasksDatabase& tasks, const SyncState& state, LocalChanges* out);
// The folder's side; false (error set) when the folder cannot be read. Files
// that cannot be taken are reported in problems and left alone.
bool FindFolderChanges(const std::filesystem::path& folder, const SyncState& state, FolderChanges* out,
                       std::vector<std::string>* problems);

}  // namespace velmo::sync
