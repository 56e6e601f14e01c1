#include "platform/cedb_recover.h"

#include <sqlite3.h>

#include <cstdint>
#include <ctime>
#include <map>
#include <memory>
#include <system_error>
#include <vector>

#include "platform/cedb.h"
#include "platform/cedb_failure.h"
#include "platform/cedb_record.h"
#include "platform/cedb_volume.h"
#include "platform/lasterror.h"
#include "platform/wstr.h"

namespace velmo::cedb {
namespace {

// Without a readable count of identifiers, reading stops after this many
// unreadable identifiers in a row.
constexpr std::int64_t kGiveUpAfter = 1 << 20;

// A database of a device volume whose row was lost: named after the identifiers
// a fresh device gives them.
constexpr const wchar_t* kDeviceDatabases[] = {kTasksDatabaseName, kContactsDatabaseName,
                                               kAppointmentsDatabaseName};

struct CloseDb {
  void operator()(sqlite3* db) const { sqlite3_close(db); }
};
struct Finalize {
  void operator()(sqlite3_stmt* s) const { sqlite3_finalize(s); }
};
using Db = std::unique_ptr<sqlite3, CloseDb>;
using Statement = std::unique_ptr<sqlite3_stmt, Finalize>;

Statement Prepare(sqlite3* db, const char* sql) {
  sqlite3_stmt* s = nullptr;
  sqlite3_prepare_v2(db, sql, -1, &s, nullptr);
  return Statement(s);
}

struct DatabaseRow {
  std::int64_t oid;
  std::string name;
  std::int64_t type, flags;
  std::string sort;
  std::int64_t records;
};

struct RecordRow {
  std::int64_t oid, db;
  std::string props;
};

// What the damaged file still tells.
struct Salvage {
  std::vector<DatabaseRow> databases;
  bool counts_known = false;
  std::int64_t next_oid = 0;  // 0 when unreadable
  std::vector<RecordRow> records;
};

std::string Column(sqlite3_stmt* s, int column) {
  const auto* bytes = static_cast<const char*>(sqlite3_column_blob(s, column));
  return bytes ? std::string(bytes, static_cast<size_t>(sqlite3_column_bytes(s, column))) : std::string();
}

void ReadDatabases(sqlite3* src, Salvage* out) {
  Statement s = Prepare(src, "SELECT oid, name, type, flags, sort, records FROM databases ORDER BY oid");
  int rc = s ? SQLITE_OK : SQLITE_CORRUPT;
  while (s && (rc = sqlite3_step(s.get())) == SQLITE_ROW)
    out->databases.push_back({sqlite3_column_int64(s.get(), 0), Column(s.get(), 1),
                              sqlite3_column_int64(s.get(), 2), sqlite3_column_int64(s.get(), 3),
                              Column(s.get(), 4), sqlite3_column_int64(s.get(), 5)});
  out->counts_known = rc == SQLITE_DONE;
}

void ReadNextOid(sqlite3* src, Salvage* out) {
  Statement s = Prepare(src, "SELECT value FROM volume WHERE key='next_oid'");
  if (s && sqlite3_step(s.get()) == SQLITE_ROW) out->next_oid = sqlite3_column_int64(s.get(), 0);
}

// Reads the records in identifier order. Where damage stops the reading, it
// starts again one identifier further on, so every record outside the damaged
// pages is reached.
void ReadRecords(sqlite3* src, Salvage* out) {
  Statement s = Prepare(src, "SELECT oid, db, props FROM records WHERE oid>=?1 ORDER BY oid");
  if (!s) return;
  std::int64_t from = 1, unreadable = 0;
  for (;;) {
    sqlite3_reset(s.get());
    sqlite3_bind_int64(s.get(), 1, from);
    bool any = false;
    int rc;
    while ((rc = sqlite3_step(s.get())) == SQLITE_ROW) {
      const std::int64_t oid = sqlite3_column_int64(s.get(), 0);
      out->records.push_back({oid, sqlite3_column_int64(s.get(), 1), Column(s.get(), 2)});
      from = oid + 1;
      any = true;
      unreadable = 0;
    }
    if (rc == SQLITE_DONE) return;
    if (any) continue;  // read again from just after the last record read
    ++from;
    const bool past_end = out->next_oid > 0 ? from >= out->next_oid : ++unreadable > kGiveUpAfter;
    if (past_end) return;
  }
}

// A record whose stored bytes cannot be split into properties is as lost as one
// that could not be read.
bool StoredBytesAreWhole(const RecordRow& record) {
  std::vector<StoredProp> props;
  return ParseRecord(reinterpret_cast<const BYTE*>(record.props.data()), record.props.size(), &props);
}

bool WriteSalvage(Volume* volume, const Salvage& salvage, std::size_t* saved) {
  return volume->Write([&] {
    std::map<std::int64_t, std::pair<std::int64_t, std::int64_t>> written;  // db -> count, size
    std::int64_t highest = 0;
    for (const DatabaseRow& db : salvage.databases) {
      if (!volume->Prepare(Sql::kInsertDb).Bind(1, db.oid).Bind(2, db.name).Bind(3, db.type)
               .Bind(4, db.flags).BindBlob(5, db.sort.data(), db.sort.size()).Bind(6, NowTicks()).Run())
        return false;
      written[db.oid];
      highest = std::max(highest, db.oid);
    }
    size_t lost_names = 0;
    for (const RecordRow& record : salvage.records) {
      if (!StoredBytesAreWhole(record)) continue;
      if (!written.count(record.db)) {
        // The database's own row was lost: a device database by its usual place,
        // else a name that says where it came from.
        const std::string name = record.db >= 1 && record.db <= 3
                                     ? velmo::ToUtf8(kDeviceDatabases[record.db - 1])
                                     : "Recovered " + std::to_string(++lost_names);
        if (!volume->Prepare(Sql::kInsertDb).Bind(1, record.db).Bind(2, name).Bind(3, 0).Bind(4, 0)
                 .BindBlob(5, "", 0).Bind(6, NowTicks()).Run())
          return false;
        written[record.db];
        highest = std::max(highest, record.db);
      }
      if (!volume->Prepare(Sql::kInsertRecord).Bind(1, record.oid).Bind(2, record.db)
               .BindBlob(3, record.props.data(), record.props.size()).Run())
        return false;
      auto& [count, size] = written[record.db];
      ++count;
      size += static_cast<std::int64_t>(record.props.size());
      highest = std::max(highest, record.oid);
      ++*saved;
    }
    for (const auto& [db, totals] : written)
      if (!volume->TouchDatabase(static_cast<CEOID>(db), totals.first, totals.second)) return false;
    // Identifiers are never used twice, the lost ones included.
    const std::int64_t next = std::max(salvage.next_oid, highest + 1);
    return volume->Prepare(Sql::kSetNextOid).Bind(1, next).Run();
  });
}

std::string Stamp() {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  char text[32];
  std::strftime(text, sizeof text, "%Y%m%d-%H%M%S", &local);
  return text;
}

void RemoveWithLog(const std::filesystem::path& file) {
  std::error_code ec;
  for (const char* suffix : {"", "-wal", "-shm"}) std::filesystem::remove(file.string() + suffix, ec);
}

}  // namespace

std::string VolumeIdentitySql() { return "SELECT value=1 FROM volume WHERE key='format'"; }

bool RecoverVolume(const std::filesystem::path& file, Recovery* out) {
  const std::string name = file.string();
  Salvage salvage;
  {
    sqlite3* raw = nullptr;
    const int rc = sqlite3_open_v2(name.c_str(), &raw, SQLITE_OPEN_READONLY, nullptr);
    Db src(raw);
    if (rc != SQLITE_OK) {
      SetSqliteFailure(rc, name, raw ? sqlite3_errmsg(raw) : sqlite3_errstr(rc));
      return false;
    }
    sqlite3_busy_timeout(raw, BusyTimeoutMs());
    ReadNextOid(raw, &salvage);
    ReadDatabases(raw, &salvage);
    ReadRecords(raw, &salvage);
  }

  const std::filesystem::path fresh = name + ".recovering";
  RemoveWithLog(fresh);
  std::size_t saved = 0;
  {
    std::unique_ptr<Volume> volume = Volume::Open(fresh, CREATE_NEW);
    if (!volume || !WriteSalvage(volume.get(), salvage, &saved)) {
      const std::string failure = LastFailure();
      RemoveWithLog(fresh);
      SetFailure(GetLastError(), failure);
      return false;
    }
  }  // closing the only connection moves its log into the file

  const std::filesystem::path kept = name + ".damaged-" + Stamp();
  std::error_code ec;
  std::filesystem::rename(file, kept, ec);
  if (ec) {
    SetFailure(ERROR_ACCESS_DENIED, "The damaged volume " + name + " cannot be put aside (" + ec.message() +
                                        "); it was left where it is.");
    RemoveWithLog(fresh);
    return false;
  }
  // The damaged file's log goes with it when it holds anything.
  std::error_code log_ec;
  if (std::filesystem::file_size(name + "-wal", log_ec) > 0 && !log_ec)
    std::filesystem::rename(name + "-wal", kept.string() + "-wal", log_ec);
  std::filesystem::remove(name + "-wal", log_ec);
  std::filesystem::remove(name + "-shm", log_ec);
  std::filesystem::rename(fresh, file, ec);
  if (ec) {
    SetFailure(ERROR_ACCESS_DENIED, "The new volume " + fresh.string() + " cannot take the place of " + name +
                                        " (" + ec.message() + ").");
    return false;
  }

  std::int64_t expected = 0;
  for (const DatabaseRow& db : salvage.databases) expected += db.records;
  out->saved = saved;
  out->lost = salvage.counts_known
                  ? std::optional<std::size_t>(static_cast<std::size_t>(
                        std::max<std::int64_t>(0, expected - static_cast<std::int64_t>(saved))))
                  : std::nullopt;
  out->kept_as = kept;
  return true;
}

}  // namespace velmo::cedb
