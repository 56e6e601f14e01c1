// What the bridge knew at the end of its last run: for each task, its UID,
// record, values fingerprint and file (name, stamp, content hash), and how far
// the tasks database's change journal had been read. Kept in the device root,
// mode 0600, written whole through a temporary file.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "platform/wintypes.h"
#include "sync/folder_files.h"

namespace velmo::sync {

struct StateEntry {
  std::string uid;
  CEOID oid = 0;
  std::uint64_t values = 0;  // ValuesFingerprint of the task as both sides hold it
  std::string file;          // the file's name in the folder
  FileStamp stamp;
  std::uint64_t content = 0;  // ContentHash of the file
};

struct SyncState {
  std::string folder;         // the folder these entries describe
  std::int64_t journal = -1;  // -1: read every record
  std::vector<StateEntry> entries;
};

std::filesystem::path StateFile();

// Loads the state; a missing file is an empty state. False with `error` when
// the file is damaged (the caller then starts afresh, matching by UID).
bool LoadState(const std::filesystem::path& file, SyncState* out, std::string* error);
bool SaveState(const std::filesystem::path& file, const SyncState& state, std::string* error);

}  // namespace velmo::sync
