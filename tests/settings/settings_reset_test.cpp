// "My Text" defaults and "Reset Settings" by groups.
#include "res/strings.h"
#include "tests/settings/settings_fixture.h"

namespace velmo {
namespace {

using testing::SettingsTest;

TEST_F(SettingsTest, EmptyTextsAreFilledFromTheStringTableAndSavedWithOneTerminator) {
  Settings s;
  ASSERT_EQ(1, FillEmptyTexts(s));
  EXPECT_EQ(res::Text(41616), s.txt[0]);
  EXPECT_EQ(res::Text(41635), s.txt[19]);
  EXPECT_EQ(res::Text(41636), s.long_txt[0]);
  EXPECT_TRUE(s.long_txt[1].empty());
  for (const std::wstring& t : s.txt) {
    EXPECT_FALSE(t.empty());
    EXPECT_LE(t.size(), static_cast<size_t>(kMyTextMaxChars));
  }
  ASSERT_EQ(ERROR_SUCCESS, SaveSettings(s, true));
  const registry::RawValue ntxt = Stored(L"NTxt1");
  EXPECT_EQ(REG_MULTI_SZ, ntxt.type);
  ASSERT_EQ(2 * (s.long_txt[0].size() + 1), ntxt.bytes.size());
  EXPECT_NE(0, ntxt.bytes[ntxt.bytes.size() - 3] | ntxt.bytes[ntxt.bytes.size() - 4]);

  Settings one_text;
  one_text.long_txt[3] = L"mine";
  EXPECT_EQ(0, FillEmptyTexts(one_text));
  EXPECT_TRUE(one_text.txt[0].empty());
}

// change: a setting inside the group.
struct GroupCase { const char* what; DWORD group; void (*change)(Settings&);
                   bool (*is_default)(const Settings&); DWORD effects; };

const GroupCase kGroups[] = {
    {"Options", kResetOptions, [](Settings& s) { s.call_insert_mode = 0; s.exit_menu = 1; },
     [](const Settings& s) { return s.call_insert_mode == 5 && s.exit_menu == 0; }, 0},
    {"Views", kResetViews, [](Settings& s) { s.sort[0][0] = {9, 1}; s.n_days = 2; },
     [](const Settings& s) { return s.sort == kDefaultSort && s.n_days == 7; }, 0},
    {"Default view", kResetDefaultView,
     [](Settings& s) { s.selected_view = 40054; s.filter_categories = L"Work"; },
     [](const Settings& s) { return s.selected_view == 40050 && s.filter_categories.empty(); },
     kEffectSendDefaultView},
    {"New tasks", kResetNewTasks,
     [](Settings& s) { s.categories_for_new = L"Home"; s.reminder_time_for_new = 600; },
     [](const Settings& s) { return s.categories_for_new.empty() && s.reminder_time_for_new == 480; },
     0},
    {"Appearance", kResetAppearance, [](Settings& s) { s.today_font = 0; s.infos = 1; s.gradient = 0; },
     [](const Settings& s) { return s.today_font == 3 && s.infos == 0x04EABC05 && s.gradient == 1; },
     kEffectRebuildAppearance},
    {"Shortcuts", kResetShortcuts, [](Settings& s) { s.shortcuts[3] = 0; },
     [](const Settings& s) { return s.shortcuts == kDefaultShortcuts; }, 0},
    {"My Text", kResetMyText, [](Settings& s) { s.txt[4] = L"mine"; s.long_txt[2] = L"long"; },
     [](const Settings& s) {
       return s.txt[4] == res::Text(41620) && s.long_txt[2].empty() && s.txt[0] == res::Text(41616);
     },
     0},
    {"ActiveSync", kResetActiveSync, [](Settings& s) { s.reminder_delta = 2; s.notes_synchro = 0; },
     [](const Settings& s) { return s.reminder_delta == 0 && s.notes_synchro == 1; },
     kEffectReloadTasks},
};

TEST_F(SettingsTest, ResetGivesOnlyTheTickedGroupsTheirDefaultsAndSaves) {
  for (const GroupCase& ticked : kGroups) {
    SCOPED_TRACE(ticked.what);
    Settings s;
    for (const GroupCase& g : kGroups) g.change(s);
    DWORD effects = 0xFFFF;
    ASSERT_EQ(ERROR_SUCCESS, ResetSettings(ticked.group, &effects, s));
    EXPECT_EQ(ticked.effects, effects);
    for (const GroupCase& g : kGroups)
      EXPECT_EQ(&g == &ticked, g.is_default(s)) << "group " << g.what;
    Settings loaded;
    LoadSettings(loaded);
    EXPECT_EQ(s.n_days, loaded.n_days) << "the block was saved";
    EXPECT_EQ(s.txt, loaded.txt);
  }
}

TEST_F(SettingsTest, ActiveSyncResetAsksForNoReloadWhenTheDeltaWasAlreadyZero) {
  Settings s;
  s.notes_synchro = 0;
  DWORD effects = 0xFFFF;
  ASSERT_EQ(ERROR_SUCCESS, ResetSettings(kResetActiveSync | kResetAppearance, &effects, s));
  EXPECT_EQ(static_cast<DWORD>(kEffectRebuildAppearance), effects);
}

}  // namespace
}  // namespace velmo
