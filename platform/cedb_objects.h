// The process's mounted volumes and open database handles. Every database call
// holds the lock while it runs (the program is single-threaded; the lock keeps
// helper threads of tests and services safe).
#pragma once

#include <cstdint>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "platform/cedb.h"
#include "platform/cedb_cursor.h"
#include "platform/cedb_record.h"
#include "platform/cedb_volume.h"

namespace velmo::cedb {

struct DbHandle {
  std::shared_ptr<Volume> volume;
  CEGUID guid{};
  CEOID db = 0;
  DWORD flags = 0;
  bool notify = false;
  CENOTIFYREQUEST request{};

  std::uint64_t position = 0;  // the next read returns the first record at or after it
  Cursor cursor;
  std::vector<StoredProp> parsed;            // reused by every read
  std::vector<const StoredProp*> selected;

  // What the change journal had been read up to.
  std::int64_t journal_seq = 0;
  std::int64_t data_version = 0;
  std::uint64_t generation = 0;
};

std::unique_lock<std::mutex> LockDatabases();

// Mounts the file of a platform path, sharing one connection per file in this
// process; fills *guid. False with the failure set.
bool MountVolume(const std::wstring& path, DWORD disposition, CEGUID* guid);
bool UnmountVolume(const CEGUID* guid);

// The mounted volume of guid; null (failure set) for an invalid or unknown one.
std::shared_ptr<Volume> FindVolume(const CEGUID* guid);

HANDLE AddHandle(std::unique_ptr<DbHandle> handle);
// The open handle; null (ERROR_INVALID_HANDLE set) for anything else.
DbHandle* FindHandle(HANDLE handle);
bool RemoveHandle(HANDLE handle);
std::vector<HANDLE> HandlesWithRequests();

}  // namespace velmo::cedb
