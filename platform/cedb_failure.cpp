#include "platform/cedb_failure.h"

#include <sqlite3.h>

#include "platform/cedb.h"
#include "platform/cedb_recover.h"
#include "platform/file_trouble.h"
#include "platform/lasterror.h"

namespace velmo::cedb {
namespace {

thread_local std::string g_failure;

struct SqliteFailure {
  int code;  // primary result code
  DWORD error;
  const char* what;
  const char* next;  // what the user can do, after the cause
};

constexpr char kDamagedNext[] =
    " Nothing more is written into it: \"velmo check\" tells what is damaged, and"
    " \"velmo recover\" copies every readable task into a new volume.";
constexpr SqliteFailure kSqliteFailures[] = {
    {SQLITE_BUSY, ERROR_LOCK_VIOLATION, "is locked by ", ""},
    {SQLITE_LOCKED, ERROR_LOCK_VIOLATION, "is locked by ", ""},
    {SQLITE_NOTADB, ERROR_FILE_CORRUPT, "is damaged or is not a database volume", kDamagedNext},
    {SQLITE_CORRUPT, ERROR_FILE_CORRUPT, "is damaged", kDamagedNext},
    {SQLITE_FORMAT, ERROR_FILE_CORRUPT, "is damaged", kDamagedNext},
    {SQLITE_FULL, ERROR_DISK_FULL, "cannot grow: the disk is full", " Free some space and try again."},
    {SQLITE_READONLY, ERROR_ACCESS_DENIED, "is read-only: it cannot be written", ""},
    {SQLITE_PERM, ERROR_ACCESS_DENIED, "is read-only: it cannot be written", ""},
    {SQLITE_CANTOPEN, ERROR_ACCESS_DENIED, "cannot be opened", ""},
    {SQLITE_NOMEM, ERROR_NOT_ENOUGH_MEMORY, "cannot be read: out of memory", ""},
    {SQLITE_IOERR, ERROR_WRITE_FAULT, "cannot be read or written", ""},
};

SqliteFailure Lookup(int sqlite_code) {
  for (const SqliteFailure& f : kSqliteFailures)
    if (f.code == (sqlite_code & 0xFF)) return f;
  return {sqlite_code, ERROR_INVALID_DATA, "cannot be used", ""};
}

}  // namespace

void SetFailure(DWORD error, std::string sentence) {
  g_failure = std::move(sentence);
  SetLastError(error);
}

void SetSqliteFailure(int sqlite_code, const std::string& file, const char* detail) {
  SqliteFailure failure = Lookup(sqlite_code);
  // A full disk shows as an I/O error of the write that needed the space.
  if (sqlite_code == SQLITE_IOERR_WRITE && DiskIsFull(file)) failure = Lookup(SQLITE_FULL);
  std::string sentence = "The database volume " + file + " " + failure.what;
  // Waiting longer would not help: say who holds it, so that it can be closed.
  if (failure.error == ERROR_LOCK_VIOLATION) sentence += HolderOf(file) + " for longer than the wait";
  if (detail && *detail) sentence += std::string(" (") + detail + ")";
  SetFailure(failure.error, sentence + "." + failure.next);
}

std::string LastFailure() { return g_failure; }

}  // namespace velmo::cedb
