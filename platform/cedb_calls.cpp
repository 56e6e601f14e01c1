// The volume and database calls: mount, create, delete, open, close, information.
#include <cstring>

#include "platform/cedb.h"
#include "platform/cedb_failure.h"
#include "platform/cedb_objects.h"
#include "platform/wstr.h"

using namespace velmo::cedb;

namespace {

// The sort orders of CEDBASEINFO in the form CEDBASEINFOEX keeps them.
void SortSpecsFromInfo(const CEDBASEINFO& info, CEDBASEINFOEX* ex) {
  for (int i = 0; i < ex->wNumSortOrder; ++i) {
    SORTORDERSPECEX& spec = ex->rgSortSpecs[i];
    spec = SORTORDERSPECEX{SORTORDERSPECEX_VERSION, 1, 0, 0, {}, {}};
    spec.rgPropID[0] = info.rgSortSpecs[i].propid;
    spec.rgdwFlags[0] = info.rgSortSpecs[i].dwFlags;
  }
}

CEOID CreateDatabase(PCEGUID guid, const CEDBASEINFOEX& info) {
  auto lock = LockDatabases();
  auto volume = FindVolume(guid);
  if (!volume) return 0;
  size_t length = wcsnlen(info.szDbaseName, CEDB_MAXDBASENAMELEN);
  WORD sorts = (info.dwFlags & CEDB_VALIDSORTSPEC) ? info.wNumSortOrder : 0;
  if (!(info.dwFlags & CEDB_VALIDNAME) || length == 0 || length == CEDB_MAXDBASENAMELEN ||
      sorts > CEDB_MAXSORTORDER) {
    SetFailure(ERROR_INVALID_PARAMETER, "A database needs a name of 1 to 31 characters.");
    return 0;
  }
  std::string name = velmo::ToUtf8(std::wstring_view(info.szDbaseName, length));
  DWORD type = (info.dwFlags & CEDB_VALIDTYPE) ? info.dwDbaseType : 0;
  // The database's own flags sit above the "valid field" bits.
  DWORD flags = (info.dwFlags & CEDB_VALIDDBFLAGS) ? (info.dwFlags & 0xFFFF0000u) : 0;
  CEOID oid = 0;
  bool written = volume->Write([&] {
    {
      Query existing = volume->Prepare(Sql::kDbByName);
      if (existing.Bind(1, name).Step()) {
        SetFailure(ERROR_DUP_NAME, "A database named \"" + name + "\" already exists.");
        return false;
      }
      if (!existing.ok() || existing.failed()) return false;
    }
    return volume->AllocateOid(&oid) &&
           volume->Prepare(Sql::kInsertDb)
               .Bind(1, oid).Bind(2, name).Bind(3, type).Bind(4, flags)
               .BindBlob(5, info.rgSortSpecs, sorts * sizeof(SORTORDERSPECEX))
               .Bind(6, NowTicks())
               .Run() &&
           volume->Journal(oid, oid, 0, DB_CEOID_CREATED);
  });
  return written ? oid : 0;
}

bool FindDatabase(Volume* volume, PCEOID oid, LPCWSTR name) {
  Query query = volume->Prepare(name ? Sql::kDbByName : Sql::kDbById);
  if (name)
    query.Bind(1, velmo::ToUtf8(name));
  else
    query.Bind(1, *oid);
  if (query.Step()) {
    *oid = static_cast<CEOID>(query.Int(0));
    return true;
  }
  if (!query.ok() || query.failed()) return false;
  SetFailure(ERROR_FILE_NOT_FOUND, name ? "There is no database named \"" + velmo::ToUtf8(name) + "\"."
                                        : "There is no database of that identifier.");
  return false;
}

// Where the handle starts reading the change journal: everything up to now is old.
bool StartJournal(Volume* volume, DbHandle* handle) {
  {
    Query bounds = volume->Prepare(Sql::kJournalBounds);
    if (!bounds.Step()) return false;
    handle->journal_seq = bounds.Int(1);
  }
  Query version = volume->Prepare(Sql::kDataVersion);
  if (!version.Step()) return false;
  handle->data_version = version.Int(0);
  handle->generation = volume->generation();
  return true;
}

bool FillDatabaseInfo(Volume* volume, CEOID oid, bool* found, CEDBASEINFOEX* out) {
  Query query = volume->Prepare(Sql::kDbInfo);
  *found = query.Bind(1, oid).Step();
  if (!*found) return query.ok() && !query.failed();
  std::memset(out, 0, sizeof *out);
  out->wVersion = CEDBASEINFOEX_VERSION;
  out->dwFlags = static_cast<DWORD>(query.Int(2)) | CEDB_VALIDDBFLAGS | CEDB_VALIDNAME | CEDB_VALIDTYPE |
                 CEDB_VALIDSORTSPEC | CEDB_VALIDMODTIME;
  std::wstring name = velmo::FromUtf8(query.Text(0));
  name.resize(std::min<size_t>(name.size(), CEDB_MAXDBASENAMELEN - 1));
  std::wmemcpy(out->szDbaseName, name.c_str(), name.size() + 1);
  out->dwDbaseType = static_cast<DWORD>(query.Int(1));
  size_t sort_bytes = std::min(query.Bytes(3), sizeof out->rgSortSpecs);
  if (sort_bytes) std::memcpy(out->rgSortSpecs, query.Blob(3), sort_bytes);
  out->wNumSortOrder = static_cast<WORD>(sort_bytes / sizeof(SORTORDERSPECEX));
  out->dwNumRecords = static_cast<DWORD>(query.Int(4));
  out->dwSize = static_cast<DWORD>(query.Int(5));
  auto ticks = static_cast<std::uint64_t>(query.Int(6));
  out->ftLastModified = FILETIME{static_cast<DWORD>(ticks), static_cast<DWORD>(ticks >> 32)};
  return true;
}

}  // namespace

