// The registry: keys under HKEY_CURRENT_USER and HKEY_LOCAL_MACHINE holding typed
// values, with the platform's calls and error codes. Everything lives in one SQLite
// file of the device root (<root>/registry.db), shared safely by several processes.
//
// Values are kept byte-exact with their types. String types (REG_SZ,
// REG_EXPAND_SZ, REG_MULTI_SZ) are passed in and out as the program's wide
// characters and kept as UTF-16LE, as the platform keeps them: the caller's byte
// count decides how many characters are stored (a terminator only when counted).
#pragma once

#include <string>
#include <vector>

#include "platform/wintypes.h"

struct RegistryKey;  // opaque: an open key
using HKEY = RegistryKey*;
using PHKEY = HKEY*;
using REGSAM = DWORD;
using LPDWORD = DWORD*;
using LPBYTE = BYTE*;
using LPSECURITY_ATTRIBUTES = void*;

// The predefined roots; never closed.
inline HKEY const HKEY_CURRENT_USER =
    reinterpret_cast<HKEY>(static_cast<std::uintptr_t>(0x80000001u));
inline HKEY const HKEY_LOCAL_MACHINE =
    reinterpret_cast<HKEY>(static_cast<std::uintptr_t>(0x80000002u));

// Value types.
constexpr DWORD REG_NONE = 0;
constexpr DWORD REG_SZ = 1;
constexpr DWORD REG_EXPAND_SZ = 2;
constexpr DWORD REG_BINARY = 3;
constexpr DWORD REG_DWORD = 4;
constexpr DWORD REG_MULTI_SZ = 7;

// Dispositions of RegCreateKeyExW.
constexpr DWORD REG_CREATED_NEW_KEY = 1;
constexpr DWORD REG_OPENED_EXISTING_KEY = 2;

constexpr DWORD REG_OPTION_NON_VOLATILE = 0;
constexpr REGSAM KEY_QUERY_VALUE = 0x0001;
constexpr REGSAM KEY_SET_VALUE = 0x0002;
constexpr REGSAM KEY_READ = 0x20019;
constexpr REGSAM KEY_WRITE = 0x20006;
constexpr REGSAM KEY_ALL_ACCESS = 0xF003F;

// Registry-specific results (the others are the common ERROR_ codes).
constexpr DWORD ERROR_KEY_DELETED = 1018;
constexpr DWORD ERROR_BADDB = 1009;

// Each returns ERROR_SUCCESS or an error code; none sets the last error.
// Failures to reach the registry file (root not writable: ERROR_ACCESS_DENIED;
// not a registry file: ERROR_BADDB; held by another process past the busy
// timeout: ERROR_LOCK_VIOLATION) leave the file untouched, and
// velmo::registry::LastFailure() describes them, naming the file.

// Opens sub_key, creating it and any missing parent. disposition (optional)
// receives REG_CREATED_NEW_KEY or REG_OPENED_EXISTING_KEY.
LONG RegCreateKeyExW(HKEY key, LPCWSTR sub_key, DWORD reserved, LPWSTR class_name,
                     DWORD options, REGSAM sam, LPSECURITY_ATTRIBUTES security, PHKEY result,
                     LPDWORD disposition);
// ERROR_FILE_NOT_FOUND when sub_key does not exist. An empty or null sub_key opens
// the key itself again.
LONG RegOpenKeyExW(HKEY key, LPCWSTR sub_key, DWORD options, REGSAM sam, PHKEY result);
// type and data are optional. With data null, *data_size receives the size needed.
// With a buffer too small, ERROR_MORE_DATA and *data_size = the size needed.
// A missing value: ERROR_FILE_NOT_FOUND. A null or empty name is the default value.
LONG RegQueryValueExW(HKEY key, LPCWSTR value_name, LPDWORD reserved, LPDWORD type,
                      LPBYTE data, LPDWORD data_size);
LONG RegSetValueExW(HKEY key, LPCWSTR value_name, DWORD reserved, DWORD type,
                    const BYTE* data, DWORD data_size);
// Deletes the sub-key sub_key with its values and sub-keys. Only keys: a value of
// that name is not touched (ERROR_FILE_NOT_FOUND when no such key).
LONG RegDeleteKeyW(HKEY key, LPCWSTR sub_key);
// Deletes one value; ERROR_FILE_NOT_FOUND when absent.
LONG RegDeleteValueW(HKEY key, LPCWSTR value_name);
// Makes every change written so far durable on disk.
LONG RegFlushKey(HKEY key);
LONG RegCloseKey(HKEY key);

// Enumeration in creation order. name_size is in characters, in and out (without
// the terminator on output); ERROR_NO_MORE_ITEMS past the last.
LONG RegEnumKeyExW(HKEY key, DWORD index, LPWSTR name, LPDWORD name_size, LPDWORD reserved,
                   LPWSTR class_name, LPDWORD class_size, FILETIME* last_write);
LONG RegEnumValueW(HKEY key, DWORD index, LPWSTR name, LPDWORD name_size, LPDWORD reserved,
                   LPDWORD type, LPBYTE data, LPDWORD data_size);

namespace velmo::registry {

// The registry file of the current device root.
std::string FilePath();

// One row, true when the open file is a registry file (for velmo check).
std::string IdentitySql();

// A sentence describing the last failure to reach the registry file in this
// thread, naming the file; empty after a success.
std::string LastFailure();

// Values as stored, for export and import: string types as UTF-16LE bytes.
struct RawValue {
  std::wstring name;
  DWORD type = REG_NONE;
  std::vector<BYTE> bytes;
};
struct RawKey {
  std::wstring path;  // full path from the root name: HKEY_CURRENT_USER\Software\...
  std::vector<RawValue> values;
};

// The key at path (root name first) and all its sub-keys, parents before
// children, values in creation order. ERROR_FILE_NOT_FOUND when the key is absent,
// ERROR_INVALID_PARAMETER for an unknown root name.
LONG ExportTree(const std::wstring& path, std::vector<RawKey>* out);

// Creates the keys and sets their values in one transaction: all or nothing.
LONG ImportKeys(const std::vector<RawKey>& keys);

// Many reads as one: while it lives, the registry's queries share one read
// transaction instead of taking and dropping the file's locks for each value.
// No registry write may happen while it lives (a write would be refused).
class ScopedReadBatch {
 public:
  ScopedReadBatch();
  ~ScopedReadBatch();
  ScopedReadBatch(const ScopedReadBatch&) = delete;
  ScopedReadBatch& operator=(const ScopedReadBatch&) = delete;

 private:
  bool open_ = false;
};

}  // namespace velmo::registry
