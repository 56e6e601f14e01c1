#include "platform/cedb_volume.h"

#include <sys/stat.h>

#include <atomic>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <chrono>
#include <cstdint>
#include <map>
#include <mutex>
#include <optional>
#include <set>
#include <tuple>
#include <system_error>

#include "platform/cedb.h"
#include "platform/cedb_failure.h"
#include "platform/device.h"
#include "platform/file_trouble.h"
#include "platform/lasterror.h"
#include "platform/sqlite_wal.h"

namespace velmo::cedb {
namespace {

constexpr std::int64_t kFormatVersion = 1;
constexpr std::int64_t kLastOid = 0xFFFFFFFF;
// The journal keeps at least this many of its newest entries; pruned every
// kJournalPruneEvery entries.
constexpr std::int64_t kJournalKeep = 8192;
constexpr std::int64_t kJournalPruneEvery = 512;
// FILETIME ticks (100 ns since 1601) at the Unix epoch.
constexpr std::int64_t kUnixEpochTicks = 116444736000000000;

std::atomic<int> g_busy_timeout_ms{5000};

// Files found damaged in this process, with what was found: never opened for
// writing again while the file stays the same one (a file put in its place, by
// "velmo recover" for one, is looked at anew).
struct Damage {
  ino_t inode;
  off_t size;
  std::int64_t modified_ns;
  std::string finding;
};
std::mutex g_damaged_lock;
std::map<std::string, Damage>& DamagedFiles() {
  static auto* files = new std::map<std::string, Damage>;
  return *files;
}
Damage Stamp(const std::string& file, std::string finding) {
  struct stat st = {};
  ::stat(file.c_str(), &st);
  return {st.st_ino, st.st_size, st.st_mtim.tv_sec * 1000000000LL + st.st_mtim.tv_nsec,
          std::move(finding)};
}
// What was found in the file, when it is known to be damaged.
std::optional<std::string> KnownDamage(const std::string& file) {
  std::lock_guard<std::mutex> guard(g_damaged_lock);
  auto found = DamagedFiles().find(file);
  if (found == DamagedFiles().end()) return std::nullopt;
  const Damage now = Stamp(file, {});
  const Damage& then = found->second;
  if (now.inode == then.inode && now.size == then.size && now.modified_ns == then.modified_ns)
    return then.finding;
  DamagedFiles().erase(found);
  return std::nullopt;
}
// Files whose pages were all looked at in this process, as they were then: a
// second mount of the unchanged file (start-up mounts the volume more than
// once) is not checked again.
using FileState = std::tuple<dev_t, ino_t, off_t, std::int64_t>;
std::set<FileState>& CheckedFiles() {
  static auto* files = new std::set<FileState>;
  return *files;
}
FileState StateOf(const std::string& file) {
  struct stat st = {};
  ::stat(file.c_str(), &st);
  return {st.st_dev, st.st_ino, st.st_size, st.st_mtim.tv_sec * 1000000000LL + st.st_mtim.tv_nsec};
}

void MarkDamaged(const std::string& file, const std::string& finding) {
  std::lock_guard<std::mutex> guard(g_damaged_lock);
  DamagedFiles().insert_or_assign(file, Stamp(file, finding));
}

// Indexed by Sql.
constexpr const char* kSqlText[] = {
    "BEGIN IMMEDIATE",
    "COMMIT",
    "ROLLBACK",
    "SAVEPOINT write_call",
    "RELEASE write_call",
    "SELECT value FROM volume WHERE key='next_oid'",
    "UPDATE volume SET value=?1 WHERE key='next_oid'",
    "SELECT oid FROM databases WHERE name=?1",
    "SELECT oid FROM databases WHERE oid=?1",
    "SELECT name, type, flags, sort, records, size, modified FROM databases WHERE oid=?1",
    "SELECT oid FROM databases ORDER BY oid",
    "INSERT INTO databases(oid, name, type, flags, sort, records, size, modified)"
    " VALUES(?1, ?2, ?3, ?4, ?5, 0, 0, ?6)",
    "DELETE FROM databases WHERE oid=?1",
    "DELETE FROM records WHERE db=?1",
    "UPDATE databases SET records=records+?2, size=size+?3, modified=max(?4, modified+1)"
    " WHERE oid=?1",
    "SELECT db, length(props) FROM records WHERE oid=?1",
    "SELECT db, props FROM records WHERE oid=?1",
    "INSERT INTO records(oid, db, props) VALUES(?1, ?2, ?3)",
    "UPDATE records SET props=?2 WHERE oid=?1",
    "DELETE FROM records WHERE oid=?1",
    "SELECT oid, length(props), props FROM records WHERE db=?1 AND oid>=?2 ORDER BY oid",
    "SELECT oid, props FROM records WHERE db=?1 AND oid>=?2 ORDER BY oid",
    "SELECT oid FROM records WHERE db=?1 AND oid>=?2 ORDER BY oid LIMIT 1 OFFSET ?3",
    "SELECT oid FROM records WHERE db=?1 AND oid<?2 ORDER BY oid DESC LIMIT 1 OFFSET ?3",
    "SELECT count(*) FROM records WHERE db=?1 AND oid<?2",
    "INSERT INTO changes(db, oid, parent, kind) VALUES(?1, ?2, ?3, ?4)",
    "DELETE FROM changes WHERE seq<=?1",
    "SELECT seq, db, oid, parent, kind FROM changes WHERE seq>?1 ORDER BY seq",
    // Two subqueries: SQLite answers a lone min() or max() from the key's b-tree,
    // but scans the whole journal for both in one select.
    "SELECT ifnull((SELECT min(seq) FROM changes), 0),"
    " ifnull((SELECT max(seq) FROM changes), 0)",
    "PRAGMA data_version",
};
static_assert(std::size(kSqlText) == static_cast<size_t>(Sql::kCount));

constexpr const char* kSchema =
    "CREATE TABLE IF NOT EXISTS volume(key TEXT PRIMARY KEY, value INTEGER NOT NULL)"
    " WITHOUT ROWID;"
    "CREATE TABLE IF NOT EXISTS databases(oid INTEGER PRIMARY KEY,"
    " name TEXT NOT NULL UNIQUE COLLATE NOCASE, type INTEGER NOT NULL,"
    " flags INTEGER NOT NULL, sort BLOB, records INTEGER NOT NULL,"
    " size INTEGER NOT NULL, modified INTEGER NOT NULL);"
    "CREATE TABLE IF NOT EXISTS records(oid INTEGER PRIMARY KEY, db INTEGER NOT NULL,"
    " props BLOB NOT NULL);"
    "CREATE INDEX IF NOT EXISTS records_by_db ON records(db);"
    "CREATE TABLE IF NOT EXISTS changes(seq INTEGER PRIMARY KEY, db INTEGER NOT NULL,"
    " oid INTEGER NOT NULL, parent INTEGER NOT NULL, kind INTEGER NOT NULL);"
    "INSERT OR IGNORE INTO volume VALUES('format', 1), ('next_oid', 1);";

bool DispositionAllows(DWORD disposition, bool exists, const std::string& file) {
  switch (disposition) {
    case CREATE_NEW:
      if (!exists) return true;
      SetFailure(ERROR_ALREADY_EXISTS, "The database volume " + file + " already exists.");
      return false;
    case OPEN_EXISTING:
      if (exists) return true;
      SetFailure(ERROR_FILE_NOT_FOUND, "The database volume " + file + " does not exist.");
      return false;
    case CREATE_ALWAYS:
    case OPEN_ALWAYS:
      return true;
    default:
      SetFailure(ERROR_INVALID_PARAMETER, "Unknown way of mounting a database volume.");
      return false;
  }
}

}  // namespace

std::int64_t NowTicks() {
  auto since_epoch = std::chrono::system_clock::now().time_since_epoch();
  return kUnixEpochTicks + std::chrono::duration_cast<std::chrono::nanoseconds>(since_epoch).count() / 100;
}

int BusyTimeoutMs() { return g_busy_timeout_ms; }

void SetBusyTimeout(int milliseconds) { g_busy_timeout_ms = milliseconds; }

// ---------------------------------------------------------------------------
// Query

Query::~Query() {
  if (stmt_) sqlite3_reset(stmt_);
}

Query& Query::Bind(int index, std::int64_t value) {
  if (stmt_) sqlite3_bind_int64(stmt_, index, value);
  return *this;
}

Query& Query::Bind(int index, std::string_view text) {
  if (stmt_) sqlite3_bind_text(stmt_, index, text.data(), static_cast<int>(text.size()), SQLITE_TRANSIENT);
  return *this;
}

Query& Query::BindBlob(int index, const void* data, size_t size) {
  // A zero-length blob still binds as a blob (never NULL): "" is a valid pointer.
  if (stmt_)
    sqlite3_bind_blob64(stmt_, index, size ? data : "", size, SQLITE_STATIC);
  return *this;
}

bool Query::Step() {
  if (!stmt_ || failed_) return false;
  int rc = sqlite3_step(stmt_);
  if (rc == SQLITE_ROW) return true;
  if (rc != SQLITE_DONE) {
    failed_ = true;
    volume_->Fail(rc);
  }
  return false;
}

bool Query::Run() {
  while (Step()) {
  }
  return ok() && !failed_;
}

const BYTE* Query::Blob(int column) const {
  return static_cast<const BYTE*>(sqlite3_column_blob(stmt_, column));
}

std::string Query::Text(int column) const {
  const unsigned char* text = sqlite3_column_text(stmt_, column);
  return text ? std::string(reinterpret_cast<const char*>(text), Bytes(column)) : std::string();
}

// ---------------------------------------------------------------------------
// Volume

std::unique_ptr<Volume> Volume::Open(const std::filesystem::path& path, DWORD disposition) {
  std::error_code ec;
  bool exists = std::filesystem::exists(path, ec);
  std::unique_ptr<Volume> volume(new Volume(path.string()));
  if (!DispositionAllows(disposition, exists, volume->file_)) return nullptr;
  if (!exists && (!device::MakePrivateFolder(path.parent_path()) || !device::MakePrivateFile(path))) {
    SetFailure(ERROR_ACCESS_DENIED, "The database volume " + volume->file_ + " cannot be made (" +
                                        std::strerror(errno) + ").");
    return nullptr;
  }
  if (const auto finding = exists ? KnownDamage(volume->file_) : std::nullopt) {
    SetSqliteFailure(SQLITE_CORRUPT, volume->file_, finding->c_str());
    return nullptr;
  }
  if (!volume->Connect(!exists) || !volume->CheckOrInitialize()) {
    // Reading needs no room, but opening the log's index does: on a full disk or
    // a read-only one a volume is opened to be read only, and every write says
    // why it is refused.
    if (!exists || KnownDamage(volume->file_)) return nullptr;
    if (DiskIsFull(volume->file_))
      volume->read_only_cause_ = SQLITE_FULL;
    else if (IsReadOnly(volume->file_))
      volume->read_only_cause_ = SQLITE_READONLY;
    else
      return nullptr;
    if (!volume->ConnectToRead()) return nullptr;
  }
  if (disposition == CREATE_ALWAYS && exists && !volume->RemoveAllDatabases()) return nullptr;
  return volume;
}

Volume::~Volume() {
  for (sqlite3_stmt* stmt : statements_) sqlite3_finalize(stmt);
  sqlite3_close(db_);
}

bool Volume::ConnectToRead() {
  const std::string failure = LastFailure();
  const DWORD error = GetLastError();
  for (sqlite3_stmt*& stmt : statements_) {
    sqlite3_finalize(stmt);
    stmt = nullptr;
  }
  sqlite3_close(db_);
  db_ = nullptr;
  // As a URI, with the characters that mean something there escaped.
  std::string uri = "file:";
  for (const char c : file_) {
    if (c == '?' || c == '#' || c == '%') {
      char escaped[4];
      std::snprintf(escaped, sizeof escaped, "%%%02X", static_cast<unsigned char>(c));
      uri += escaped;
    } else {
      uri += c;
    }
  }
  uri += "?immutable=1";
  int rc = sqlite3_open_v2(uri.c_str(), &db_, SQLITE_OPEN_READONLY | SQLITE_OPEN_URI | SQLITE_OPEN_NOMUTEX, nullptr);
  sqlite3_stmt* stmt = nullptr;
  if (rc == SQLITE_OK) rc = sqlite3_prepare_v2(db_, "SELECT value FROM volume WHERE key='format'", -1, &stmt, nullptr);
  const bool readable = rc == SQLITE_OK && sqlite3_step(stmt) == SQLITE_ROW &&
                        sqlite3_column_int64(stmt, 0) == kFormatVersion;
  sqlite3_finalize(stmt);
  if (!readable) {
    SetFailure(error, failure);
    return false;
  }
  sqlite3_extended_result_codes(db_, 1);
  return true;
}

bool Volume::RefuseReadOnly() {
  SetSqliteFailure(read_only_cause_, file_, "");
  return false;
}

bool Volume::Connect(bool may_create) {
  int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX | (may_create ? SQLITE_OPEN_CREATE : 0);
  int rc = sqlite3_open_v2(file_.c_str(), &db_, flags, nullptr);
  if (rc != SQLITE_OK) return Fail(rc);
  sqlite3_extended_result_codes(db_, 1);
  sqlite3_busy_timeout(db_, BusyTimeoutMs());
  return true;
}

// Reads the schema before changing anything: an empty file becomes a volume; a
// file with tables must be a volume of a known format, else it is left alone.
bool Volume::CheckOrInitialize() {
  sqlite3_stmt* stmt = nullptr;
  int rc = sqlite3_prepare_v2(db_, "SELECT count(*) FROM sqlite_master", -1, &stmt, nullptr);
  std::int64_t objects = -1;
  if (rc == SQLITE_OK && (rc = sqlite3_step(stmt)) == SQLITE_ROW) objects = sqlite3_column_int64(stmt, 0);
  sqlite3_finalize(stmt);
  if (objects < 0) return Fail(rc);

  if (objects > 0) {
    stmt = nullptr;
    std::int64_t format = -1;
    rc = sqlite3_prepare_v2(db_, "SELECT value FROM volume WHERE key='format'", -1, &stmt, nullptr);
    if (rc == SQLITE_OK && (rc = sqlite3_step(stmt)) == SQLITE_ROW) format = sqlite3_column_int64(stmt, 0);
    sqlite3_finalize(stmt);
    // A missing table is a foreign file; anything else (locked, damaged) says so.
    if (rc != SQLITE_ROW && rc != SQLITE_DONE && (rc & 0xFF) != SQLITE_ERROR) return Fail(rc);
    if (format != kFormatVersion) {
      SetFailure(ERROR_BAD_FORMAT,
                 "The file " + file_ + " is not a database volume of this program; it was left unchanged.");
      return false;
    }
    if (!CheckPages()) return false;
  }
  // Write-ahead logging lets readers and one writer of any process work at once.
  // Every commit reaches the disk before the call returns: a task shown as saved
  // stays saved through a power loss (passes that write many records batch them
  // into one commit). Pages are read through a memory map rather than one read
  // call each.
  rc = UseWriteAheadLog(db_, BusyTimeoutMs());
  if (rc == SQLITE_OK)
    rc = sqlite3_exec(db_, "PRAGMA synchronous=FULL; PRAGMA mmap_size=268435456", nullptr, nullptr, nullptr);
  if (rc != SQLITE_OK) return Fail(rc);
  if (objects > 0) return true;
  return Write([this] {
    int result = sqlite3_exec(db_, kSchema, nullptr, nullptr, nullptr);
    return result == SQLITE_OK || Fail(result);
  });
}

// Every page of the file is looked at once before the program uses it: damage
// found later, by a read that needs the page, would come after writes.
bool Volume::CheckPages() {
  const FileState identity = StateOf(file_);
  {
    std::lock_guard<std::mutex> guard(g_damaged_lock);
    if (CheckedFiles().count(identity)) return true;
  }
  sqlite3_stmt* stmt = nullptr;
  int rc = sqlite3_prepare_v2(db_, "PRAGMA quick_check(1)", -1, &stmt, nullptr);
  std::string verdict;
  if (rc == SQLITE_OK && (rc = sqlite3_step(stmt)) == SQLITE_ROW)
    verdict = reinterpret_cast<const char*>(sqlite3_column_text(stmt, 0));
  sqlite3_finalize(stmt);
  if (rc != SQLITE_ROW) return Fail(rc);
  // "*** in database main ***\nPage 24: ..." as one line.
  if (const size_t header = verdict.find("***\n"); verdict.rfind("*** in database", 0) == 0 && header != std::string::npos)
    verdict.erase(0, header + 4);
  for (char& c : verdict)
    if (c == '\n') c = ' ';
  if (verdict == "ok") {
    std::lock_guard<std::mutex> guard(g_damaged_lock);
    CheckedFiles().insert(identity);
    return true;
  }
  damaged_ = true;
  MarkDamaged(file_, verdict);
  SetSqliteFailure(SQLITE_CORRUPT, file_, verdict.c_str());
  return false;
}

bool Volume::RefuseDamaged() {
  const auto finding = KnownDamage(file_);
  SetSqliteFailure(SQLITE_CORRUPT, file_, finding ? finding->c_str() : "");
  return false;
}

// CREATE_ALWAYS on an existing volume: every database goes, identifiers stay
// unused forever.
bool Volume::RemoveAllDatabases() {
  return Write([this] {
    std::vector<CEOID> dbs;
    {
      Query all = Prepare(Sql::kAllDbs);
      while (all.Step()) dbs.push_back(static_cast<CEOID>(all.Int(0)));
      if (!all.ok() || all.failed()) return false;
    }
    for (CEOID db : dbs) {
      if (!Prepare(Sql::kDeleteDbRecords).Bind(1, db).Run()) return false;
      if (!Prepare(Sql::kDeleteDb).Bind(1, db).Run()) return false;
      if (!Journal(db, db, 0, DB_CEOID_DATABASE_DELETED)) return false;
    }
    return true;
  });
}

Query Volume::Prepare(Sql which) {
  sqlite3_stmt*& stmt = statements_[static_cast<size_t>(which)];
  if (!stmt) {
    int rc = sqlite3_prepare_v3(db_, kSqlText[static_cast<size_t>(which)], -1,
                                SQLITE_PREPARE_PERSISTENT, &stmt, nullptr);
    if (rc != SQLITE_OK) {
      Fail(rc);
      stmt = nullptr;
    }
  }
  return Query(this, stmt);
}

bool Volume::Exec(Sql which) { return Prepare(which).Run(); }

void Volume::RollBack(bool to_savepoint) {
  if (sqlite3_get_autocommit(db_)) return;  // SQLite already rolled it back
  // Keep the failure that caused the roll-back, not the roll-back's own.
  auto run = [this](const char* sql) { sqlite3_exec(db_, sql, nullptr, nullptr, nullptr); };
  if (to_savepoint) {
    run("ROLLBACK TO write_call");
    run("RELEASE write_call");
  } else {
    run("ROLLBACK");
  }
}

bool Volume::BeginBatch() {
  if (damaged_) return RefuseDamaged();
  if (read_only_cause_) return RefuseReadOnly();
  if (batch_depth_ == 0 && !Exec(Sql::kBegin)) return false;
  ++batch_depth_;
  return true;
}

bool Volume::EndBatch() {
  if (batch_depth_ == 0) {
    SetFailure(ERROR_INVALID_PARAMETER, "No write batch is open on the volume.");
    return false;
  }
  if (--batch_depth_ > 0) return true;
  if (Exec(Sql::kCommit)) return true;
  RollBack(false);
  return false;
}

bool Volume::AllocateOid(CEOID* out) {
  std::int64_t next = 0;
  {
    Query get = Prepare(Sql::kGetNextOid);
    if (!get.Step()) return get.failed() || Fail(SQLITE_CORRUPT);
    next = get.Int(0);
  }
  if (next < 1 || next > kLastOid) {
    SetFailure(ERROR_DATABASE_FULL, "The database volume " + file_ + " has no object identifiers left.");
    return false;
  }
  if (!Prepare(Sql::kSetNextOid).Bind(1, next + 1).Run()) return false;
  *out = static_cast<CEOID>(next);
  return true;
}

bool Volume::Journal(CEOID db, CEOID oid, CEOID parent, UINT kind) {
  if (!Prepare(Sql::kJournalAdd).Bind(1, db).Bind(2, oid).Bind(3, parent).Bind(4, kind).Run())
    return false;
  std::int64_t seq = sqlite3_last_insert_rowid(db_);
  // The newest entry always stays, so sequence numbers only ever grow.
  if (seq % kJournalPruneEvery == 0 && seq > kJournalKeep)
    return Prepare(Sql::kJournalTrim).Bind(1, seq - kJournalKeep).Run();
  return true;
}

bool Volume::TouchDatabase(CEOID db, std::int64_t record_delta, std::int64_t size_delta) {
  if (!Prepare(Sql::kTouchDb).Bind(1, db).Bind(2, record_delta).Bind(3, size_delta).Bind(4, NowTicks()).Run())
    return false;
  if (sqlite3_changes(db_) == 1) return true;
  SetFailure(ERROR_INVALID_PARAMETER, "The database was deleted.");
  return false;
}

bool Volume::Fail(int sqlite_code) {
  const int primary = sqlite_code & 0xFF;
  const char* detail = db_ ? sqlite3_errmsg(db_) : sqlite3_errstr(sqlite_code);
  if (primary == SQLITE_CORRUPT || primary == SQLITE_NOTADB) {
    damaged_ = true;
    MarkDamaged(file_, detail);
  }
  SetSqliteFailure(sqlite_code, file_, detail);
  return false;
}

}  // namespace velmo::cedb
