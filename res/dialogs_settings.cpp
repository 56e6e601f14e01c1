// The settings pages' tables. Labels take the left of a line, their fields
// follow; a spinner list leaves a cell free on each side for its marks.
#include "res/dialogs_settings.h"

#include "platform/ui/button.h"
#include "platform/ui/date_picker.h"
#include "platform/ui/edit.h"
#include "platform/ui/messages.h"
#include "platform/ui/spinner.h"

namespace velmo::res {
namespace {

using namespace settings_id;

constexpr DWORD kCheck = WS_TABSTOP | BS_AUTOCHECKBOX;
constexpr DWORD kList = WS_TABSTOP | LBS_NOTIFY;
constexpr DWORD kSpin = UDS_AUTOBUDDY | UDS_ARROWKEYS | UDS_WRAP;
constexpr DWORD kNumber = WS_TABSTOP | ES_NUMBER;
constexpr DWORD kNumberSpin = UDS_AUTOBUDDY | UDS_ARROWKEYS | UDS_SETBUDDYINT;
constexpr DWORD kTime = WS_TABSTOP | DTS_TIMEFORMAT;
constexpr int kNoId = -1;

// Page titles are the menu texts of their commands.
constexpr UINT kTitleOptions = 40025, kTitleViews = 40026, kTitleNewTasks = 40027,
               kTitleActiveSync = 40028, kTitleAppearance = 40029, kTitleMyText = 40031,
               kTitleReset = 40035;

constexpr DialogItemDef kOptionsItems[] = {
    {WC_STATICW, 44700, kNoId, 0, 0, 0, 18, 1},  // "Input mode:"
    {WC_LISTBOXW, 0, kInputMode, kList, 20, 0, 22, 1},
    {UPDOWN_CLASSW, 0, kInputMode + 1, kSpin, 0, 0, 1, 1},
    {WC_STATICW, 44706, kNoId, 0, 0, 1, 18, 1},  // "Insert contact as:"
    {WC_LISTBOXW, 0, kContactInsertMode, kList, 20, 1, 22, 1},
    {UPDOWN_CLASSW, 0, kContactInsertMode + 1, kSpin, 0, 0, 1, 1},
    {WC_STATICW, 44708, kNoId, 0, 0, 2, 18, 1},  // "Insert call as:"
    {WC_LISTBOXW, 0, kCallInsertMode, kList, 20, 2, 22, 1},
    {UPDOWN_CLASSW, 0, kCallInsertMode + 1, kSpin, 0, 0, 1, 1},
    {WC_BUTTONW, 44701, kDeleteConfirm, kCheck, 0, 3, 0, 1},
    {WC_BUTTONW, 44702, kRenameCopy, kCheck, 0, 4, 0, 1},
    {WC_BUTTONW, 44703, kDelReminderOnComplete, kCheck, 0, 5, 0, 1},
    {WC_BUTTONW, 44704, kDatesInput, kCheck, 0, 6, 0, 1},
    {WC_BUTTONW, 44705, kExitMenu, kCheck, 0, 7, 0, 1},
    {WC_BUTTONW, 44707, kSubjectInCallLog, kCheck, 0, 8, 0, 1},
};

// One sort row: its label, the key list and the direction list.
#define VELMO_SORT_ROW(n, label)                                                        \
  {WC_STATICW, label, kNoId, 0, 0, 10 + (n), 12, 1},                                    \
      {WC_LISTBOXW, 0, kSortKeyFirst + 4 * (n), kList, 15, 10 + (n), 15, 1},            \
      {UPDOWN_CLASSW, 0, kSortKeyFirst + 4 * (n) + 1, kSpin, 0, 0, 1, 1},               \
      {WC_LISTBOXW, 0, kSortKeyFirst + 4 * (n) + 2, kList, 33, 10 + (n), 22, 1},        \
      {UPDOWN_CLASSW, 0, kSortKeyFirst + 4 * (n) + 3, kSpin, 0, 0, 1, 1}

constexpr DialogItemDef kViewsItems[] = {
    {WC_BUTTONW, 44710, kShowCompleted, kCheck, 0, 0, 0, 1},   // "Show completed tasks"
    {WC_BUTTONW, 44711, kUndatedInActive, kCheck, 0, 1, 0, 1}, // "Show undated tasks"
    {WC_STATICW, 44712, kNoId, 0, 0, 2, 30, 1},                // "Next days:"
    {WC_EDITW, 0, kNDays, kNumber, 31, 2, 4, 1},
    {UPDOWN_CLASSW, 0, kNDays + 1, kNumberSpin, 0, 0, 1, 1},
    {WC_STATICW, 44713, kNoId, 0, 0, 3, 30, 1},  // "Tasks starting or due within:"
    {WC_EDITW, 0, kADays, kNumber, 31, 3, 4, 1},
    {UPDOWN_CLASSW, 0, kADays + 1, kNumberSpin, 0, 0, 1, 1},
    {WC_STATICW, 44714, kNoId, 0, 0, 4, 0, 1},                 // "Add today tasks in:"
    {WC_BUTTONW, 44715, kTodayInFuture, kCheck, 2, 5, 0, 1},   // "Next Days and Future"
    {WC_BUTTONW, 44716, kTodayInPast, kCheck, 2, 6, 0, 1},     // "Overdue"
    {WC_BUTTONW, 44717, kSameSort, kCheck, 0, 8, 0, 1},        // "Same sort for all views"
    {WC_STATICW, 44718, kNoId, 0, 0, 9, 13, 1},                // "Sort tasks by"
    {WC_LISTBOXW, 0, kSortView, kList, 15, 9, 15, 1},
    {UPDOWN_CLASSW, 0, kSortView + 1, kSpin, 0, 0, 1, 1},
    VELMO_SORT_ROW(0, 44719),  // "First Sort"
    VELMO_SORT_ROW(1, 44720),  // "Second Sort"
    VELMO_SORT_ROW(2, 44721),  // "Third Sort"
};
#undef VELMO_SORT_ROW

constexpr DialogItemDef kNewTasksItems[] = {
    {WC_STATICW, 44730, kNoId, 0, 0, 0, 14, 1},  // "Categories:"; the action key opens the dialog
    {WC_LISTBOXW, 0, kCategoriesForNew, kList, 15, 0, 40, 1},
    {UPDOWN_CLASSW, 0, kCategoriesForNew + 1, kSpin, 0, 0, 1, 1},
    {WC_STATICW, 44731, kNoId, 0, 0, 2, 14, 1},  // "Priority:"
    {WC_LISTBOXW, 0, kImportanceForNew, kList, 15, 2, 10, 1},
    {UPDOWN_CLASSW, 0, kImportanceForNew + 1, kSpin, 0, 0, 1, 1},
    {WC_STATICW, 44732, kNoId, 0, 0, 3, 14, 1},  // "Sensitivity:"
    {WC_LISTBOXW, 0, kSensitivityForNew, kList, 15, 3, 10, 1},
    {UPDOWN_CLASSW, 0, kSensitivityForNew + 1, kSpin, 0, 0, 1, 1},
    {WC_BUTTONW, 44733, kTeamTaskForNew, kCheck, 0, 4, 0, 1},      // "Team task"
    {WC_BUTTONW, 44734, kFilteredCatForNew, kCheck, 0, 5, 0, 1},   // "Use the filtered category"
    {WC_BUTTONW, 44735, kReminderForNew, kCheck, 0, 6, 0, 1},      // "Set reminders on ..."
    {WC_STATICW, 44736, kNoId, 0, 0, 7, 14, 1},                    // "Reminder time:"
    {DATETIMEPICK_CLASSW, 0, kReminderTimeForNew, kTime, 15, 7, 12, 1},
};

constexpr DialogItemDef kActiveSyncItems[] = {
    {WC_STATICW, 44740, kNoId, 0, 0, 0, 26, 1},  // "Reminder diff. (PC/phone)"
    {WC_EDITW, 0, kReminderDelta, WS_TABSTOP, 27, 0, 4, 1},
    {UPDOWN_CLASSW, 0, kReminderDelta + 1, kNumberSpin, 0, 0, 1, 1},
    {WC_STATICW, 44741, kNoId, 0, 33, 0, 0, 1},               // "hours"
    {WC_BUTTONW, 44742, kNotesSynchro, kCheck, 0, 1, 0, 1},   // "Resolve Notes synchro."
    {WC_STATICW, 44743, kNoId, 0, 0, 2, 26, 1},               // "Reminder time on due date:"
    {DATETIMEPICK_CLASSW, 0, kReminderTime, kTime, 27, 2, 12, 1},
};

// One colour or style list in the left column, by its line.
#define VELMO_LIST_ROW(id, label, y)                            \
  {WC_STATICW, label, kNoId, 0, 0, y, 21, 1},                   \
      {WC_LISTBOXW, 0, id, kList, 23, y, 19, 1},                \
      {UPDOWN_CLASSW, 0, (id) + 1, kSpin, 0, 0, 1, 1}
// One field of the information lists in the right column: normal, compact, name.
#define VELMO_INFO_ROW(n, label)                                                    \
  {WC_BUTTONW, 0, kInfosFirst + (n), kCheck, 45, 1 + (n), 2, 1},                    \
      {WC_BUTTONW, 0, kInfosCompressedFirst + (n), kCheck, 49, 1 + (n), 2, 1},      \
      {WC_STATICW, label, kNoId, 0, 52, 1 + (n), 0, 1}

constexpr DialogItemDef kAppearanceItems[] = {
    VELMO_LIST_ROW(kNormalColor, 44750, 0),         // "Pending color:"
    VELMO_LIST_ROW(kFutureColor, 44751, 1),         // "Future color:"
    VELMO_LIST_ROW(kOverdueColor, 44752, 2),        // "Overdue color:"
    VELMO_LIST_ROW(kCompletedColor, 44753, 3),      // "Completed color:"
    VELMO_LIST_ROW(kUndatedColor, 44754, 4),        // "Undated color:"
    VELMO_LIST_ROW(kHighlightColor, 44755, 5),      // "Selection color:"
    VELMO_LIST_ROW(kHighlightTextColor, 44756, 6),  // "Selection text:"
    VELMO_LIST_ROW(kNotesPreview, 44757, 7),        // "Preview pane (Notes):"
    VELMO_LIST_ROW(kNotesPreviewColor, 44758, 8),   // "Preview color:"
    VELMO_LIST_ROW(kNormalFont, 44759, 9),          // "Font:"
    VELMO_LIST_ROW(kTodayFont, 44764, 10),          // "Today font:"
    {WC_BUTTONW, 44767, kGradient, kCheck, 0, 12, 42, 1},     // "Draws a background gradient"
    {WC_BUTTONW, 44768, kCompressed, kCheck, 0, 13, 42, 1},   // "Compact list by default"
    {WC_BUTTONW, 44769, kQuickEntry, kCheck, 0, 14, 42, 1},   // "Show Task entry bar"
    {WC_BUTTONW, 44770, kNoEndScroll, kCheck, 0, 15, 42, 1},  // "No end scroll for tasks list"
    {WC_BUTTONW, 44771, kEditCompact, kCheck, 0, 16, 42, 1},  // "Use compact edit view"
    {WC_STATICW, 44772, kNoId, 0, 44, 0, 0, 1},  // "List  Compact"
    VELMO_INFO_ROW(0, 44780),   // "Start date"
    VELMO_INFO_ROW(1, 44781),   // "Due date"
    VELMO_INFO_ROW(2, 44782),   // "Days to due date"
    VELMO_INFO_ROW(3, 44783),   // "Date completed"
    VELMO_INFO_ROW(4, 44784),   // "Priority"
    VELMO_INFO_ROW(5, 44785),   // "Recurrence"
    VELMO_INFO_ROW(6, 44786),   // "Team task"
    VELMO_INFO_ROW(7, 44787),   // "Reminder"
    VELMO_INFO_ROW(8, 44788),   // "Notes"
    VELMO_INFO_ROW(9, 44789),   // "Private"
    VELMO_INFO_ROW(10, 44790),  // "Category icons"
    VELMO_INFO_ROW(11, 44791),  // "Links"
};
#undef VELMO_LIST_ROW
#undef VELMO_INFO_ROW

constexpr DialogItemDef kMyTextItems[] = {
    {WC_LISTBOXW, 0, kMyTextChoice, kList, 1, 0, 20, 1},
    {UPDOWN_CLASSW, 0, kMyTextChoice + 1, kSpin, 0, 0, 1, 1},
    {WC_EDITW, 0, kMyTextEdit, WS_TABSTOP | ES_MULTILINE | ES_AUTOVSCROLL | ES_WANTRETURN, 0, 2,
     0, 0},
};

// In ResetGroup bit order: Options, Views, Default view, New Tasks, Appearance,
// Shortcuts, My Text, ActiveSync.
constexpr DialogItemDef kResetItems[] = {
    {WC_STATICW, 44795, kNoId, 0, 0, 0, 0, 1},  // "Restore the defaults of:"
    {WC_BUTTONW, 40025, kResetFirst + 0, kCheck, 0, 1, 0, 1},
    {WC_BUTTONW, 40026, kResetFirst + 1, kCheck, 0, 2, 0, 1},
    {WC_BUTTONW, 44796, kResetFirst + 2, kCheck, 0, 3, 0, 1},  // "Default view"
    {WC_BUTTONW, 40027, kResetFirst + 3, kCheck, 0, 4, 0, 1},
    {WC_BUTTONW, 40029, kResetFirst + 4, kCheck, 0, 5, 0, 1},
    {WC_BUTTONW, 40030, kResetFirst + 5, kCheck, 0, 6, 0, 1},
    {WC_BUTTONW, 40031, kResetFirst + 6, kCheck, 0, 7, 0, 1},
    {WC_BUTTONW, 40028, kResetFirst + 7, kCheck, 0, 8, 0, 1},
};

}  // namespace

const DialogDef kOptionsPage{kTitleOptions, kOptionsItems};
const DialogDef kViewsPage{kTitleViews, kViewsItems};
const DialogDef kNewTasksPage{kTitleNewTasks, kNewTasksItems};
const DialogDef kActiveSyncPage{kTitleActiveSync, kActiveSyncItems};
const DialogDef kAppearancePage{kTitleAppearance, kAppearanceItems};
const DialogDef kMyTextPage{kTitleMyText, kMyTextItems};
const DialogDef kResetPage{kTitleReset, kResetItems};

}  // namespace velmo::res
