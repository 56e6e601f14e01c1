// The registry calls over the registry file (platform/registry_file.h).
#include "platform/registry.h"

#include <cstring>
#include <cwchar>

#include "platform/registry_file.h"
#include "platform/registry_values.h"
#include "platform/wstr.h"

struct RegistryKey {
  std::int64_t id;
};

namespace velmo::registry {
namespace {

constexpr std::int64_t kNoKey = -1;

std::int64_t RootId(HKEY key) {
  if (key == HKEY_CURRENT_USER) return kCurrentUserId;
  if (key == HKEY_LOCAL_MACHINE) return kLocalMachineId;
  return key ? key->id : kNoKey;
}

std::string NameOf(LPCWSTR name) { return name ? ToUtf8(name) : std::string(); }

bool KeyExists(sqlite3* db, std::int64_t id) {
  Statement s(db, "SELECT 1 FROM keys WHERE id = ?");
  return s.Bind(1, id).Step() == SQLITE_ROW;
}

// Walks sub_key down from parent (see WalkKeys).
LONG Walk(sqlite3* db, std::int64_t parent, LPCWSTR sub_key, bool create, std::int64_t* id,
          bool* created) {
  return WalkKeys(db, parent, SplitKeyPath(sub_key ? sub_key : L""), create, id, created);
}

// Common opening of a call: the connection and the key's identifier.
struct Call {
  sqlite3* db = nullptr;
  std::int64_t id = kNoKey;
  LONG error = ERROR_SUCCESS;

  explicit Call(HKEY key) {
    id = RootId(key);
    if (id == kNoKey) {
      error = ERROR_INVALID_HANDLE;
      return;
    }
    db = Connection(&error);
  }
  bool ok() const { return error == ERROR_SUCCESS; }
};

// Copies bytes to the caller's buffer with the platform's size protocol.
LONG CopyOut(const std::vector<BYTE>& bytes, LPBYTE data, LPDWORD data_size) {
  const DWORD needed = static_cast<DWORD>(bytes.size());
  if (!data_size) return data ? ERROR_INVALID_PARAMETER : ERROR_SUCCESS;
  if (data && *data_size < needed) {
    *data_size = needed;
    return ERROR_MORE_DATA;
  }
  if (data && needed) std::memcpy(data, bytes.data(), needed);
  *data_size = needed;
  return ERROR_SUCCESS;
}

// Copies a name (characters) with the enumeration protocol.
LONG CopyName(const std::string& utf8, LPWSTR name, LPDWORD name_size) {
  if (!name || !name_size) return ERROR_INVALID_PARAMETER;
  const std::wstring wide = FromUtf8(utf8);
  if (*name_size < wide.size() + 1) {
    *name_size = static_cast<DWORD>(wide.size() + 1);
    return ERROR_MORE_DATA;
  }
  std::wmemcpy(name, wide.c_str(), wide.size() + 1);
  *name_size = static_cast<DWORD>(wide.size());
  return ERROR_SUCCESS;
}

}  // namespace
}  // namespace velmo::registry

using namespace velmo::registry;

LONG RegCreateKeyExW(HKEY key, LPCWSTR sub_key, DWORD, LPWSTR, DWORD, REGSAM,
                     LPSECURITY_ATTRIBUTES, PHKEY result, LPDWORD disposition) {
  if (!result) return ERROR_INVALID_PARAMETER;
  *result = nullptr;
  Call call(key);
  if (!call.ok()) return call.error;
  std::int64_t id = kNoKey;
  bool created = false;
  const LONG error = InTransaction(call.db, [&]() -> LONG {
    if (!KeyExists(call.db, call.id)) return ERROR_KEY_DELETED;
    return Walk(call.db, call.id, sub_key, true, &id, &created);
  });
  if (error != ERROR_SUCCESS) return error;
  *result = new RegistryKey{id};
  if (disposition) *disposition = created ? REG_CREATED_NEW_KEY : REG_OPENED_EXISTING_KEY;
  return ERROR_SUCCESS;
}

LONG RegOpenKeyExW(HKEY key, LPCWSTR sub_key, DWORD, REGSAM, PHKEY result) {
  if (!result) return ERROR_INVALID_PARAMETER;
  *result = nullptr;
  Call call(key);
  if (!call.ok()) return call.error;
  if (!KeyExists(call.db, call.id)) return ERROR_KEY_DELETED;
  std::int64_t id = kNoKey;
  bool created = false;
  const LONG error = Walk(call.db, call.id, sub_key, false, &id, &created);
  if (error != ERROR_SUCCESS) return error;
  *result = new RegistryKey{id};
  return ERROR_SUCCESS;
}

