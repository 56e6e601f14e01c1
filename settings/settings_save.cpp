// Saving the settings block to the registry.
#include "platform/registry.h"
#include "settings/registry_io.h"
#include "settings/settings.h"
#include "settings/settings_table.h"

namespace velmo {
namespace {

using namespace registry_io;
using settings_table::Entry;
using settings_table::Kind;

LONG WriteEntry(HKEY key, const Entry& e, const Settings& s) {
  switch (e.kind) {
    case Kind::kDword:
      return WriteDword(key, e.name, s.*e.dword);
    case Kind::kSignedDword:
      return WriteDword(key, e.name, static_cast<DWORD>(s.*e.signed_dword));
    case Kind::kViewOffset:
      return WriteDword(key, e.name, s.*e.dword - kFirstViewCommand);
    case Kind::kText:
      return WriteText(key, e.name, REG_SZ, s.*e.text);
    case Kind::kSort: {
      std::vector<WORD> words;
      for (const SortRow& row : s.sort)
        for (const SortPair& pair : row) words.insert(words.end(), {pair.key, pair.order});
      return WriteBinary(key, e.name, PackWords(words));
    }
    case Kind::kShortcuts:
      return WriteBinary(key, e.name,
                         PackWords(std::vector<WORD>(s.shortcuts.begin(), s.shortcuts.end())));
  }
  return ERROR_INVALID_PARAMETER;
}

LONG WriteAll(HKEY key, const Settings& s) {
  for (const Entry& e : settings_table::Entries())
    if (LONG result = WriteEntry(key, e, s); result != ERROR_SUCCESS) return result;
  for (int i = 0; i < kMyTextCount; ++i)
    if (LONG result = WriteText(key, settings_table::MyTextName(i).c_str(), REG_SZ, s.txt[i]);
        result != ERROR_SUCCESS)
      return result;
  for (int i = 0; i < kLongTextCount; ++i)
    if (LONG result =
            WriteText(key, settings_table::LongTextName(i).c_str(), REG_MULTI_SZ, s.long_txt[i]);
        result != ERROR_SUCCESS)
      return result;
  return ERROR_SUCCESS;
}

LONG CreateSettingsKey(HKEY* key) {
  return RegCreateKeyExW(HKEY_CURRENT_USER, kSettingsKey, 0, nullptr, REG_OPTION_NON_VOLATILE,
                         KEY_ALL_ACCESS, nullptr, key, nullptr);
}

}  // namespace

LONG SaveSettings(const Settings& s, bool flush) {
  HKEY key = nullptr;
  if (LONG result = CreateSettingsKey(&key); result != ERROR_SUCCESS) return result;
  LONG result = WriteAll(key, s);
  if (flush) {
    const LONG flushed = RegFlushKey(key);
    if (result == ERROR_SUCCESS) result = flushed;
  }
  RegCloseKey(key);
  return result;
}

LONG SaveLastModified(const FILETIME& last_modified, Settings& s) {
  s.last_modified = last_modified;
  HKEY key = nullptr;
  if (LONG result = CreateSettingsKey(&key); result != ERROR_SUCCESS) return result;
  LONG result = WriteDword(key, L"LastModifiedHigh", last_modified.dwHighDateTime);
  if (result == ERROR_SUCCESS) result = WriteDword(key, L"LastModifiedLow", last_modified.dwLowDateTime);
  RegCloseKey(key);
  return result;
}

}  // namespace velmo
