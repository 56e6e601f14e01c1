// Settings store: first start, the save's order and layouts, bad values, the
// program path, the last-modified time.
#include <string>
#include <vector>

#include "platform/device.h"
#include "platform/notify.h"
#include "tests/settings/settings_fixture.h"

namespace velmo {
namespace {

using testing::SettingsTest;

std::vector<std::wstring> RegisteredAfterSync() {
  std::vector<notify::RunAtEventRegistration> list;
  EXPECT_TRUE(notify::ListRunAppAtEvent(NOTIFICATION_EVENT_SYNC_END, &list));
  std::vector<std::wstring> apps;
  for (const auto& r : list) apps.push_back(r.app);
  return apps;
}

TEST_F(SettingsTest, FirstStartRegistersAndSavesEveryValueInTableOrder) {
  Settings s;
  ASSERT_EQ(1, LoadSettings(s));
  EXPECT_EQ(kProgram, s.path);
  EXPECT_EQ(std::vector<std::wstring>{kProgram}, RegisteredAfterSync());
  ASSERT_EQ(ERROR_SUCCESS, SaveSettings(s, true));

  std::vector<std::wstring> names;
  for (const auto& v : Stored()) names.push_back(v.name);
  std::vector<std::wstring> expected = {
      L"ReminderTime", L"ReminderDelta", L"NotesSynchro", L"Sort", L"MultiSort", L"FutureColor",
      L"OverdueColor", L"CompletedColor", L"UndatedColor", L"NormalColor", L"HighlightColor",
      L"HighlightTextColor", L"NotesPreviewColor", L"NotesPreview", L"NormalFont", L"TodayFont",
      L"FontSize", L"NotesFontSize", L"FontQuality", L"EditCompact", L"Gradient", L"Compressed",
      L"QuickEntry", L"Infos", L"InfosCompressed", L"InputMode", L"SelectedView",
      L"FilterCategories", L"CategoriesForNew", L"ImportanceForNew", L"SensitivityForNew",
      L"TeamTaskForNew", L"FilteredCatForNew", L"ReminderForNew", L"ReminderTimeForNew",
      L"DatesInput", L"SubjectInCallLog", L"ExitMenu", L"DeleteConfirm", L"NDays", L"ADays",
      L"TodayInFuture", L"TodayInPast", L"ContactInsertMode", L"CallInsertMode", L"RenameCopy",
      L"DelReminderOnComplete", L"NoEndScroll", L"UndatedInActive", L"ShowCompleted",
      L"Shortcuts", L"Search", L"Path", L"VersionMajor", L"VersionMinor"};
  for (int i = 1; i <= 20; ++i) expected.push_back(L"Txt" + std::to_wstring(i));
  for (int i = 1; i <= 4; ++i) expected.push_back(L"NTxt" + std::to_wstring(i));
  EXPECT_EQ(expected, names);

  const std::vector<BYTE> sort = Stored(L"Sort").bytes;
  ASSERT_EQ(108u, sort.size());
  EXPECT_EQ((std::vector<BYTE>{2, 0, 0, 0, 1, 0, 1, 0, 3, 0, 0, 0, 5, 0, 1, 0}),
            std::vector<BYTE>(sort.begin(), sort.begin() + 16));
  EXPECT_EQ((std::vector<BYTE>{3, 0, 0, 0, 0, 0, 1, 0, 0, 0, 1, 0}),
            std::vector<BYTE>(sort.end() - 12, sort.end()));
  const registry::RawValue shortcuts = Stored(L"Shortcuts");
  EXPECT_EQ(REG_BINARY, shortcuts.type);
  ASSERT_EQ(42u, shortcuts.bytes.size());
  EXPECT_EQ(27, shortcuts.bytes[0]);
  EXPECT_EQ(47, shortcuts.bytes[40]);

  const registry::RawValue ntxt = Stored(L"NTxt1");
  EXPECT_EQ(REG_MULTI_SZ, ntxt.type);
  EXPECT_EQ((std::vector<BYTE>{0, 0}), ntxt.bytes) << "one terminator only";
  EXPECT_EQ((std::vector<BYTE>{0, 0}), Stored(L"Txt20").bytes);

  struct Default { const wchar_t* name; DWORD value; };
  for (const Default& d : {Default{L"ReminderTime", 480}, {L"FontSize", 2}, {L"FontQuality", 5},
                           {L"HighlightTextColor", 25}, {L"NotesPreviewColor", 18},
                           {L"Infos", 0x04EABC05}, {L"InfosCompressed", 0x10EABC05},
                           {L"SelectedView", 0}, {L"CallInsertMode", 5}, {L"VersionMajor", 6},
                           {L"VersionMinor", 17}})
    EXPECT_EQ(d.value, StoredDword(d.name)) << "default of value " << d.name - d.name;

  Settings again;
  EXPECT_EQ(0, LoadSettings(again)) << "a complete registry loads without a gap";
}

TEST_F(SettingsTest, EveryKindOfValueSurvivesSaveAndLoad) {
  SaveFirstStart();
  Settings s;
  ASSERT_EQ(0, LoadSettings(s));
  s.reminder_delta = -3;
  s.sort[8][2] = {10, 2};
  s.shortcuts[20] = 0xBEEF;
  s.selected_view = 40058;
  s.filter_categories = L"Work,<NoCat>";
  s.txt[19] = L"Grüße \U0001F600";
  s.long_txt[3] = L"line one\r\nline two";
  s.n_days = 30;
  ASSERT_EQ(ERROR_SUCCESS, SaveSettings(s, false));

  Settings loaded;
  ASSERT_EQ(0, LoadSettings(loaded));
  EXPECT_EQ(-3, loaded.reminder_delta);
  EXPECT_EQ(0xFFFFFFFDu, StoredDword(L"ReminderDelta"));
  EXPECT_EQ(s.sort, loaded.sort);
  EXPECT_EQ(s.shortcuts, loaded.shortcuts);
  EXPECT_EQ(40058u, loaded.selected_view);
  EXPECT_EQ(8u, StoredDword(L"SelectedView"));
  EXPECT_EQ(s.filter_categories, loaded.filter_categories);
  EXPECT_EQ(s.txt, loaded.txt);
  EXPECT_EQ(s.long_txt, loaded.long_txt);
  EXPECT_EQ(30u, loaded.n_days);
}

TEST_F(SettingsTest, TextsOfEveryLengthAreReadWhole) {
  SaveFirstStart();
  // Around the size a text is first read with, and far beyond it.
  const std::wstring texts[] = {L"", std::wstring(127, L'a'), std::wstring(128, L'b'),
                                std::wstring(129, L'c'), std::wstring(1000, L'\u00e9') + L"\U0001F600"};
  for (const std::wstring& text : texts) {
    SCOPED_TRACE(text.size());
    SetText(L"FilterCategories", REG_SZ, text);
    SetText(L"NTxt1", REG_MULTI_SZ, text + L"!");
    Settings s;
    EXPECT_EQ(0, LoadSettings(s));
    EXPECT_EQ(text, s.filter_categories);
    EXPECT_EQ(text + L"!", s.long_txt[0]);
  }
}

TEST_F(SettingsTest, AMissingOrMisshapenValueKeepsItsDefaultAndAsksForASave) {
  struct Case { const char* what; void (*spoil)(); bool (*kept_default)(const Settings&); };
  const Case cases[] = {
      {"missing dword", [] { Delete(L"NDays"); }, [](const Settings& s) { return s.n_days == 7; }},
      {"10-byte Sort", [] { Set(L"Sort", REG_BINARY, std::vector<BYTE>(10, 9)); },
       [](const Settings& s) { return s.sort == kDefaultSort; }},
      {"110-byte Sort", [] { Set(L"Sort", REG_BINARY, std::vector<BYTE>(110, 9)); },
       [](const Settings& s) { return s.sort == kDefaultSort; }},
      {"Sort as a string", [] { SetText(L"Sort", REG_SZ, L"xx"); },
       [](const Settings& s) { return s.sort == kDefaultSort; }},
      {"40-byte Shortcuts", [] { Set(L"Shortcuts", REG_BINARY, std::vector<BYTE>(40, 9)); },
       [](const Settings& s) { return s.shortcuts == kDefaultShortcuts; }},
      {"string where a dword belongs", [] { SetText(L"ReminderTime", REG_SZ, L"600"); },
       [](const Settings& s) { return s.reminder_time == 480; }},
      {"2-byte dword", [] { Set(L"ReminderTime", REG_DWORD, {0x58, 0x02}); },
       [](const Settings& s) { return s.reminder_time == 480; }},
      {"dword as binary", [] { Set(L"ReminderTime", REG_BINARY, {0x58, 0x02, 0, 0}); },
       [](const Settings& s) { return s.reminder_time == 480; }},
      {"dword where a string belongs", [] { SetDword(L"FilterCategories", 5); },
       [](const Settings& s) { return s.filter_categories.empty(); }},
      {"long text of the wrong type", [] { SetText(L"NTxt2", REG_SZ, L"short"); },
       [](const Settings& s) { return s.long_txt[1].empty(); }},
      {"missing SelectedView", [] { Delete(L"SelectedView"); },
       [](const Settings& s) { return s.selected_view == 40050; }},
  };
  int n = 0;
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    device::SetRoot(root() / std::to_string(++n));  // each case on its own fresh device
    SaveFirstStart();
    SetDword(L"ADays", 3);  // proves the rest of the values were still read
    SetDword(L"NDays", 12);
    SetDword(L"ReminderTime", 500);
    SetText(L"FilterCategories", REG_SZ, L"Home");
    c.spoil();
    Settings s;
    EXPECT_EQ(1, LoadSettings(s));
    EXPECT_TRUE(c.kept_default(s));
    EXPECT_EQ(3u, s.a_days);
    ASSERT_EQ(ERROR_SUCCESS, SaveSettings(s, true));
    Settings reloaded;
    EXPECT_EQ(0, LoadSettings(reloaded)) << "the save repaired the value";
  }
}

TEST_F(SettingsTest, AMovedProgramReRegistersAndRewritesPath) {
  SaveFirstStart();
  SetProgramFilePath(L"/home/user/bin/velmo-todo");
  Settings s;
  EXPECT_EQ(1, LoadSettings(s));
  EXPECT_EQ(L"/home/user/bin/velmo-todo", s.path);
  EXPECT_EQ((std::vector<std::wstring>{kProgram, L"/home/user/bin/velmo-todo"}), RegisteredAfterSync());
  ASSERT_EQ(ERROR_SUCCESS, SaveSettings(s, true));
  const registry::RawValue path = Stored(L"Path");
  EXPECT_EQ(REG_SZ, path.type);
  EXPECT_EQ(2 * (s.path.size() + 1), path.bytes.size());

  Settings again;
  EXPECT_EQ(0, LoadSettings(again)) << "same place, no new registration";
}

TEST_F(SettingsTest, RunAppAtEventNoneClearsOnlyThatProgram) {
  ASSERT_TRUE(CeRunAppAtEvent(L"/a", NOTIFICATION_EVENT_SYNC_END));
  ASSERT_TRUE(CeRunAppAtEvent(L"/b", NOTIFICATION_EVENT_SYNC_END));
  ASSERT_TRUE(CeRunAppAtEvent(L"/a", NOTIFICATION_EVENT_SYNC_END));
  EXPECT_EQ((std::vector<std::wstring>{L"/a", L"/b"}), RegisteredAfterSync());
  ASSERT_TRUE(CeRunAppAtEvent(L"/a", NOTIFICATION_EVENT_NONE));
  EXPECT_EQ(std::vector<std::wstring>{L"/b"}, RegisteredAfterSync());
  EXPECT_FALSE(CeRunAppAtEvent(nullptr, NOTIFICATION_EVENT_SYNC_END));
  EXPECT_STREQ(L"AppRunAfterSync", notify::RunAtEventCommandLine(NOTIFICATION_EVENT_SYNC_END));
}

TEST_F(SettingsTest, DateInCompactListIsReadAtEveryStartAndOnlyAKeyOfItsNameGoes) {
  SaveFirstStart();
  Delete(L"InfosCompressed");
  SetDword(L"DateInCompactList", 1);
  HKEY key = OpenSettingsKey();
  HKEY sub = nullptr;
  ASSERT_EQ(ERROR_SUCCESS, RegCreateKeyExW(key, L"DateInCompactList", 0, nullptr, 0, 0, nullptr,
                                           &sub, nullptr));
  RegCloseKey(sub);

  Settings s;
  EXPECT_EQ(1, LoadSettings(s)) << "InfosCompressed was missing";
  EXPECT_EQ(0x10EABC05u | kInfosOldDateInCompact, s.infos_compressed);
  EXPECT_EQ(1u, StoredDword(L"DateInCompactList")) << "the value stays";
  EXPECT_EQ(ERROR_FILE_NOT_FOUND, RegOpenKeyExW(key, L"DateInCompactList", 0, 0, &sub))
      << "the key deletion took the key of that name";

  SetDword(L"DateInCompactList", 0);
  SetDword(L"InfosCompressed", 0x18000001);
  EXPECT_EQ(0, LoadSettings(s));
  EXPECT_EQ(0x18000001u, s.infos_compressed) << "InfosCompressed overrides the old value";
  Delete(L"InfosCompressed");
  LoadSettings(s);
  EXPECT_EQ(0x10EABC05u & ~kInfosOldDateInCompact, s.infos_compressed);
  RegCloseKey(key);
}

TEST_F(SettingsTest, LastModifiedTimeIsWrittenInHalvesAndReadBack) {
  SaveFirstStart();
  Settings s;
  ASSERT_EQ(0, LoadSettings(s));
  ASSERT_EQ(ERROR_SUCCESS, SaveLastModified(FILETIME{0x89ABCDEF, 0x01D9A2B3}, s));
  EXPECT_EQ(0x01D9A2B3u, StoredDword(L"LastModifiedHigh"));
  EXPECT_EQ(0x89ABCDEFu, StoredDword(L"LastModifiedLow"));
  Settings loaded;
  EXPECT_EQ(0, LoadSettings(loaded));
  EXPECT_EQ(0x01D9A2B3u, loaded.last_modified.dwHighDateTime);
  EXPECT_EQ(0x89ABCDEFu, loaded.last_modified.dwLowDateTime);
}

TEST_F(SettingsTest, DatabaseLocationsComeFromTheirOwnKeys) {
  HKEY key = nullptr;
  ASSERT_EQ(ERROR_SUCCESS, RegCreateKeyExW(HKEY_LOCAL_MACHINE, L"Explorer\\Database", 0, nullptr,
                                           0, 0, nullptr, &key, nullptr));
  const std::wstring name = L"Work Tasks";
  RegSetValueExW(key, L"TasksDatabase", 0, REG_SZ, reinterpret_cast<const BYTE*>(name.c_str()),
                 static_cast<DWORD>((name.size() + 1) * sizeof(wchar_t)));
  RegCloseKey(key);
  Settings s;
  LoadSettings(s);
  EXPECT_EQ(L"Work Tasks", s.tasks_database);
  EXPECT_EQ(L"Contacts Database", s.contacts_database);
  EXPECT_EQ(L"\\IPSM\\mxip_initdb.vol", s.db_path);
}

TEST_F(SettingsTest, AnUnusableRegistryLeavesTheDefaultsAndSavesNothing) {
  std::filesystem::create_directories(root() / "registry.db");  // a folder where the file goes
  Settings s;
  s.n_days = 99;
  EXPECT_EQ(0, LoadSettings(s));
  EXPECT_EQ(7u, s.n_days);
  EXPECT_NE(static_cast<LONG>(ERROR_SUCCESS), SaveSettings(s, true));
  EXPECT_TRUE(std::filesystem::is_directory(root() / "registry.db"));
}

}  // namespace
}  // namespace velmo
