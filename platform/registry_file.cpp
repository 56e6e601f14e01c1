#include "platform/registry_file.h"

#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <mutex>
#include <string>
#include <vector>

#include "platform/device.h"
#include "platform/file_trouble.h"
#include "platform/registry.h"
#include "platform/sqlite_wal.h"

namespace velmo::registry {
namespace {

// Marks a registry file, so that another SQLite file put in its place is refused
// rather than written into.
constexpr std::int64_t kApplicationId = 0x56524547;  // "VREG"

constexpr const char* kSchema =
    "CREATE TABLE IF NOT EXISTS keys("
    "  id INTEGER PRIMARY KEY,"
    "  parent INTEGER NOT NULL,"
    "  name TEXT NOT NULL COLLATE NOCASE,"
    "  UNIQUE(parent, name));"
    "CREATE TABLE IF NOT EXISTS reg_values("
    "  key INTEGER NOT NULL,"
    "  name TEXT NOT NULL COLLATE NOCASE,"
    "  type INTEGER NOT NULL,"
    "  data BLOB NOT NULL,"
    "  PRIMARY KEY(key, name));"
    "INSERT OR IGNORE INTO keys(id, parent, name) VALUES"
    "  (1, 0, 'HKEY_CURRENT_USER'), (2, 0, 'HKEY_LOCAL_MACHINE');";

int g_busy_timeout_ms = 5000;
thread_local std::string t_failure;

// Prepared statements not in use, kept for the next Statement of the same text
// on the same connection: preparing costs more than running, and loading the
// settings runs the same few statements many times.
struct IdleStatement {
  sqlite3* db;
  std::string sql;
  sqlite3_stmt* stmt;
};

// Never destroyed: the open file's destructor at exit still finalizes through them.
std::mutex& CacheLock() {
  static auto* m = new std::mutex;
  return *m;
}

std::vector<IdleStatement>& IdleStatements() {
  static auto* idle = new std::vector<IdleStatement>;
  return *idle;
}

sqlite3_stmt* TakeIdle(sqlite3* db, const char* sql) {
  std::lock_guard<std::mutex> guard(CacheLock());
  auto& idle = IdleStatements();
  for (auto it = idle.begin(); it != idle.end(); ++it) {
    if (it->db != db || it->sql != sql) continue;
    sqlite3_stmt* stmt = it->stmt;
    idle.erase(it);
    return stmt;
  }
  return nullptr;
}

void PutIdle(sqlite3_stmt* stmt, const char* sql) {
  sqlite3_reset(stmt);
  sqlite3_clear_bindings(stmt);
  std::lock_guard<std::mutex> guard(CacheLock());
  IdleStatements().push_back({sqlite3_db_handle(stmt), sql, stmt});
}

// Closes a connection, finalizing first the statements kept for it.
void CloseConnection(sqlite3* db) {
  if (!db) return;
  {
    std::lock_guard<std::mutex> guard(CacheLock());
    auto& idle = IdleStatements();
    std::erase_if(idle, [db](const IdleStatement& s) {
      if (s.db != db) return false;
      sqlite3_finalize(s.stmt);
      return true;
    });
  }
  sqlite3_close(db);
}

struct OpenFile {
  std::string path;
  sqlite3* db = nullptr;
  ino_t inode = 0;  // a file removed and made again under the same name is reopened
  ~OpenFile() { CloseConnection(db); }
};

OpenFile& Current() {
  static OpenFile file;
  return file;
}

std::mutex& Lock() {
  static std::mutex m;
  return m;
}

LONG Refuse(LONG error, const std::string& text) {
  SetFailure(text);
  return error;
}

// Refuses a SQLite file that holds tables but is not a registry file; `made`
// tells whether it is one already.
// Both facts come from one statement, so from one moment of the file: read
// one after the other, a process that makes the file in between would show
// tables without the mark, and its new registry would be refused.
LONG CheckIdentity(sqlite3* db, const std::string& path, bool* made) {
  Statement identity(db, "SELECT (SELECT application_id FROM pragma_application_id()),"
                         " (SELECT count(*) FROM sqlite_master)");
  const int rc = identity.Step();
  if (rc != SQLITE_ROW) return MapSqliteError(db, rc);
  const std::int64_t app_id = identity.Int(0);
  if (app_id != kApplicationId && identity.Int(1) != 0)
    return Refuse(ERROR_BADDB, "the file " + path + " is not a registry file; it was left as it is");
  *made = app_id == kApplicationId;
  return ERROR_SUCCESS;
}

LONG Prepare(sqlite3* db, const std::string& path) {
  sqlite3_busy_timeout(db, g_busy_timeout_ms);
  bool made = false;
  LONG result = CheckIdentity(db, path, &made);
  if (result != ERROR_SUCCESS) return result;
  int rc = UseWriteAheadLog(db, g_busy_timeout_ms);
  if (rc == SQLITE_OK) rc = sqlite3_exec(db, "PRAGMA synchronous=NORMAL", nullptr, nullptr, nullptr);
  if (rc != SQLITE_OK) return MapSqliteError(db, rc);
  // A file made before needs no write: opening it only to read stays a read.
  if (made) return ERROR_SUCCESS;
  return InTransaction(db, [&] {
    const std::string sql = std::string(kSchema) +
                            "PRAGMA application_id=" + std::to_string(kApplicationId) + ";";
    const int schema_rc = sqlite3_exec(db, sql.c_str(), nullptr, nullptr, nullptr);
    return schema_rc == SQLITE_OK ? ERROR_SUCCESS : MapSqliteError(db, schema_rc);
  });
}

}  // namespace

Statement::Statement(sqlite3* db, const char* sql) : sql_(sql) {
  stmt_ = TakeIdle(db, sql);
  prepare_result_ = stmt_ ? SQLITE_OK
                          : sqlite3_prepare_v3(db, sql, -1, SQLITE_PREPARE_PERSISTENT, &stmt_, nullptr);
}

Statement::~Statement() {
  if (prepare_result_ == SQLITE_OK && stmt_)
    PutIdle(stmt_, sql_);
  else
    sqlite3_finalize(stmt_);
}

Statement& Statement::Bind(int index, std::int64_t value) {
  sqlite3_bind_int64(stmt_, index, value);
  return *this;
}

Statement& Statement::Bind(int index, std::string_view text) {
  sqlite3_bind_text(stmt_, index, text.data(), static_cast<int>(text.size()), SQLITE_TRANSIENT);
  return *this;
}

Statement& Statement::BindBlob(int index, const std::vector<BYTE>& bytes) {
  // A zero-length blob, not NULL, for empty data.
  sqlite3_bind_blob(stmt_, index, bytes.empty() ? "" : static_cast<const void*>(bytes.data()),
                    static_cast<int>(bytes.size()), SQLITE_TRANSIENT);
  return *this;
}

int Statement::Step() { return prepare_result_ != SQLITE_OK ? prepare_result_ : sqlite3_step(stmt_); }

std::int64_t Statement::Int(int column) const { return sqlite3_column_int64(stmt_, column); }

std::string Statement::Text(int column) const {
  const auto* text = sqlite3_column_text(stmt_, column);
  return text ? std::string(reinterpret_cast<const char*>(text),
                            static_cast<size_t>(sqlite3_column_bytes(stmt_, column)))
              : std::string();
}

std::vector<BYTE> Statement::Blob(int column) const {
  const auto* data = static_cast<const BYTE*>(sqlite3_column_blob(stmt_, column));
  const int size = sqlite3_column_bytes(stmt_, column);
  return data ? std::vector<BYTE>(data, data + size) : std::vector<BYTE>();
}

sqlite3* Connection(LONG* error) {
  std::lock_guard<std::mutex> guard(Lock());
  OpenFile& file = Current();
  // While a transaction is open (a read batch, a write) the file in use stays
  // in use: the settings load asks for the connection a hundred times in one
  // batch, and the check below (a path and a stat each time) waits for its end.
  if (file.db && !sqlite3_get_autocommit(file.db)) {
    *error = ERROR_SUCCESS;
    return file.db;
  }
  const std::string path = FilePath();
  struct stat info = {};
  if (file.db && file.path == path && stat(path.c_str(), &info) == 0 && info.st_ino == file.inode) {
    *error = ERROR_SUCCESS;
    return file.db;
  }
  CloseConnection(file.db);
  file.db = nullptr;
  file.path.clear();

  if (!device::EnsureRoot()) {
    *error = Refuse(ERROR_ACCESS_DENIED, "cannot use the registry file " + path + ": " + device::RootFailure());
    return nullptr;
  }
  device::MakePrivateFile(path);
  if (std::filesystem::exists(path) && access(path.c_str(), R_OK | W_OK) != 0) {
    *error = Refuse(ERROR_ACCESS_DENIED, "cannot use the registry file " + path +
                                             ": it is not readable and writable");
    return nullptr;
  }
  sqlite3* db = nullptr;
  if (sqlite3_open_v2(path.c_str(), &db, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr) !=
      SQLITE_OK) {
    *error = Refuse(ERROR_ACCESS_DENIED, "cannot open the registry file " + path + ": " +
                                             (db ? sqlite3_errmsg(db) : "out of memory"));
    sqlite3_close(db);
    return nullptr;
  }
  file.path = path;
  file.db = db;
  *error = Prepare(db, path);
  file.inode = stat(path.c_str(), &info) == 0 ? info.st_ino : 0;
  if (*error != ERROR_SUCCESS) {
    CloseConnection(db);
    file.db = nullptr;
    file.path.clear();
    return nullptr;
  }
  SetFailure({});
  return db;
}

LONG MapSqliteError(sqlite3* db, int result) {
  const std::string path = FilePath();
  switch (result & 0xFF) {
    case SQLITE_OK:
    case SQLITE_DONE:
    case SQLITE_ROW:
      return ERROR_SUCCESS;
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
      return Refuse(ERROR_LOCK_VIOLATION,
                    "the registry file " + path + " is locked by " + HolderOf(path) + " for longer than the wait");
    case SQLITE_NOTADB:
    case SQLITE_CORRUPT:
      return Refuse(ERROR_BADDB, "the registry file " + path +
                                     " is damaged or not a registry file; it was left as it is");
    case SQLITE_FULL:
      return Refuse(ERROR_DISK_FULL, "the disk holding the registry file " + path + " is full");
    case SQLITE_READONLY:
    case SQLITE_PERM:
      return Refuse(ERROR_ACCESS_DENIED, "the registry file " + path + " is read-only");
    case SQLITE_CANTOPEN:
      return Refuse(ERROR_ACCESS_DENIED, "cannot open the registry file " + path);
    default:
      if (DiskIsFull(path)) return Refuse(ERROR_DISK_FULL, "the disk holding the registry file " + path + " is full");
      if (IsReadOnly(path)) return Refuse(ERROR_ACCESS_DENIED, "the registry file " + path + " is read-only");
      return Refuse(ERROR_WRITE_FAULT, "the registry file " + path + " failed: " +
                                           (db ? sqlite3_errmsg(db) : sqlite3_errstr(result)));
  }
}

void SetFailure(std::string text) { t_failure = std::move(text); }

void SetBusyTimeoutForTesting(int milliseconds) {
  std::lock_guard<std::mutex> guard(Lock());
  g_busy_timeout_ms = milliseconds;
  if (Current().db) sqlite3_busy_timeout(Current().db, milliseconds);
}

std::string IdentitySql() {
  return "SELECT application_id=" + std::to_string(kApplicationId) + " FROM pragma_application_id()";
}

std::string FilePath() { return (device::Root() / "registry.db").string(); }

std::string LastFailure() { return t_failure; }

ScopedReadBatch::ScopedReadBatch() {
  LONG error = ERROR_SUCCESS;
  sqlite3* db = Connection(&error);
  // Nested batches and batches inside a write leave the open transaction alone.
  if (db && sqlite3_get_autocommit(db))
    open_ = sqlite3_exec(db, "BEGIN", nullptr, nullptr, nullptr) == SQLITE_OK;
}

ScopedReadBatch::~ScopedReadBatch() {
  LONG error = ERROR_SUCCESS;
  if (!open_) return;
  if (sqlite3* db = Connection(&error)) sqlite3_exec(db, "COMMIT", nullptr, nullptr, nullptr);
}

}  // namespace velmo::registry
