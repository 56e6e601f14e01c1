// The settings pages through the headless screen: each value a page offers is
// changed with the keys a user presses and comes back out of the registry
// export exactly as the changed block would be saved, every other value byte
// for byte as it was; values a page cannot show are shown at the nearest
// valid value and kept as stored.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "app/settings_pages.h"
#include "cli/reg_text.h"
#include "platform/ui/virtual_keys.h"
#include "settings/settings.h"
#include "tests/support/temp_root.h"
#include "tests/ui/ui_fixture.h"

namespace velmo {
namespace {

using Show = INT_PTR (*)(HWND);
using Change = void (*)(Settings&);

struct Case {
  const char* name;
  Show show;
  Change stored;              // the block before the page opens
  std::vector<UINT> keys;     // pressed on the page before "Done"
  Change expected;            // what the page must make of it
  const wchar_t* shown = nullptr;  // a text the page shows at the start
};

void Nothing(Settings&) {}

std::string Export() {
  std::vector<registry::RawKey> keys;
  EXPECT_EQ(registry::ExportTree(L"HKEY_CURRENT_USER\\Software\\Velmo ToDo", &keys), ERROR_SUCCESS);
  return cli::FormatRegText(keys);
}

constexpr UINT D = VK_DOWN, R = VK_RIGHT, L = VK_LEFT, S = VK_SPACE;

const Case kCases[] = {
    // Options
    {"InputMode", app::ShowOptionsPage, Nothing, {R}, [](Settings& s) { s.input_mode = 2; }},
    {"InputModePastTable", app::ShowOptionsPage, [](Settings& s) { s.input_mode = 40; }, {},
     [](Settings& s) { s.input_mode = 40; }, L"◂Default mode"},
    {"ContactInsertMode", app::ShowOptionsPage, Nothing, {D, L}, [](Settings& s) { s.contact_insert_mode = 5; }},
    {"CallInsertMode", app::ShowOptionsPage, Nothing, {D, D, L}, [](Settings& s) { s.call_insert_mode = 4; }},
    {"DeleteConfirm", app::ShowOptionsPage, Nothing, {D, D, D, S}, [](Settings& s) { s.delete_confirm = 0; }},
    {"RenameCopy", app::ShowOptionsPage, Nothing, {D, D, D, D, S}, [](Settings& s) { s.rename_copy = 0; }},
    {"DelReminderOnComplete", app::ShowOptionsPage, Nothing, {D, D, D, D, D, S},
     [](Settings& s) { s.del_reminder_on_complete = 0; }},
    {"DatesInput", app::ShowOptionsPage, Nothing, {D, D, D, D, D, D, S}, [](Settings& s) { s.dates_input = 0; }},
    {"ExitMenu", app::ShowOptionsPage, Nothing, {D, D, D, D, D, D, D, S}, [](Settings& s) { s.exit_menu = 1; }},
    {"SubjectInCallLog", app::ShowOptionsPage, Nothing, {D, D, D, D, D, D, D, D, S},
     [](Settings& s) { s.subject_in_call_log = 1; }},
    // Views
    {"ShowCompleted", app::ShowViewsPage, Nothing, {S}, [](Settings& s) { s.show_completed = 0; }},
    {"UndatedInActive", app::ShowViewsPage, Nothing, {D, S}, [](Settings& s) { s.undated_in_active = 1; }},
    {"NDays", app::ShowViewsPage, Nothing, {D, D, R, R}, [](Settings& s) { s.n_days = 9; }},
    {"NDaysNegative", app::ShowViewsPage, [](Settings& s) { s.n_days = static_cast<DWORD>(-3); }, {},
     [](Settings& s) { s.n_days = static_cast<DWORD>(-3); }, L"Next days:                    ◂0 "},
    {"NDaysNegativeStepped", app::ShowViewsPage, [](Settings& s) { s.n_days = static_cast<DWORD>(-3); },
     {D, D, R}, [](Settings& s) { s.n_days = 1; }},
    {"ADays", app::ShowViewsPage, Nothing, {D, D, D, L}, [](Settings& s) { s.a_days = 6; }},
    {"TodayInFuture", app::ShowViewsPage, Nothing, {D, D, D, D, S}, [](Settings& s) { s.today_in_future = 1; }},
    {"TodayInPast", app::ShowViewsPage, Nothing, {D, D, D, D, D, S}, [](Settings& s) { s.today_in_past = 1; }},
    {"SameSort", app::ShowViewsPage, Nothing, {D, D, D, D, D, D, S}, [](Settings& s) { s.multi_sort = 0; }},
    {"SameSortOff", app::ShowViewsPage, [](Settings& s) { s.multi_sort = 0; }, {D, D, D, D, D, D, S},
     [](Settings& s) { s.multi_sort = 1; }},
    // The view list starts at the current view (All Tasks); a key brings its default direction.
    {"OverdueThirdSortKey", app::ShowViewsPage, Nothing, {D, D, D, D, D, D, D, R, D, D, D, D, D, R},
     [](Settings& s) { s.sort[1][2] = {4, 1}; }},
    {"FirstSortDirection", app::ShowViewsPage, Nothing, {D, D, D, D, D, D, D, D, D, R},
     [](Settings& s) { s.sort[0][0].order = 1; }},
    {"SortOfUnknownKeys", app::ShowViewsPage, [](Settings& s) { s.sort[0][0] = {77, 9}; }, {},
     [](Settings& s) { s.sort[0][0] = {77, 9}; }, L"◂Categories     ▸ ◂Ascending (none last)"},
    // New Tasks
    {"CategoriesForNew", app::ShowNewTasksPage, [](Settings& s) { s.categories_for_new = L"Work,Home"; },
     {}, [](Settings& s) { s.categories_for_new = L"Work,Home"; }, L"Categories:   ◂Home"},
    {"ImportanceForNew", app::ShowNewTasksPage, Nothing, {D, R}, [](Settings& s) { s.importance_for_new = 2; }},
    {"SensitivityForNew", app::ShowNewTasksPage, Nothing, {D, D, R}, [](Settings& s) { s.sensitivity_for_new = 1; }},
    {"TeamTaskForNew", app::ShowNewTasksPage, Nothing, {D, D, D, S}, [](Settings& s) { s.team_task_for_new = 1; }},
    {"FilteredCatForNew", app::ShowNewTasksPage, Nothing, {D, D, D, D, S},
     [](Settings& s) { s.filtered_cat_for_new = 0; }},
    {"ReminderForNew", app::ShowNewTasksPage, Nothing, {D, D, D, D, D, S}, [](Settings& s) { s.reminder_for_new = 1; }},
    {"ReminderTimeForNew", app::ShowNewTasksPage, Nothing, {D, D, D, D, D, D, '0', '9', '3', '0'},
     [](Settings& s) { s.reminder_time_for_new = 570; }},
    // ActiveSync
    {"ReminderDelta", app::ShowActiveSyncPage, Nothing, {L, L}, [](Settings& s) { s.reminder_delta = -2; }},
    {"NotesSynchro", app::ShowActiveSyncPage, Nothing, {D, S}, [](Settings& s) { s.notes_synchro = 0; }},
    {"ReminderTime", app::ShowActiveSyncPage, Nothing, {D, D, '0', '8', '1', '5'},
     [](Settings& s) { s.reminder_time = 8 * 60 + 15; }},
    // Appearance
    {"NormalColor", app::ShowAppearancePage, Nothing, {R}, [](Settings& s) { s.normal_color = 13; }},
    {"NormalColorPastTable", app::ShowAppearancePage, [](Settings& s) { s.normal_color = 99; }, {},
     [](Settings& s) { s.normal_color = 99; }, L"Pending color:        ◂No change"},
    {"HighlightColor", app::ShowAppearancePage, Nothing, {D, D, D, D, D, L}, [](Settings& s) { s.highlight_color = 7; }},
    {"NotesPreview", app::ShowAppearancePage, Nothing, {D, D, D, D, D, D, D, R, R}, [](Settings& s) { s.notes_preview = 2; }},
    {"NotesPreviewColor", app::ShowAppearancePage, Nothing, {D, D, D, D, D, D, D, D, R},
     [](Settings& s) { s.notes_preview_color = 19; }},
    {"TodayFont", app::ShowAppearancePage, Nothing, {D, D, D, D, D, D, D, D, D, D, R},
     [](Settings& s) { s.today_font = 0; }},
    {"Gradient", app::ShowAppearancePage, Nothing, {D, D, D, D, D, D, D, D, D, D, D, S},
     [](Settings& s) { s.gradient = 0; }},
    {"EditCompact", app::ShowAppearancePage, Nothing, {D, D, D, D, D, D, D, D, D, D, D, D, D, D, D, S},
     [](Settings& s) { s.edit_compact = 0; }},
    // The information lists: the first row's normal box, then the compact box of the second.
    {"InfosStartDate", app::ShowAppearancePage, Nothing, {D, D, D, D, D, D, D, D, D, D, D, D, D, D, D, D, S},
     [](Settings& s) { s.infos &= ~0x04000000u; }},
    {"InfosCompressedDueDate", app::ShowAppearancePage, Nothing,
     {D, D, D, D, D, D, D, D, D, D, D, D, D, D, D, D, D, D, D, S},
     [](Settings& s) { s.infos_compressed |= 0x08000000u; }},
    // My Text: the list chooses the entry, the field under it edits it.
    {"MyText", app::ShowMyTextPage, Nothing, {R, D, 'A', 'B'}, [](Settings& s) { s.txt[1] = L"AB"; }},
    {"LongText", app::ShowMyTextPage, [](Settings& s) { s.long_txt[3] = L"keep"; }, {L, D, 'X'},
     [](Settings& s) { s.long_txt[3] = L"keepX"; }},
    // Reset Settings: the ticked group only.
    {"ResetViews", app::ShowResetPage,
     [](Settings& s) { s.multi_sort = 0; s.n_days = 3; s.sort[2][1] = {9, 0}; s.normal_color = 5; },
     {D, S},
     [](Settings& s) { s.multi_sort = 1; s.n_days = 7; s.sort = kDefaultSort; s.normal_color = 5; }},
    {"ResetAppearanceAndActiveSync", app::ShowResetPage,
     [](Settings& s) { s.normal_color = 5; s.infos = 0; s.reminder_delta = 3; s.n_days = 3; },
     {D, D, D, D, S, D, D, D, S},
     [](Settings& s) { s.normal_color = 12; s.infos = 0x04EABC05; s.reminder_delta = 0; s.n_days = 3; }},
};

class SettingsPagesTest : public testing::UiTest, public ::testing::WithParamInterface<Case> {
 protected:
  SettingsPagesTest() : UiTest(80, 24) { main_ = MakeMain(L"Velmo ToDo List"); }
  testing::TempRoot root_;
  HWND main_;
};

class SettingsPagesCancelTest : public testing::UiTest {
 protected:
  SettingsPagesCancelTest() : UiTest(80, 24) { main_ = MakeMain(L"Velmo ToDo List"); }
  testing::TempRoot root_;
  HWND main_;
};

TEST_P(SettingsPagesTest, TheChosenValueAndNothingElseReachesTheRegistry) {
  const Case& c = GetParam();
  CurrentSettings() = Settings{};
  c.stored(CurrentSettings());
  ASSERT_EQ(SaveSettings(), ERROR_SUCCESS);
  Settings expected = CurrentSettings();
  c.expected(expected);
  const std::string before = Export();

  screen_.AddIdleStep([&] {
    if (c.shown) {
      EXPECT_TRUE(screen_.Contains(c.shown)) << screen_.Text();
    }
    for (UINT key : c.keys) {
      if (key >= '0' && key <= 'Z') {
        screen_.TypeKey(key, static_cast<wchar_t>(key));
      } else {
        screen_.TypeKey(key);
      }
    }
    screen_.TypeKey(VK_TSOFT1);
  });
  EXPECT_EQ(c.show(main_), IDOK);
  const std::string after = Export();

  CurrentSettings() = expected;
  ASSERT_EQ(SaveSettings(), ERROR_SUCCESS);
  EXPECT_EQ(after, Export());
  if (c.keys.empty()) {
    EXPECT_EQ(after, before);
  }
}

// "Cancel" after changes on every page: neither the block nor the registry moves.
TEST_F(SettingsPagesCancelTest, LeavesBlockAndRegistryAsTheyWere) {
  for (Show show : {app::ShowOptionsPage, app::ShowViewsPage, app::ShowNewTasksPage,
                    app::ShowActiveSyncPage, app::ShowAppearancePage, app::ShowMyTextPage,
                    app::ShowResetPage}) {
    CurrentSettings() = Settings{};
    ASSERT_EQ(SaveSettings(), ERROR_SUCCESS);
    const std::string before = Export();
    screen_.AddIdleStep([&] {
      for (UINT key : {VK_RIGHT, VK_SPACE, VK_DOWN, VK_RIGHT, VK_SPACE}) screen_.TypeKey(key);
      screen_.TypeKey(VK_TSOFT2);
    });
    EXPECT_EQ(show(main_), IDCANCEL);
    EXPECT_EQ(Export(), before);
    ASSERT_EQ(SaveSettings(), ERROR_SUCCESS);
    EXPECT_EQ(Export(), before) << "the block changed";
  }
}

// The action key on the categories of new tasks opens the Categories dialog
// over them; the soft key is "Done" wherever the focus is.
TEST_F(SettingsPagesCancelTest, NewTasksCategoriesOpenTheCategoriesDialog) {
  CurrentSettings() = Settings{};
  CurrentSettings().categories_for_new = L"Work";
  bool opened = false;
  screen_.AddIdleStep([&] { screen_.TypeKey(VK_RETURN); });
  screen_.AddIdleStep([&] {
    opened = screen_.Contains(L"Categories [");
    screen_.TypeKey(VK_ESCAPE);
  });
  screen_.AddIdleStep([&] { screen_.TypeKey(VK_TSOFT1); });
  EXPECT_EQ(app::ShowNewTasksPage(main_), IDOK);
  EXPECT_TRUE(opened) << screen_.Text();
  EXPECT_EQ(CurrentSettings().categories_for_new, L"Work");
}

INSTANTIATE_TEST_SUITE_P(Values, SettingsPagesTest, ::testing::ValuesIn(kCases),
                         [](const auto& info) { return std::string(info.param.name); });

}  // namespace
}  // namespace velmo
