// The record calls: seek, read, write, delete.
#include <algorithm>
#include <cinttypes>
#include <cstdio>

#include "platform/cedb.h"
#include "platform/cedb_failure.h"
#include "platform/cedb_in_place.h"
#include "platform/cedb_objects.h"
#include "platform/localmem.h"

using namespace velmo::cedb;

namespace {

std::string RecordName(CEOID oid) {
  char text[40];
  std::snprintf(text, sizeof text, "record 0x%08" PRIX32, oid);
  return text;
}

// The identifier a position query found; found false when it found none.
bool QueryOid(Query& query, bool* found, CEOID* oid) {
  *found = query.Step();
  if (*found) *oid = static_cast<CEOID>(query.Int(0));
  return query.ok() && !query.failed();
}

bool SeekTo(DbHandle* h, DWORD seek_type, DWORD value, bool* found, CEOID* oid) {
  Volume* volume = h->volume.get();
  auto position = static_cast<std::int64_t>(std::min<std::uint64_t>(h->position, INT64_MAX));
  switch (seek_type) {
    case CEDB_SEEK_CEOID:
      *oid = value;
      return h->cursor.FetchOne(volume, h->db, value, found);
    case CEDB_SEEK_BEGINNING: {
      Query query = volume->Prepare(Sql::kNthFrom);
      query.Bind(1, h->db).Bind(2, 0).Bind(3, value);
      return QueryOid(query, found, oid);
    }
    case CEDB_SEEK_END: {
      Query query = volume->Prepare(Sql::kNthBefore);
      query.Bind(1, h->db).Bind(2, INT64_MAX).Bind(3, value);
      return QueryOid(query, found, oid);
    }
    case CEDB_SEEK_CURRENT: {
      auto offset = static_cast<LONG>(value);
      Query query = volume->Prepare(offset >= 0 ? Sql::kNthFrom : Sql::kNthBefore);
      query.Bind(1, h->db).Bind(2, position).Bind(3, offset >= 0 ? offset : -std::int64_t{offset} - 1);
      return QueryOid(query, found, oid);
    }
    default:
      SetFailure(ERROR_INVALID_PARAMETER, "Unknown kind of seek.");
      return false;
  }
}

// Gives the read buffer at least `need` bytes, as the caller's flags allow.
bool ReadBufferFits(DWORD flags, BYTE** buffer, DWORD* buffer_size, size_t need) {
  if (need > UINT32_MAX) {
    SetFailure(ERROR_NOT_ENOUGH_MEMORY, "The record is too large to read.");
    return false;
  }
  if (buffer && *buffer && *buffer_size >= need) return true;
  if (!(flags & CEDB_ALLOWREALLOC) || !buffer) {
    *buffer_size = static_cast<DWORD>(need);
    SetFailure(ERROR_INSUFFICIENT_BUFFER, "The read buffer is too small.");
    return false;
  }
  void* grown = LocalReAlloc(*buffer, need, LMEM_MOVEABLE);
  if (!grown) {
    SetFailure(ERROR_NOT_ENOUGH_MEMORY, "No memory for the read buffer.");
    return false;
  }
  *buffer = static_cast<BYTE*>(grown);
  *buffer_size = static_cast<DWORD>(need);
  return true;
}

// The stored bytes of a record of the handle's database, inside a transaction.
bool ReadStored(DbHandle* h, CEOID oid, std::string* bytes) {
  Query query = h->volume->Prepare(Sql::kRecordProps);
  if (!query.Bind(1, oid).Step()) {
    if (query.ok() && !query.failed())
      SetFailure(ERROR_INVALID_PARAMETER, "The database has no " + RecordName(oid) + ".");
    return false;
  }
  if (static_cast<CEOID>(query.Int(0)) != h->db) {
    SetFailure(ERROR_INVALID_PARAMETER, "The " + RecordName(oid) + " belongs to another database.");
    return false;
  }
  bytes->assign(reinterpret_cast<const char*>(query.Blob(1)), query.Bytes(1));
  return true;
}

// The record at the handle's position, from its cursor; false at the end (no
// more records) or on a failure, last error set.
bool FetchAtPosition(DbHandle* h, CEOID* oid, const BYTE** bytes, size_t* size) {
  bool found = false;
  if (!h->cursor.Fetch(h->volume.get(), h->db, h->position, &found, oid, bytes, size)) return false;
  if (!found) SetFailure(ERROR_NO_MORE_ITEMS, "No more records.");
  return found;
}

}  // namespace

CEOID CeSeekDatabase(HANDLE db, DWORD seek_type, DWORD value, DWORD* index) {
  auto lock = LockDatabases();
  DbHandle* h = FindHandle(db);
  if (!h) return 0;
  h->cursor.Drop();
  bool found = false;
  CEOID oid = 0;
  if (!SeekTo(h, seek_type, value, &found, &oid)) return 0;
  if (!found) {
    if (seek_type == CEDB_SEEK_CEOID)
      SetFailure(ERROR_INVALID_PARAMETER, "The database has no " + RecordName(value) + ".");
    else
      SetFailure(ERROR_NO_MORE_ITEMS, "No record there.");
    return 0;
  }
  if (index) {
    Query count = h->volume->Prepare(Sql::kCountBefore);
    if (!count.Bind(1, h->db).Bind(2, oid).Step()) return 0;
    *index = static_cast<DWORD>(count.Int(0));
  }
  h->position = oid;
  return oid;
}