LONG RegQueryValueExW(HKEY key, LPCWSTR value_name, LPDWORD, LPDWORD type, LPBYTE data,
                      LPDWORD data_size) {
  if (data && !data_size) return ERROR_INVALID_PARAMETER;
  Call call(key);
  if (!call.ok()) return call.error;
  Statement s(call.db, "SELECT type, data FROM reg_values WHERE key = ? AND name = ?");
  const int rc = s.Bind(1, call.id).Bind(2, NameOf(value_name)).Step();
  if (rc == SQLITE_DONE)
    return KeyExists(call.db, call.id) ? ERROR_FILE_NOT_FOUND : ERROR_KEY_DELETED;
  if (rc != SQLITE_ROW) return MapSqliteError(call.db, rc);
  const DWORD stored_type = static_cast<DWORD>(s.Int(0));
  if (type) *type = stored_type;
  return CopyOut(StoredToCaller(stored_type, s.Blob(1)), data, data_size);
}

LONG RegSetValueExW(HKEY key, LPCWSTR value_name, DWORD, DWORD type, const BYTE* data,
                    DWORD data_size) {
  if (!data && data_size) return ERROR_INVALID_PARAMETER;
  std::vector<BYTE> stored;
  if (!CallerToStored(type, data, data_size, &stored)) return ERROR_INVALID_PARAMETER;
  Call call(key);
  if (!call.ok()) return call.error;
  return InTransaction(call.db, [&]() -> LONG {
    if (!KeyExists(call.db, call.id)) return ERROR_KEY_DELETED;
    return WriteValue(call.db, call.id, NameOf(value_name), type, stored);
  });
}

LONG RegDeleteKeyW(HKEY key, LPCWSTR sub_key) {
  if (!sub_key || SplitKeyPath(sub_key).empty()) return ERROR_INVALID_PARAMETER;
  Call call(key);
  if (!call.ok()) return call.error;
  return InTransaction(call.db, [&]() -> LONG {
    std::int64_t id = kNoKey;
    bool created = false;
    const LONG error = Walk(call.db, call.id, sub_key, false, &id, &created);
    if (error != ERROR_SUCCESS) return error;
    return DeleteTree(call.db, id);
  });
}

LONG RegDeleteValueW(HKEY key, LPCWSTR value_name) {
  Call call(key);
  if (!call.ok()) return call.error;
  Statement s(call.db, "DELETE FROM reg_values WHERE key = ? AND name = ?");
  const int rc = s.Bind(1, call.id).Bind(2, NameOf(value_name)).Step();
  if (rc != SQLITE_DONE) return MapSqliteError(call.db, rc);
  return sqlite3_changes(call.db) ? ERROR_SUCCESS : ERROR_FILE_NOT_FOUND;
}

LONG RegFlushKey(HKEY key) {
  Call call(key);
  if (!call.ok()) return call.error;
  // A passive checkpoint syncs the log to disk without waiting for readers.
  const int rc = sqlite3_wal_checkpoint_v2(call.db, nullptr, SQLITE_CHECKPOINT_PASSIVE, nullptr,
                                           nullptr);
  return rc == SQLITE_OK || rc == SQLITE_BUSY ? ERROR_SUCCESS : MapSqliteError(call.db, rc);
}

LONG RegCloseKey(HKEY key) {
  if (key == HKEY_CURRENT_USER || key == HKEY_LOCAL_MACHINE) return ERROR_SUCCESS;
  if (!key) return ERROR_INVALID_HANDLE;
  delete key;
  return ERROR_SUCCESS;
}

LONG RegEnumKeyExW(HKEY key, DWORD index, LPWSTR name, LPDWORD name_size, LPDWORD, LPWSTR,
                   LPDWORD, FILETIME* last_write) {
  Call call(key);
  if (!call.ok()) return call.error;
  Statement s(call.db, "SELECT name FROM keys WHERE parent = ? ORDER BY id LIMIT 1 OFFSET ?");
  const int rc = s.Bind(1, call.id).Bind(2, static_cast<std::int64_t>(index)).Step();
  if (rc == SQLITE_DONE) return ERROR_NO_MORE_ITEMS;
  if (rc != SQLITE_ROW) return MapSqliteError(call.db, rc);
  if (last_write) *last_write = FILETIME{0, 0};
  return CopyName(s.Text(0), name, name_size);
}

LONG RegEnumValueW(HKEY key, DWORD index, LPWSTR name, LPDWORD name_size, LPDWORD, LPDWORD type,
                   LPBYTE data, LPDWORD data_size) {
  if (data && !data_size) return ERROR_INVALID_PARAMETER;
  Call call(key);
  if (!call.ok()) return call.error;
  Statement s(call.db,
              "SELECT name, type, data FROM reg_values WHERE key = ? ORDER BY rowid LIMIT 1 "
              "OFFSET ?");
  const int rc = s.Bind(1, call.id).Bind(2, static_cast<std::int64_t>(index)).Step();
  if (rc == SQLITE_DONE) return ERROR_NO_MORE_ITEMS;
  if (rc != SQLITE_ROW) return MapSqliteError(call.db, rc);
  const LONG name_result = CopyName(s.Text(0), name, name_size);
  if (name_result != ERROR_SUCCESS) return name_result;
  const DWORD stored_type = static_cast<DWORD>(s.Int(1));
  if (type) *type = stored_type;
  return CopyOut(StoredToCaller(stored_type, s.Blob(2)), data, data_size);
}
