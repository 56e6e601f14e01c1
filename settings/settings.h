// The settings block: every user setting of the program in memory, with its
// built-in default, loaded from and saved to the registry key
// HKEY_CURRENT_USER\Software\Velmo ToDo. Every part of the program reads the
// program-wide block (CurrentSettings()); the settings pages change it and save it
// whole.
#pragma once

#include <array>
#include <string>

#include "platform/wintypes.h"

namespace velmo {

constexpr const wchar_t* kSettingsKey = L"Software\\Velmo ToDo";

constexpr int kViewCount = 9;       // views 40050..40058
constexpr int kSortLevels = 3;      // first, second, third sort
constexpr int kShortcutCount = 21;  // one action number per bindable key
constexpr int kMyTextCount = 20;    // "Txt1".."Txt20"
constexpr int kLongTextCount = 4;   // "NTxt1".."NTxt4"
constexpr int kMyTextMaxChars = 100;
constexpr int kLongTextMaxChars = 1024;

constexpr DWORD kFirstViewCommand = 40050;  // All tasks; views follow in menu order
constexpr DWORD kSettingsVersionMajor = 6;
constexpr DWORD kSettingsVersionMinor = 17;

// One sort level: the sort key 0-10 and the order 0 ascending, 1 descending,
// 2 ascending with the empty values last.
struct SortPair {
  WORD key = 0;
  WORD order = 0;
  friend bool operator==(const SortPair&, const SortPair&) = default;
};
using SortRow = std::array<SortPair, kSortLevels>;
using SortTable = std::array<SortRow, kViewCount>;

// The default sort of each view, in view order.
constexpr SortTable kDefaultSort = {{
    {{{2, 0}, {1, 1}, {3, 0}}},  // All tasks
    {{{5, 1}, {1, 1}, {3, 0}}},  // Overdue
    {{{5, 2}, {1, 1}, {3, 0}}},  // Active
    {{{6, 1}, {1, 1}, {3, 0}}},  // Completed
    {{{5, 0}, {1, 1}, {3, 0}}},  // Today
    {{{5, 0}, {1, 1}, {3, 0}}},  // Next Days
    {{{5, 0}, {1, 1}, {3, 0}}},  // Future
    {{{1, 1}, {3, 0}, {0, 1}}},  // Undated
    {{{3, 0}, {0, 1}, {0, 1}}},  // Search
}};

using ShortcutTable = std::array<WORD, kShortcutCount>;
// The default action of each key, in key order.
constexpr ShortcutTable kDefaultShortcuts = {27, 20, 21, 34, 22, 23, 35, 24, 25, 36, 11,
                                             30, 37, 19, 29, 26, 32, 33, 3,  1,  47};

// The platform's major version decides the list font's defaults; this platform
// counts as major version 5.
constexpr DWORD kPlatformMajorVersion = 5;
constexpr DWORD DefaultFontSize(DWORD major) { return major < 4 ? 1 : 2; }     // Medium : Small
constexpr DWORD DefaultFontQuality(DWORD major) { return major < 4 ? 0 : 5; }  // 5 = ClearType

// The bits of "Infos"/"InfosCompressed" that the settings store itself touches.
constexpr DWORD kInfosOldDateInCompact = 0x08000000;  // older versions' "date in compact list"
constexpr DWORD kInfosDateInCompact = 0x40000000;

struct Settings {
  // Stored values, in save order.
  DWORD reminder_time = 480;   // minutes after midnight
  LONG reminder_delta = 0;     // hours, signed
  DWORD notes_synchro = 1;
  SortTable sort = kDefaultSort;
  DWORD multi_sort = 1;
  DWORD future_color = 2;           // text colour indexes (settings/colors.h)
  DWORD overdue_color = 9;
  DWORD completed_color = 7;
  DWORD undated_color = 0;
  DWORD normal_color = 12;
  DWORD highlight_color = 8;        // background colour index
  DWORD highlight_text_color = 25;  // "No change"
  DWORD notes_preview_color = 18;   // background colour index, "INFOBK"
  DWORD notes_preview = 0;
  DWORD normal_font = 1;  // font style indexes (settings/fonts.h)
  DWORD today_font = 3;
  DWORD font_size = DefaultFontSize(kPlatformMajorVersion);
  DWORD notes_font_size = 2;
  DWORD font_quality = DefaultFontQuality(kPlatformMajorVersion);
  DWORD edit_compact = 1;
  DWORD gradient = 1;
  DWORD compressed = 1;
  DWORD quick_entry = 1;
  DWORD infos = 0x04EABC05;
  DWORD infos_compressed = 0x10EABC05;
  DWORD input_mode = 1;  // index into kInputModes
  DWORD selected_view = kFirstViewCommand;  // the view's command; stored as an offset
  std::wstring filter_categories;
  std::wstring categories_for_new;
  DWORD importance_for_new = 1;
  DWORD sensitivity_for_new = 0;
  DWORD team_task_for_new = 0;
  DWORD filtered_cat_for_new = 1;
  DWORD reminder_for_new = 0;
  DWORD reminder_time_for_new = 480;
  DWORD dates_input = 1;
  DWORD subject_in_call_log = 0;
  DWORD exit_menu = 0;
  DWORD delete_confirm = 1;
  DWORD n_days = 7;
  DWORD a_days = 7;
  DWORD today_in_future = 0;
  DWORD today_in_past = 0;
  DWORD contact_insert_mode = 0;
  DWORD call_insert_mode = 5;
  DWORD rename_copy = 1;
  DWORD del_reminder_on_complete = 1;
  DWORD no_end_scroll = 0;
  DWORD undated_in_active = 0;
  DWORD show_completed = 1;
  ShortcutTable shortcuts = kDefaultShortcuts;
  std::wstring search;
  std::wstring path;  // program file at the last after-synchronisation registration
  DWORD version_major = kSettingsVersionMajor;
  DWORD version_minor = kSettingsVersionMinor;
  std::array<std::wstring, kMyTextCount> txt;         // "My Text" entries
  std::array<std::wstring, kLongTextCount> long_txt;  // "NTxt1".."NTxt4"