CEOID CeReadRecordProps(HANDLE db, DWORD flags, WORD* count, CEPROPID* ids, BYTE** buffer,
                        DWORD* buffer_size) {
  auto lock = LockDatabases();
  DbHandle* h = FindHandle(db);
  if (!h) return 0;
  if (!count || !buffer_size) {
    SetFailure(ERROR_INVALID_PARAMETER, "Bad arguments to read a record.");
    return 0;
  }
  CEOID oid = 0;
  const BYTE* bytes = nullptr;
  size_t size = 0;
  if (!FetchAtPosition(h, &oid, &bytes, &size)) return 0;
  bool advance = h->flags & CEDB_AUTOINCREMENT;
  size_t props = 0;
  size_t need = 0;
  if (ids ? !ParseRecord(bytes, size, &h->parsed) : !MeasureRecord(bytes, size, &props, &need)) {
    if (advance) h->position = std::uint64_t{oid} + 1;  // a damaged record is passed over
    SetFailure(ERROR_INVALID_DATA, "The " + RecordName(oid) + " is damaged.");
    return 0;
  }
  if (ids) {
    SelectProps(h->parsed, ids, *count, &h->selected);
    props = h->selected.size();
    need = ReadBufferSize(h->selected);
  }
  if (!ReadBufferFits(flags, buffer, buffer_size, need)) return 0;
  if (ids)
    FillReadBuffer(h->selected, ids, *buffer);
  else
    FillEveryProp(bytes, size, props, *buffer);
  *count = static_cast<WORD>(props);
  if (advance) h->position = std::uint64_t{oid} + 1;
  return oid;
}

CEOID velmo::cedb::ReadRecordInPlace(HANDLE db, StoredRecord* record) {
  auto lock = LockDatabases();
  DbHandle* h = FindHandle(db);
  if (!h) return 0;
  CEOID oid = 0;
  const BYTE* bytes = nullptr;
  size_t size = 0;
  if (!FetchAtPosition(h, &oid, &bytes, &size)) return 0;
  if (h->flags & CEDB_AUTOINCREMENT) h->position = std::uint64_t{oid} + 1;
  *record = StoredRecord(bytes, size);
  return oid;
}

size_t velmo::cedb::VisitRecordsInPlace(HANDLE db, size_t max, RecordVisitor* visitor) {
  auto lock = LockDatabases();
  DbHandle* h = FindHandle(db);
  if (!h) return 0;
  h->cursor.Drop();
  Query query = h->volume->Prepare(Sql::kVisitFrom);
  query.Bind(1, h->db).Bind(2, static_cast<std::int64_t>(std::min<std::uint64_t>(h->position, INT64_MAX)));
  size_t visited = 0;
  CEOID last = 0;
  for (; visited < max && query.Step(); ++visited) {
    last = static_cast<CEOID>(query.Int(0));
    visitor->Visit({last, StoredRecord(query.Blob(1), query.Bytes(1))});
  }
  if (visited > 0 && (h->flags & CEDB_AUTOINCREMENT)) h->position = std::uint64_t{last} + 1;
  if (visited < max && query.ok() && !query.failed()) SetFailure(ERROR_NO_MORE_ITEMS, "No more records.");
  return visited;
}

CEOID CeWriteRecordProps(HANDLE db, CEOID oid, WORD count, CEPROPVAL* values) {
  auto lock = LockDatabases();
  DbHandle* h = FindHandle(db);
  if (!h) return 0;
  if (count && !values) {
    SetFailure(ERROR_INVALID_PARAMETER, "No properties to write.");
    return 0;
  }
  Volume* volume = h->volume.get();
  CEOID written = oid;
  bool ok = volume->Write([&] {
    std::string old_bytes;
    std::vector<StoredProp> old;
    if (oid && !ReadStored(h, oid, &old_bytes)) return false;
    if (!ParseRecord(reinterpret_cast<const BYTE*>(old_bytes.data()), old_bytes.size(), &old)) {
      SetFailure(ERROR_INVALID_DATA, "The " + RecordName(oid) + " is damaged.");
      return false;
    }
    std::string bytes;
    if (!ApplyChanges(old, values, count, &bytes)) {
      SetFailure(ERROR_INVALID_PARAMETER, "A property has a type the database cannot keep.");
      return false;
    }
    bool stored = oid ? volume->Prepare(Sql::kUpdateRecord)
                            .Bind(1, oid).BindBlob(2, bytes.data(), bytes.size()).Run()
                      : volume->AllocateOid(&written) &&
                            volume->Prepare(Sql::kInsertRecord)
                                .Bind(1, written).Bind(2, h->db)
                                .BindBlob(3, bytes.data(), bytes.size()).Run();
    auto size_delta = static_cast<std::int64_t>(bytes.size()) - static_cast<std::int64_t>(old_bytes.size());
    return stored && volume->TouchDatabase(h->db, oid ? 0 : 1, size_delta) &&
           volume->Journal(h->db, written, h->db, oid ? DB_CEOID_CHANGED : DB_CEOID_CREATED);
  });
  return ok ? written : 0;
}

BOOL CeDeleteRecord(HANDLE db, CEOID oid) {
  auto lock = LockDatabases();
  DbHandle* h = FindHandle(db);
  if (!h) return FALSE;
  Volume* volume = h->volume.get();
  bool ok = volume->Write([&] {
    std::string old_bytes;
    return ReadStored(h, oid, &old_bytes) &&
           volume->Prepare(Sql::kDeleteRecord).Bind(1, oid).Run() &&
           volume->TouchDatabase(h->db, -1, -static_cast<std::int64_t>(old_bytes.size())) &&
           volume->Journal(h->db, oid, h->db, DB_CEOID_RECORD_DELETED);
  });
  return ok ? TRUE : FALSE;
}
