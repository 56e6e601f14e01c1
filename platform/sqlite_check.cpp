#include "platform/sqlite_check.h"

#include <sqlite3.h>
#include <sys/stat.h>

#include <cerrno>
#include <cstring>
#include <memory>

#include "platform/file_trouble.h"

namespace velmo {
namespace {

// SQLite lists at most this many problems; the first says the most.
constexpr int kProblemsListed = 20;
constexpr int kBusyTimeoutMs = 5000;

struct CloseDb {
  void operator()(sqlite3* db) const { sqlite3_close(db); }
};
struct Finalize {
  void operator()(sqlite3_stmt* s) const { sqlite3_finalize(s); }
};
using Db = std::unique_ptr<sqlite3, CloseDb>;
using Statement = std::unique_ptr<sqlite3_stmt, Finalize>;

bool IsDamage(int rc) { return (rc & 0xFF) == SQLITE_CORRUPT || (rc & 0xFF) == SQLITE_NOTADB; }

FileCheck Failed(sqlite3* db, int rc, const std::string& path) {
  if (IsDamage(rc)) return {FileVerdict::kDamaged, sqlite3_errmsg(db)};
  if ((rc & 0xFF) == SQLITE_BUSY || (rc & 0xFF) == SQLITE_LOCKED)
    return {FileVerdict::kUnreadable, "locked by " + HolderOf(path)};
  return {FileVerdict::kUnreadable, sqlite3_errmsg(db)};
}

}  // namespace

const char* VerdictName(FileVerdict verdict) {
  static constexpr const char* kNames[] = {"sound", "missing", "damaged", "not this program's",
                                           "unreadable"};
  return kNames[static_cast<int>(verdict)];
}

FileCheck CheckSqliteFile(const std::string& path, const std::string& identity_sql) {
  struct stat st;
  if (::stat(path.c_str(), &st) != 0)
    return errno == ENOENT ? FileCheck{FileVerdict::kMissing, "not made yet"}
                           : FileCheck{FileVerdict::kUnreadable, std::strerror(errno)};
  if (!S_ISREG(st.st_mode)) return {FileVerdict::kUnreadable, "not a plain file"};
  if (st.st_size == 0) return {FileVerdict::kSound, "empty"};

  sqlite3* raw = nullptr;
  const int opened = sqlite3_open_v2(path.c_str(), &raw, SQLITE_OPEN_READONLY, nullptr);
  Db db(raw);
  if (opened != SQLITE_OK) return Failed(raw, opened, path);
  sqlite3_busy_timeout(raw, kBusyTimeoutMs);

  sqlite3_stmt* s = nullptr;
  int rc = sqlite3_prepare_v2(raw, identity_sql.c_str(), -1, &s, nullptr);
  Statement identity(s);
  if (rc == SQLITE_OK) rc = sqlite3_step(s);
  if (IsDamage(rc) || (rc & 0xFF) == SQLITE_BUSY) return Failed(raw, rc, path);
  if (rc != SQLITE_ROW || sqlite3_column_int(s, 0) == 0)
    return {FileVerdict::kForeign, "another program's file or another kind of file; left as it is"};
  identity.reset();

  const std::string check = "PRAGMA integrity_check(" + std::to_string(kProblemsListed) + ")";
  rc = sqlite3_prepare_v2(raw, check.c_str(), -1, &s, nullptr);
  Statement integrity(s);
  std::string first;
  int problems = 0;
  while (rc == SQLITE_OK && (rc = sqlite3_step(s)) == SQLITE_ROW) {
    rc = SQLITE_OK;  // on to the next row
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(s, 0));
    const std::string line = text ? text : "";
    if (line != "ok" && problems++ == 0) first = line;
  }
  if (rc != SQLITE_DONE) return Failed(raw, rc, path);
  if (problems == 0) return {FileVerdict::kSound, {}};
  std::string detail = first;
  if (problems > 1)
    detail += std::string(" (and ") + (problems >= kProblemsListed ? "at least " : "") +
              std::to_string(problems - 1) + " more problems)";
  return {FileVerdict::kDamaged, detail};
}

}  // namespace velmo