  // Written by SaveLastModified, read by the load.
  FILETIME last_modified = {0, 0};

  // Database locations, read by the load, never written.
  std::wstring db_path = L"\\IPSM\\mxip_initdb.vol";
  std::wstring tasks_database = L"Tasks Database";
  std::wstring contacts_database = L"Contacts Database";
  std::wstring appointments_database = L"Appointments Database";

  // Not stored: the search options start so at every start.
  bool search_subjects = true;
  bool search_notes = true;
  bool search_case_sensitive = false;
};

// The program-wide block, alive from start-up to exit.
Settings& CurrentSettings();

// Sets every default, reads the database locations and the stored values, keeps
// the after-synchronisation registration and migrates older versions. Returns 1
// when anything was missing or of the wrong type or size, or a migration or
// re-registration took place (the caller then saves at once); else 0. A key that
// cannot be created leaves the defaults in force and returns 0.
int LoadSettings(Settings& s = CurrentSettings());

// Writes every value in table order, the texts last; with flush the key is flushed
// before it is closed. Returns the registry result (ERROR_SUCCESS); when the key
// cannot be created, its error, and nothing is written.
LONG SaveSettings(const Settings& s = CurrentSettings(), bool flush = true);

// Keeps the tasks database's last-modified time (as read from the database's
// information by the caller) and writes "LastModifiedHigh" and "LastModifiedLow".
LONG SaveLastModified(const FILETIME& last_modified, Settings& s = CurrentSettings());

// When all "My Text" entries and long texts are empty, fills "Txt1".."Txt20" and
// "NTxt1" from the default texts of the string table; returns 1 (the caller saves),
// else 0.
int FillEmptyTexts(Settings& s = CurrentSettings());

// Groups of the "Reset Settings" dialog.
enum ResetGroup : DWORD {
  kResetOptions = 1u << 0,
  kResetViews = 1u << 1,
  kResetDefaultView = 1u << 2,
  kResetNewTasks = 1u << 3,
  kResetAppearance = 1u << 4,
  kResetShortcuts = 1u << 5,
  kResetMyText = 1u << 6,
  kResetActiveSync = 1u << 7,
};

// What the caller must apply after a reset.
enum ResetEffect : DWORD {
  kEffectSendDefaultView = 1u << 0,    // send command 40047 to the main window
  kEffectRebuildAppearance = 1u << 1,  // fonts, brushes and the icon image list
  kEffectReloadTasks = 1u << 2,        // "ReminderDelta" changed: reload the task table
};
constexpr UINT kCommandApplyDefaultView = 40047;

// Gives the ticked groups their defaults again, without saving; returns the
// ResetEffect bits to apply.
DWORD ResetGroups(DWORD groups, Settings& s);

// Gives the ticked groups their defaults again and saves the block with flush.
// effects (optional) receives the ResetEffect bits to apply. Returns the save's
// registry result.
LONG ResetSettings(DWORD groups, DWORD* effects = nullptr, Settings& s = CurrentSettings());

// The program file path registered for the after-synchronisation start and
// named in reminders: the running executable, unless another was set (the
// companion names the velmo-todo beside it; tests name a fixed one).
std::wstring ProgramFilePath();
void SetProgramFilePath(const std::wstring& path);  // empty: the running executable

}  // namespace velmo
