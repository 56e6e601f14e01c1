#include "sync/sync_settings.h"

#include <vector>

#include "platform/registry.h"
#include "platform/wstr.h"
#include "settings/settings.h"

namespace velmo::sync {
namespace {

constexpr wchar_t kFolderValue[] = L"SyncFolder";
constexpr wchar_t kCommandValue[] = L"SyncCommand";

std::optional<std::string> ReadString(HKEY key, const wchar_t* name) {
  DWORD type = 0;
  DWORD size = 0;
  if (RegQueryValueExW(key, name, nullptr, &type, nullptr, &size) != ERROR_SUCCESS || type != REG_SZ)
    return std::nullopt;
  std::vector<wchar_t> text(size / sizeof(wchar_t) + 1, L'\0');
  if (RegQueryValueExW(key, name, nullptr, &type, reinterpret_cast<BYTE*>(text.data()), &size) != ERROR_SUCCESS)
    return std::nullopt;
  return ToUtf8(text.data());
}

bool WriteString(HKEY key, const wchar_t* name, const std::string& value) {
  const std::wstring wide = FromUtf8(value);
  return RegSetValueExW(key, name, 0, REG_SZ, reinterpret_cast<const BYTE*>(wide.c_str()),
                        static_cast<DWORD>((wide.size() + 1) * sizeof(wchar_t))) == ERROR_SUCCESS;
}

}  // namespace

SyncSettings LoadSyncSettings() {
  SyncSettings s;
  HKEY key = nullptr;
  if (RegOpenKeyExW(HKEY_CURRENT_USER, kSettingsKey, 0, 0, &key) != ERROR_SUCCESS) return s;
  s.folder = ReadString(key, kFolderValue);
  s.command = ReadString(key, kCommandValue);
  RegCloseKey(key);
  return s;
}

bool SaveSyncSettings(const SyncSettings& settings) {
  HKEY key = nullptr;
  DWORD disposition = 0;
  if (RegCreateKeyExW(HKEY_CURRENT_USER, kSettingsKey, 0, nullptr, 0, 0, nullptr, &key, &disposition) !=
      ERROR_SUCCESS)
    return false;
  bool ok = true;
  if (settings.folder) ok = WriteString(key, kFolderValue, *settings.folder) && ok;
  if (settings.command) ok = WriteString(key, kCommandValue, *settings.command) && ok;
  RegFlushKey(key);
  RegCloseKey(key);
  return ok;
}

}  // namespace velmo::sync
