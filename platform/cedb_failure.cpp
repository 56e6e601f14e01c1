#include "platform/cedb_failure.h"

#include <sqlite3.h>

#include "platform/cedb.h"
#include "platform/lasterror.h"

namespace velmo::cedb {
namespace {

thread_local std::string g_failure;

struct SqliteFailure {
  int code;  // primary result code
  DWORD error;
  const char* what;
};
constexpr SqliteFailure kSqliteFailures[] = {
    {SQLITE_BUSY, ERROR_LOCK_VIOLATION, "is locked by another program"},
    {SQLITE_LOCKED, ERROR_LOCK_VIOLATION, "is locked by another program"},
    {SQLITE_NOTADB, ERROR_BAD_FORMAT, "is damaged or is not a database volume"},
    {SQLITE_CORRUPT, ERROR_BAD_FORMAT, "is damaged or is not a database volume"},
    {SQLITE_FORMAT, ERROR_BAD_FORMAT, "is damaged or is not a database volume"},
    {SQLITE_FULL, ERROR_DISK_FULL, "cannot grow: the disk is full"},
    {SQLITE_READONLY, ERROR_ACCESS_DENIED, "cannot be written"},
    {SQLITE_PERM, ERROR_ACCESS_DENIED, "cannot be written"},
    {SQLITE_CANTOPEN, ERROR_ACCESS_DENIED, "cannot be opened"},
    {SQLITE_NOMEM, ERROR_NOT_ENOUGH_MEMORY, "cannot be read: out of memory"},
    {SQLITE_IOERR, ERROR_WRITE_FAULT, "cannot be read or written"},
};

}  // namespace

void SetFailure(DWORD error, std::string sentence) {
  g_failure = std::move(sentence);
  SetLastError(error);
}

void SetSqliteFailure(int sqlite_code, const std::string& file, const char* detail) {
  DWORD error = ERROR_INVALID_DATA;
  const char* what = "cannot be used";
  for (const SqliteFailure& f : kSqliteFailures)
    if (f.code == (sqlite_code & 0xFF)) {
      error = f.error;
      what = f.what;
    }
  std::string sentence = "The database volume " + file + " " + what;
  if (detail && *detail) sentence += std::string(" (") + detail + ")";
  SetFailure(error, sentence + ".");
}

std::string LastFailure() { return g_failure; }

}  // namespace velmo::cedb
