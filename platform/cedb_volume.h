// One mounted volume: the SQLite connection to its file, the tables, the
// statements the database calls run, and write transactions.
//
// Tables: volume (format version, next object identifier), databases (one row
// each, with its record count, data size and last-modified time kept up to date
// by every write), records (one row per record: its database and the stored
// property bytes of platform/cedb_record.h), changes (the change journal).
#pragma once

#include <sqlite3.h>

#include <array>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

#include "platform/wintypes.h"

namespace velmo::cedb {

// The statements of a volume, prepared once per connection (see kSqlText).
enum class Sql {
  kBegin,
  kCommit,
  kRollback,
  kSavepoint,
  kRelease,
  kGetNextOid,
  kSetNextOid,
  kDbByName,
  kDbById,
  kDbInfo,
  kAllDbs,
  kInsertDb,
  kDeleteDb,
  kDeleteDbRecords,
  kTouchDb,
  kRecordParent,
  kRecordProps,
  kInsertRecord,
  kUpdateRecord,
  kDeleteRecord,
  kFetchFrom,
  kVisitFrom,
  kNthFrom,
  kNthBefore,
  kCountBefore,
  kJournalAdd,
  kJournalTrim,
  kJournalSince,
  kJournalBounds,
  kDataVersion,
  kCount
};

class Volume;

// A prepared statement in use: reset when it goes out of scope, so that no read
// transaction outlives the call.
class Query {
 public:
  Query(Volume* volume, sqlite3_stmt* stmt) : volume_(volume), stmt_(stmt) {}
  ~Query();
  Query(const Query&) = delete;
  Query& operator=(const Query&) = delete;

  bool ok() const { return stmt_ != nullptr; }
  Query& Bind(int index, std::int64_t value);
  Query& Bind(int index, std::string_view text);
  Query& BindBlob(int index, const void* data, size_t size);

  // True on a row. False at the end, or on an error (then failed() and the
  // failure is set, naming the file).
  bool Step();
  // Steps to the end; false on an error.
  bool Run();
  bool failed() const { return failed_; }

  std::int64_t Int(int column) const { return sqlite3_column_int64(stmt_, column); }
  const BYTE* Blob(int column) const;
  size_t Bytes(int column) const { return static_cast<size_t>(sqlite3_column_bytes(stmt_, column)); }
  std::string Text(int column) const;

 private:
  Volume* volume_;
  sqlite3_stmt* stmt_;
  bool failed_ = false;
};

class Volume {
 public:
  // Opens the volume file as disposition (CREATE_NEW, CREATE_ALWAYS, OPEN_EXISTING,
  // OPEN_ALWAYS) asks, making it when allowed. A file that is not a volume is left
  // untouched. Null with the failure set when it cannot be used.
  static std::unique_ptr<Volume> Open(const std::filesystem::path& file, DWORD disposition);
  ~Volume();
  Volume(const Volume&) = delete;
  Volume& operator=(const Volume&) = delete;

  // The statement, ready to bind; !ok() (failure set) when it cannot be prepared.
  Query Prepare(Sql which);

  // Runs body inside one write transaction (inside a batch: a savepoint of the
  // batch's transaction). body returns false, after setting the failure, to roll
  // its changes back. False when the transaction cannot start (locked past the
  // busy timeout) or commit.
  template <typename Body>
  bool Write(Body&& body) {
    if (damaged_) return RefuseDamaged();
    if (read_only_cause_) return RefuseReadOnly();
    bool batched = batch_depth_ > 0;
    if (!Exec(batched ? Sql::kSavepoint : Sql::kBegin)) return false;
    if (!body() || !Exec(batched ? Sql::kRelease : Sql::kCommit)) {
      RollBack(batched);
      return false;
    }
    ++generation_;
    return true;
  }

  // A batch: one transaction for every write until the matching EndBatch.
  // Batches nest; the outermost one commits.
  bool BeginBatch();
  bool EndBatch();

  // A new object identifier, inside a write transaction (ERROR_DATABASE_FULL when
  // the 32-bit range is used up).
  bool AllocateOid(CEOID* out);
  // Adds an entry to the change journal, inside a write transaction.
  bool Journal(CEOID db, CEOID oid, CEOID parent, UINT kind);
  // Applies a write to a database's row: record count and size deltas, and a new
  // last-modified time later than the previous one. Inside a write transaction.
  bool TouchDatabase(CEOID db, std::int64_t record_delta, std::int64_t size_delta);

  // Deletes every database with its records (identifiers stay used).
  bool RemoveAllDatabases();

  // Sets the failure for an SQLite result met on this file; returns false. Damage
  // met by any call marks the file damaged for the rest of the process.
  bool Fail(int sqlite_code);
  // True once damage was met in the file: every write is refused from then on.
  bool damaged() const { return damaged_; }

  const std::string& file() const { return file_; }
  // Commits made through this connection (other processes' show in data_version).
  std::uint64_t generation() const { return generation_; }

 private:
  explicit Volume(std::string file) : file_(std::move(file)) {}
  bool Connect(bool may_create);
  bool CheckOrInitialize();
  bool CheckPages();
  bool ConnectToRead();
  bool RefuseDamaged();
  bool RefuseReadOnly();
  bool Exec(Sql which);
  void RollBack(bool to_savepoint);

  std::string file_;
  sqlite3* db_ = nullptr;
  std::array<sqlite3_stmt*, static_cast<size_t>(Sql::kCount)> statements_{};
  std::uint64_t generation_ = 0;
  int batch_depth_ = 0;
  bool damaged_ = false;
  int read_only_cause_ = 0;  // SQLITE_FULL or SQLITE_READONLY: opened to be read only
};

// Current time as FILETIME ticks (UTC).
std::int64_t NowTicks();

// Busy timeout for connections opened afterwards.
int BusyTimeoutMs();

}  // namespace velmo::cedb
