#include "platform/poom_session.h"

#include <string>

#include "platform/lasterror.h"
#include "platform/localmem.h"
#include "platform/registry.h"

namespace velmo::poom {
namespace {

// A string value of the registry, or `fallback` when it is absent or empty.
std::wstring RegistryText(HKEY root, const wchar_t* key_path, const wchar_t* name,
                          const wchar_t* fallback) {
  HKEY key = nullptr;
  if (RegOpenKeyExW(root, key_path, 0, KEY_READ, &key) != ERROR_SUCCESS) return fallback;
  wchar_t text[260] = {};
  DWORD size = sizeof(text) - sizeof(wchar_t);
  DWORD type = 0;
  const LONG rc = RegQueryValueExW(key, name, nullptr, &type, reinterpret_cast<BYTE*>(text), &size);
  RegCloseKey(key);
  if (rc != ERROR_SUCCESS || type != REG_SZ || text[0] == L'\0') return fallback;
  return text;
}

}  // namespace

RecordProps::~RecordProps() { LocalFree(buffer_); }

HRESULT Session::Open(std::shared_ptr<Session>* out) {
  std::shared_ptr<Session> s(new Session());
  const std::wstring volume = RegistryText(HKEY_CURRENT_USER, L"Software\\Microsoft\\Windows",
                                           L"DbPath", cedb::kDefaultVolumePath);
  if (!CeMountDBVol(&s->volume_, volume.c_str(), OPEN_ALWAYS)) return FailureFromLastError();
  s->mounted_ = true;
  const std::wstring name = RegistryText(HKEY_LOCAL_MACHINE, L"Explorer\\Database",
                                         L"TasksDatabase", cedb::kTasksDatabaseName);
  s->db_ = CeOpenDatabaseEx(&s->volume_, &s->db_oid_, name.c_str(), 0, 0, nullptr);
  if (s->db_ == INVALID_HANDLE_VALUE && GetLastError() == ERROR_FILE_NOT_FOUND) {
    CEDBASEINFO info{};
    info.dwFlags = CEDB_VALIDNAME;
    name.copy(info.szDbaseName, CEDB_MAXDBASENAMELEN - 1);
    if (CeCreateDatabaseEx(&s->volume_, &info) != 0 || GetLastError() == ERROR_DUP_NAME)
      s->db_ = CeOpenDatabaseEx(&s->volume_, &s->db_oid_, name.c_str(), 0, 0, nullptr);
  }
  if (s->db_ == INVALID_HANDLE_VALUE) return FailureFromLastError();
  *out = std::move(s);
  return S_OK;
}

Session::~Session() {
  if (db_ != INVALID_HANDLE_VALUE) CeCloseHandle(db_);
  if (mounted_) CeUnmountDBVol(&volume_);
}

bool Session::IsTaskRecord(CEOID oid) const {
  CEOIDINFOEX info{};
  info.wVersion = CEOIDINFOEX_VERSION;
  CEGUID volume = volume_;
  return oid != 0 && CeOidGetInfoEx(&volume, oid, &info) && info.wObjType == OBJTYPE_RECORD &&
         info.infRecord.oidParent == db_oid_;
}

HRESULT Session::Read(CEOID oid, RecordProps* out) const {
  if (!IsTaskRecord(oid) || CeSeekDatabase(db_, CEDB_SEEK_CEOID, oid, nullptr) != oid)
    return E_INVALIDARG;
  if (CeReadRecordProps(db_, CEDB_ALLOWREALLOC, &out->count_, nullptr, &out->buffer_,
                        &out->size_) != oid)
    return FailureFromLastError();
  return S_OK;
}

HRESULT Session::Write(CEOID oid, std::vector<CEPROPVAL>& props, CEOID* written) const {
  if (oid != 0 && !IsTaskRecord(oid)) return E_INVALIDARG;
  const CEOID result = CeWriteRecordProps(db_, oid, static_cast<WORD>(props.size()), props.data());
  if (result == 0) return GetLastError() == ERROR_INVALID_PARAMETER ? E_INVALIDARG : FailureFromLastError();
  if (written) *written = result;
  return S_OK;
}

HRESULT Session::Delete(CEOID oid) const {
  if (!IsTaskRecord(oid)) return E_INVALIDARG;
  return CeDeleteRecord(db_, oid) ? S_OK : FailureFromLastError();
}

bool Session::BeginBatch() { return cedb::BeginWriteBatch(&volume_); }
bool Session::EndBatch() { return cedb::EndWriteBatch(&volume_); }

}  // namespace velmo::poom