BOOL CeMountDBVol(PCEGUID guid, LPCWSTR path, DWORD flags) {
  if (!guid) {
    SetFailure(ERROR_INVALID_PARAMETER, "No volume identifier to fill in.");
    return FALSE;
  }
  CREATE_INVALIDGUID(guid);
  if (!path || !*path) {
    SetFailure(ERROR_INVALID_PARAMETER, "No volume path.");
    return FALSE;
  }
  auto lock = LockDatabases();
  return MountVolume(path, flags, guid) ? TRUE : FALSE;
}

BOOL CeUnmountDBVol(PCEGUID guid) {
  auto lock = LockDatabases();
  return UnmountVolume(guid) ? TRUE : FALSE;
}

CEOID CeCreateDatabaseEx(PCEGUID guid, CEDBASEINFO* info) {
  if (!info) {
    SetFailure(ERROR_INVALID_PARAMETER, "No database information.");
    return 0;
  }
  CEDBASEINFOEX ex{};
  ex.wVersion = CEDBASEINFOEX_VERSION;
  ex.dwFlags = info->dwFlags;
  std::wmemcpy(ex.szDbaseName, info->szDbaseName, CEDB_MAXDBASENAMELEN);
  ex.dwDbaseType = info->dwDbaseType;
  ex.wNumSortOrder = std::min<WORD>(info->wNumSortOrder, CEDB_MAXSORTORDER + 1);
  if (ex.wNumSortOrder <= CEDB_MAXSORTORDER) SortSpecsFromInfo(*info, &ex);
  return CreateDatabase(guid, ex);
}

CEOID CeCreateDatabaseEx2(PCEGUID guid, CEDBASEINFOEX* info) {
  if (!info) {
    SetFailure(ERROR_INVALID_PARAMETER, "No database information.");
    return 0;
  }
  return CreateDatabase(guid, *info);
}

BOOL CeDeleteDatabaseEx(PCEGUID guid, CEOID oid) {
  auto lock = LockDatabases();
  auto volume = FindVolume(guid);
  if (!volume) return FALSE;
  bool deleted = volume->Write([&] {
    CEOID found = oid;
    return FindDatabase(volume.get(), &found, nullptr) &&
           volume->Prepare(Sql::kDeleteDbRecords).Bind(1, oid).Run() &&
           volume->Prepare(Sql::kDeleteDb).Bind(1, oid).Run() &&
           volume->Journal(oid, oid, 0, DB_CEOID_DATABASE_DELETED);
  });
  return deleted ? TRUE : FALSE;
}

HANDLE CeOpenDatabaseEx(PCEGUID guid, PCEOID oid, LPCWSTR name, CEPROPID sort, DWORD flags,
                        CENOTIFYREQUEST* request) {
  auto lock = LockDatabases();
  auto volume = FindVolume(guid);
  if (!volume) return INVALID_HANDLE_VALUE;
  if (!oid || sort != 0 || (request && request->dwSize < sizeof(CENOTIFYREQUEST))) {
    SetFailure(ERROR_INVALID_PARAMETER,
               sort ? "Databases are read in creation order only: no sort property."
                    : "Bad arguments to open a database.");
    return INVALID_HANDLE_VALUE;
  }
  auto handle = std::make_unique<DbHandle>();
  if (!FindDatabase(volume.get(), oid, name) || !StartJournal(volume.get(), handle.get()))
    return INVALID_HANDLE_VALUE;
  handle->volume = volume;
  handle->guid = *guid;
  handle->db = *oid;
  handle->flags = flags;
  handle->notify = request != nullptr;
  if (request) handle->request = *request;
  return AddHandle(std::move(handle));
}

BOOL CeCloseHandle(HANDLE handle) {
  auto lock = LockDatabases();
  return RemoveHandle(handle) ? TRUE : FALSE;
}

BOOL CeOidGetInfoEx(PCEGUID guid, CEOID oid, CEOIDINFOEX* info) {
  auto lock = LockDatabases();
  auto volume = FindVolume(guid);
  if (!volume) return FALSE;
  if (!info) {
    SetFailure(ERROR_INVALID_PARAMETER, "No information structure to fill in.");
    return FALSE;
  }
  bool found = false;
  if (!FillDatabaseInfo(volume.get(), oid, &found, &info->infDatabase)) return FALSE;
  if (found) {
    info->wVersion = CEOIDINFOEX_VERSION;
    info->wObjType = OBJTYPE_DATABASE;
    return TRUE;
  }
  Query record = volume->Prepare(Sql::kRecordParent);
  if (record.Bind(1, oid).Step()) {
    info->wVersion = CEOIDINFOEX_VERSION;
    info->wObjType = OBJTYPE_RECORD;
    info->infRecord.oidParent = static_cast<CEOID>(record.Int(0));
    return TRUE;
  }
  if (!record.ok() || record.failed()) return FALSE;
  SetFailure(ERROR_INVALID_PARAMETER, "The volume has no object of that identifier.");
  return FALSE;
}

namespace velmo::cedb {

bool BeginWriteBatch(PCEGUID guid) {
  auto lock = LockDatabases();
  auto volume = FindVolume(guid);
  return volume && volume->BeginBatch();
}

bool EndWriteBatch(PCEGUID guid) {
  auto lock = LockDatabases();
  auto volume = FindVolume(guid);
  return volume && volume->EndBatch();
}

}  // namespace velmo::cedb
