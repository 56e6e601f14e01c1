// Loading the settings block from the registry.
#include <memory>

#include "platform/notify.h"
#include "platform/registry.h"
#include "settings/migration.h"
#include "settings/registry_io.h"
#include "settings/settings.h"
#include "settings/settings_table.h"

namespace velmo {
namespace {

using namespace registry_io;
using settings_table::Entry;
using settings_table::Kind;

constexpr size_t kSortBytes = sizeof(WORD) * 2 * kSortLevels * kViewCount;  // 108
constexpr size_t kShortcutBytes = sizeof(WORD) * kShortcutCount;            // 42

struct KeyCloser {
  void operator()(RegistryKey* key) const { RegCloseKey(key); }
};
using Key = std::unique_ptr<RegistryKey, KeyCloser>;

Key OpenExisting(HKEY root, const wchar_t* path) {
  HKEY key = nullptr;
  return Key(RegOpenKeyExW(root, path, 0, KEY_READ, &key) == ERROR_SUCCESS ? key : nullptr);
}

// The database locations; absent values keep their defaults.
void ReadDatabaseLocations(Settings& s) {
  if (Key windows = OpenExisting(HKEY_CURRENT_USER, L"Software\\Microsoft\\Windows"))
    ReadText(windows.get(), L"DbPath", REG_SZ, &s.db_path);
  if (Key databases = OpenExisting(HKEY_LOCAL_MACHINE, L"Explorer\\Database")) {
    ReadText(databases.get(), L"TasksDatabase", REG_SZ, &s.tasks_database);
    ReadText(databases.get(), L"ContactsDatabase", REG_SZ, &s.contacts_database);
    ReadText(databases.get(), L"AppointmentsDatabase", REG_SZ, &s.appointments_database);
  }
}

// Reads one value of the table into its setting; false when it is missing or of
// the wrong type or size (the default stays).
bool ReadEntry(HKEY key, const Entry& e, Settings& s) {
  switch (e.kind) {
    case Kind::kDword:
      return ReadDword(key, e.name, &(s.*e.dword));
    case Kind::kSignedDword: {
      DWORD value = 0;
      if (!ReadDword(key, e.name, &value)) return false;
      s.*e.signed_dword = static_cast<LONG>(value);
      return true;
    }
    case Kind::kViewOffset: {
      DWORD offset = 0;
      if (!ReadDword(key, e.name, &offset)) return false;
      s.*e.dword = kFirstViewCommand + offset;
      return true;
    }
    case Kind::kText:
      return ReadText(key, e.name, REG_SZ, &(s.*e.text));
    case Kind::kSort: {
      std::vector<BYTE> bytes;
      if (!ReadBinary(key, e.name, kSortBytes, &bytes)) return false;
      const std::vector<WORD> words = UnpackWords(bytes);
      for (size_t i = 0; i < words.size() / 2; ++i)
        s.sort[i / kSortLevels][i % kSortLevels] = {words[2 * i], words[2 * i + 1]};
      return true;
    }
    case Kind::kShortcuts: {
      std::vector<BYTE> bytes;
      if (!ReadBinary(key, e.name, kShortcutBytes, &bytes)) return false;
      const std::vector<WORD> words = UnpackWords(bytes);
      std::copy(words.begin(), words.end(), s.shortcuts.begin());
      return true;
    }
  }
  return false;
}

// Older versions kept "date in the compact list" as its own value. It is read
// before "InfosCompressed", which overrides it when present. The value is then
// "deleted" as a key, which leaves it in place: it is read again at every start,
// harmlessly, and that is kept so.
void ReadOldDateInCompactList(HKEY key, Settings& s) {
  DWORD on = 0;
  if (!ReadDword(key, L"DateInCompactList", &on)) return;
  if (on)
    s.infos_compressed |= kInfosOldDateInCompact;
  else
    s.infos_compressed &= ~kInfosOldDateInCompact;
  RegDeleteKeyW(key, L"DateInCompactList");
}

// Registers the program file to be started at the end of every synchronisation,
// after clearing its registrations clear_times times.
void RegisterAfterSync(const std::wstring& path, int clear_times) {
  for (int i = 0; i < clear_times; ++i) CeRunAppAtEvent(path.c_str(), NOTIFICATION_EVENT_NONE);
  CeRunAppAtEvent(path.c_str(), NOTIFICATION_EVENT_SYNC_END);
}

}  // namespace

int LoadSettings(Settings& s) {
  s = Settings{};
  ReadDatabaseLocations(s);

  HKEY raw = nullptr;
  DWORD disposition = 0;
  if (RegCreateKeyExW(HKEY_CURRENT_USER, kSettingsKey, 0, nullptr, REG_OPTION_NON_VOLATILE,
                      KEY_ALL_ACCESS, nullptr, &raw, &disposition) != ERROR_SUCCESS)
    return 0;
  Key key(raw);

  if (disposition == REG_CREATED_NEW_KEY) {
    s.path = ProgramFilePath();
    RegisterAfterSync(s.path, 1);
    return 1;
  }

  // The old value is read (and its key deletion made) before the batch of reads
  // below; "InfosCompressed", read later, overrides it when present.
  ReadOldDateInCompactList(key.get(), s);
  int incomplete = 0;
  {
    registry::ScopedReadBatch batch;
    for (const Entry& e : settings_table::Entries())
      if (!ReadEntry(key.get(), e, s)) incomplete = 1;
    for (int i = 0; i < kMyTextCount; ++i)
      if (!ReadText(key.get(), settings_table::MyTextName(i).c_str(), REG_SZ, &s.txt[i]))
        incomplete = 1;
    for (int i = 0; i < kLongTextCount; ++i)
      if (!ReadText(key.get(), settings_table::LongTextName(i).c_str(), REG_MULTI_SZ,
                    &s.long_txt[i]))
        incomplete = 1;
    // Written by the task table's load, not by the save: absence is no gap.
    ReadDword(key.get(), L"LastModifiedHigh", &s.last_modified.dwHighDateTime);
    ReadDword(key.get(), L"LastModifiedLow", &s.last_modified.dwLowDateTime);
  }

  const std::wstring program = ProgramFilePath();
  if (s.path != program) {
    s.path = program;
    RegisterAfterSync(s.path, 2);
    incomplete = 1;
  }

  if (MigrateSettings(s)) return 1;
  return incomplete;
}

}  // namespace velmo
