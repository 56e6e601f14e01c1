#include "platform/notify_store.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdint>
#include <utility>

#include "platform/device.h"
#include "platform/file_trouble.h"
#include "platform/lasterror.h"
#include "platform/notify.h"
#include "platform/sqlite_wal.h"

namespace velmo::notify {
namespace {

constexpr int kBusyTimeoutMs = 5000;

// Tables of every user of the file; each part adds its own with IF NOT EXISTS.
constexpr const char* kSchema =
    "CREATE TABLE IF NOT EXISTS run_at_event("
    "  app TEXT NOT NULL,"
    "  event INTEGER NOT NULL,"
    "  PRIMARY KEY(app, event));"
    // Handles count up and are never reused; times are local, as
    // 'YYYY-MM-DD HH:MM:SS.mmm' so that they sort.
    "CREATE TABLE IF NOT EXISTS user_notifications("
    "  handle INTEGER PRIMARY KEY AUTOINCREMENT,"
    "  status INTEGER NOT NULL DEFAULT 0,"
    "  type INTEGER NOT NULL,"
    "  event INTEGER NOT NULL,"
    "  application TEXT NOT NULL,"
    "  arguments TEXT NOT NULL,"
    "  start_time TEXT NOT NULL,"
    "  end_time TEXT NOT NULL,"
    "  has_dialog INTEGER NOT NULL,"
    "  action_flags INTEGER NOT NULL,"
    "  title TEXT NOT NULL,"
    "  text TEXT NOT NULL,"
    "  sound TEXT NOT NULL,"
    "  max_sound INTEGER NOT NULL);";

thread_local std::string t_failure;

// Marks a notifications file, so that another SQLite file put in its place is
// refused rather than written into.
constexpr std::int64_t kApplicationId = 0x564E5446;  // "VNTF"

// The tables a notifications file may hold; a file of an older version has them
// without the mark.
constexpr char kOwnTables[] =
    "('run_at_event', 'user_notifications', 'sqlite_sequence', 'sqlite_autoindex_run_at_event_1')";
const std::string kIdentity =
    std::string("SELECT (SELECT application_id FROM pragma_application_id()),"
                " (SELECT count(*) FROM sqlite_master WHERE name NOT IN ") + kOwnTables + ")";

// Empty when the file is a notifications file (marking one that is not yet),
// else why it is refused. A damaged file is found by looking at every page: the
// file is small.
std::string CheckIdentity(sqlite3* db, const std::string& path) {
  std::int64_t app_id = -1, others = -1;
  int rc = SQLITE_OK;
  std::string verdict;
  if (sqlite3_stmt* s = nullptr; (rc = sqlite3_prepare_v2(db, kIdentity.c_str(), -1, &s, nullptr)) == SQLITE_OK) {
    if ((rc = sqlite3_step(s)) == SQLITE_ROW) {
      app_id = sqlite3_column_int64(s, 0);
      others = sqlite3_column_int64(s, 1);
    }
    sqlite3_finalize(s);
  }
  if (sqlite3_stmt* s = nullptr;
      app_id >= 0 && (rc = sqlite3_prepare_v2(db, "PRAGMA quick_check(1)", -1, &s, nullptr)) == SQLITE_OK) {
    if ((rc = sqlite3_step(s)) == SQLITE_ROW) verdict = reinterpret_cast<const char*>(sqlite3_column_text(s, 0));
    sqlite3_finalize(s);
  }
  const int primary = rc & 0xFF;
  if (primary == SQLITE_BUSY || primary == SQLITE_LOCKED)
    return "the notifications file " + path + " is locked by " + HolderOf(path);
  for (char& c : verdict)
    if (c == '\n') c = ' ';
  if (primary == SQLITE_CORRUPT || primary == SQLITE_NOTADB || (!verdict.empty() && verdict != "ok"))
    return "the notifications file " + path + " is damaged (" + (verdict.empty() ? sqlite3_errstr(rc) : verdict) +
           "); nothing is written into it. Reminders work again once it is moved aside.";
  if (app_id < 0 || verdict.empty()) {
    if (DiskIsFull(path)) return "the disk holding the notifications file " + path + " is full";
    return "cannot read the notifications file " + path + " (" + sqlite3_errstr(rc) + ")";
  }
  if (app_id != kApplicationId && (app_id != 0 || others != 0))
    return "the file " + path + " is not a notifications file of this program; it was left as it is";
  if (app_id == kApplicationId) return {};
  const std::string mark = "PRAGMA application_id=" + std::to_string(kApplicationId);
  if (const int marked = sqlite3_exec(db, mark.c_str(), nullptr, nullptr, nullptr); marked != SQLITE_OK)
    return "cannot use the notifications file " + path + ": " + sqlite3_errstr(marked);
  return {};
}

sqlite3* Fail(sqlite3* db, DWORD error, const std::string& text) {
  sqlite3_close(db);
  t_failure = text;
  SetLastError(error);
  return nullptr;
}

}  // namespace

StoreStatement PrepareStore(sqlite3* db, const char* sql) {
  sqlite3_stmt* s = nullptr;
  sqlite3_prepare_v2(db, sql, -1, &s, nullptr);
  return StoreStatement(s);
}

std::string StoreFilePath() { return (device::Root() / "notify.db").string(); }

std::string StoreFailure() { return t_failure; }

std::string IdentitySql() {
  return "SELECT application_id IN (0, " + std::to_string(kApplicationId) +
         ") AND NOT EXISTS (SELECT 1 FROM sqlite_master WHERE name NOT IN " + kOwnTables +
         ") FROM pragma_application_id()";
}

namespace {
thread_local std::string t_unscheduled;
}  // namespace

void NoteUnscheduled(std::string why) { t_unscheduled = std::move(why); }

std::string TakeUnscheduledReminder() { return std::exchange(t_unscheduled, {}); }

std::string DescribeWriteFailure(sqlite3* db, int rc) {
  const std::string path = StoreFilePath();
  switch (rc & 0xFF) {
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
      return "the notifications file " + path + " is locked by " + HolderOf(path);
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB:
      return "the notifications file " + path + " is damaged; nothing is written into it";
    case SQLITE_FULL:
      return "the disk holding the notifications file " + path + " is full";
    case SQLITE_READONLY:
    case SQLITE_PERM:
      return "the notifications file " + path + " is read-only";
    default:
      if (DiskIsFull(path)) return "the disk holding the notifications file " + path + " is full";
      return "the notifications file " + path + " cannot be written (" + sqlite3_errmsg(db) + ")";
  }
}

sqlite3* OpenStore() {
  const std::string path = StoreFilePath();
  if (!device::EnsureRoot())
    return Fail(nullptr, ERROR_ACCESS_DENIED, "cannot use the notifications file " + path + ": " + device::RootFailure());
  device::MakePrivateFile(path);
  sqlite3* db = nullptr;
  if (sqlite3_open_v2(path.c_str(), &db, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr) !=
      SQLITE_OK)
    return Fail(db, ERROR_ACCESS_DENIED, "cannot open the notifications file " + path);
  sqlite3_busy_timeout(db, kBusyTimeoutMs);
  if (const std::string refusal = CheckIdentity(db, path); !refusal.empty())
    return Fail(db, ERROR_BAD_FORMAT, refusal);
  char* message = nullptr;
  int rc = UseWriteAheadLog(db, kBusyTimeoutMs);
  if (rc == SQLITE_OK) rc = sqlite3_exec(db, kSchema, nullptr, nullptr, &message);
  if (rc != SQLITE_OK) {
    const std::string cause = message ? message : sqlite3_errstr(rc);
    sqlite3_free(message);
    const bool busy = (rc & 0xFF) == SQLITE_BUSY || (rc & 0xFF) == SQLITE_LOCKED;
    return Fail(db, busy ? ERROR_LOCK_VIOLATION : ERROR_INVALID_DATA,
                "cannot use the notifications file " + path + ": " + cause);
  }
  t_failure.clear();
  return db;
}

namespace {

struct ThreadConnection {
  std::string path;
  ino_t inode = 0;
  sqlite3* db = nullptr;
  int batch_depth = 0;
  ~ThreadConnection() { sqlite3_close(db); }
};

thread_local ThreadConnection t_connection;

ino_t InodeOf(const std::string& path) {
  struct stat st;
  return ::stat(path.c_str(), &st) == 0 ? st.st_ino : 0;
}

}  // namespace

sqlite3* ThreadStore() {
  ThreadConnection& c = t_connection;
  const std::string path = StoreFilePath();
  if (c.db && c.path == path && c.inode == InodeOf(path)) return c.db;
  sqlite3_close(c.db);
  c.db = OpenStore();
  c.batch_depth = 0;
  if (!c.db) return nullptr;
  // WAL commits stay atomic; they need not reach the disk before the call returns.
  sqlite3_exec(c.db, "PRAGMA synchronous=NORMAL", nullptr, nullptr, nullptr);
  c.path = path;
  c.inode = InodeOf(path);
  return c.db;
}

std::string ChangeMarkPath() { return (device::Root() / "notify.changed").string(); }

void AnnounceChange() {
  if (t_connection.batch_depth > 0) return;
  const int fd = ::open(ChangeMarkPath().c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
  if (fd >= 0) ::close(fd);
}

bool BeginStoreBatch() {
  sqlite3* db = ThreadStore();
  if (!db) return false;
  if (t_connection.batch_depth++ > 0) return true;
  if (sqlite3_exec(db, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr) == SQLITE_OK) return true;
  t_connection.batch_depth = 0;
  SetLastError(ERROR_LOCK_VIOLATION);
  return false;
}

bool EndStoreBatch() {
  ThreadConnection& c = t_connection;
  if (!c.db || c.batch_depth == 0) return false;
  if (--c.batch_depth > 0) return true;
  if (sqlite3_exec(c.db, "COMMIT", nullptr, nullptr, nullptr) == SQLITE_OK) {
    AnnounceChange();
    return true;
  }
  sqlite3_exec(c.db, "ROLLBACK", nullptr, nullptr, nullptr);
  SetLastError(ERROR_WRITE_FAULT);
  return false;
}

}  // namespace velmo::notify
