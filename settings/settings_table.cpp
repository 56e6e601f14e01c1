#include "settings/settings_table.h"

namespace velmo::settings_table {
namespace {

constexpr Entry Dword(const wchar_t* name, DWORD Settings::*member, DWORD group) {
  return {name, Kind::kDword, group, member, nullptr, nullptr};
}
constexpr Entry Text(const wchar_t* name, std::wstring Settings::*member, DWORD group) {
  return {name, Kind::kText, group, nullptr, nullptr, member};
}

const Entry kEntries[] = {
    Dword(L"ReminderTime", &Settings::reminder_time, kResetActiveSync),
    {L"ReminderDelta", Kind::kSignedDword, kResetActiveSync, nullptr, &Settings::reminder_delta},
    Dword(L"NotesSynchro", &Settings::notes_synchro, kResetActiveSync),
    {L"Sort", Kind::kSort, kResetViews},
    Dword(L"MultiSort", &Settings::multi_sort, kResetViews),
    Dword(L"FutureColor", &Settings::future_color, kResetAppearance),
    Dword(L"OverdueColor", &Settings::overdue_color, kResetAppearance),
    Dword(L"CompletedColor", &Settings::completed_color, kResetAppearance),
    Dword(L"UndatedColor", &Settings::undated_color, kResetAppearance),
    Dword(L"NormalColor", &Settings::normal_color, kResetAppearance),
    Dword(L"HighlightColor", &Settings::highlight_color, kResetAppearance),
    Dword(L"HighlightTextColor", &Settings::highlight_text_color, kResetAppearance),
    Dword(L"NotesPreviewColor", &Settings::notes_preview_color, kResetAppearance),
    Dword(L"NotesPreview", &Settings::notes_preview, kResetAppearance),
    Dword(L"NormalFont", &Settings::normal_font, kResetAppearance),
    Dword(L"TodayFont", &Settings::today_font, kResetAppearance),
    Dword(L"FontSize", &Settings::font_size, kResetAppearance),
    Dword(L"NotesFontSize", &Settings::notes_font_size, kResetAppearance),
    Dword(L"FontQuality", &Settings::font_quality, kResetAppearance),
    Dword(L"EditCompact", &Settings::edit_compact, kResetAppearance),
    Dword(L"Gradient", &Settings::gradient, kResetAppearance),
    Dword(L"Compressed", &Settings::compressed, kResetAppearance),
    Dword(L"QuickEntry", &Settings::quick_entry, kResetAppearance),
    Dword(L"Infos", &Settings::infos, kResetAppearance),
    Dword(L"InfosCompressed", &Settings::infos_compressed, kResetAppearance),
    Dword(L"InputMode", &Settings::input_mode, kResetOptions),
    {L"SelectedView", Kind::kViewOffset, kResetDefaultView, &Settings::selected_view},
    Text(L"FilterCategories", &Settings::filter_categories, kResetDefaultView),
    Text(L"CategoriesForNew", &Settings::categories_for_new, kResetNewTasks),
    Dword(L"ImportanceForNew", &Settings::importance_for_new, kResetNewTasks),
    Dword(L"SensitivityForNew", &Settings::sensitivity_for_new, kResetNewTasks),
    Dword(L"TeamTaskForNew", &Settings::team_task_for_new, kResetNewTasks),
    Dword(L"FilteredCatForNew", &Settings::filtered_cat_for_new, kResetNewTasks),
    Dword(L"ReminderForNew", &Settings::reminder_for_new, kResetNewTasks),
    Dword(L"ReminderTimeForNew", &Settings::reminder_time_for_new, kResetNewTasks),
    Dword(L"DatesInput", &Settings::dates_input, kResetOptions),
    Dword(L"SubjectInCallLog", &Settings::subject_in_call_log, kResetOptions),
    Dword(L"ExitMenu", &Settings::exit_menu, kResetOptions),
    Dword(L"DeleteConfirm", &Settings::delete_confirm, kResetOptions),
    Dword(L"NDays", &Settings::n_days, kResetViews),
    Dword(L"ADays", &Settings::a_days, kResetViews),
    Dword(L"TodayInFuture", &Settings::today_in_future, kResetViews),
    Dword(L"TodayInPast", &Settings::today_in_past, kResetViews),
    Dword(L"ContactInsertMode", &Settings::contact_insert_mode, kResetOptions),
    Dword(L"CallInsertMode", &Settings::call_insert_mode, kResetOptions),
    Dword(L"RenameCopy", &Settings::rename_copy, kResetOptions),
    Dword(L"DelReminderOnComplete", &Settings::del_reminder_on_complete, kResetOptions),
    Dword(L"NoEndScroll", &Settings::no_end_scroll, kResetAppearance),
    Dword(L"UndatedInActive", &Settings::undated_in_active, kResetViews),
    Dword(L"ShowCompleted", &Settings::show_completed, kResetViews),
    {L"Shortcuts", Kind::kShortcuts, kResetShortcuts},
    Text(L"Search", &Settings::search, 0),
    Text(L"Path", &Settings::path, 0),
    Dword(L"VersionMajor", &Settings::version_major, 0),
    Dword(L"VersionMinor", &Settings::version_minor, 0),
};

}  // namespace

std::span<const Entry> Entries() { return kEntries; }

std::wstring MyTextName(int index) { return L"Txt" + std::to_wstring(index + 1); }
std::wstring LongTextName(int index) { return L"NTxt" + std::to_wstring(index + 1); }

void CopySetting(const Entry& entry, const Settings& from, Settings& to) {
  switch (entry.kind) {
    case Kind::kDword:
    case Kind::kViewOffset:
      to.*entry.dword = from.*entry.dword;
      break;
    case Kind::kSignedDword:
      to.*entry.signed_dword = from.*entry.signed_dword;
      break;
    case Kind::kText:
      to.*entry.text = from.*entry.text;
      break;
    case Kind::kSort:
      to.sort = from.sort;
      break;
    case Kind::kShortcuts:
      to.shortcuts = from.shortcuts;
      break;
  }
}

}  // namespace velmo::settings_table
