// The task editor's layouts and menu as tables.
#include "res/dialogs_editor.h"

#include "platform/ui/button.h"
#include "platform/ui/date_picker.h"
#include "platform/ui/edit.h"
#include "platform/ui/spinner.h"
#include "platform/ui/messages.h"
#include "res/command_ids.h"

namespace velmo::res {
namespace {

using namespace editor_id;

constexpr DWORD kTab = WS_TABSTOP;
constexpr DWORD kText = WS_TABSTOP | ES_AUTOHSCROLL;
constexpr DWORD kNotesStyle = WS_TABSTOP | ES_MULTILINE | ES_AUTOVSCROLL;
constexpr DWORD kList = WS_TABSTOP | LBS_NOTIFY;
constexpr DWORD kSpin = UDS_AUTOBUDDY | UDS_ALIGNRIGHT | UDS_HORZ | UDS_ARROWKEYS | UDS_EXPANDABLE;
constexpr DWORD kDate = WS_TABSTOP | DTS_SHOWNONE | DTS_SHORTDATEFORMAT;
constexpr DWORD kCheck = WS_TABSTOP | BS_AUTOCHECKBOX;
constexpr DWORD kReadOnly = ES_READONLY;

// Labels of the full layout.
constexpr UINT kLabelSubject = 42000, kLabelPriority = 42001, kLabelStart = 42002,
               kLabelDue = 42003, kLabelReminder = 42004, kLabelOccurs = 42005,
               kLabelEnd = 42006, kLabelSensitivity = 42007, kLabelTeam = 42008,
               kLabelCompleted = 42009, kLabelCategories = 42010, kLabelNotes = 42011;
constexpr UINT kTitleEdit = 163;

// Full layout: each field on the line under its label.
constexpr DialogItemDef kFullItems[] = {
    {WC_STATICW, kLabelSubject, 0, 0, 0, 0, 0, 1},
    {WC_EDITW, 0, kSubject, kText, 0, 1, 0, 1},
    {WC_STATICW, kLabelPriority, 0, 0, 0, 2, 0, 1},
    {WC_LISTBOXW, 0, kPriority, kList, 1, 3, 16, 1},
    {UPDOWN_CLASSW, 0, kPriorityUpDown, kSpin, 18, 3, 1, 1},
    {WC_STATICW, kLabelStart, 0, 0, 0, 4, 0, 1},
    {DATETIMEPICK_CLASSW, 0, kStart, kDate, 0, 5, 24, 1},
    {WC_STATICW, kLabelDue, 0, 0, 0, 6, 0, 1},
    {DATETIMEPICK_CLASSW, 0, kDue, kDate, 0, 7, 24, 1},
    {WC_STATICW, kLabelReminder, 0, 0, 0, 8, 0, 1},
    {DATETIMEPICK_CLASSW, 0, kReminder, kDate, 0, 9, 30, 1},
    {WC_STATICW, kLabelOccurs, 0, 0, 0, 10, 0, 1},
    {WC_LISTBOXW, 0, kOccurs, kList, 1, 11, 46, 1},
    {UPDOWN_CLASSW, 0, kOccursUpDown, kSpin, 48, 11, 1, 1},
    {WC_STATICW, kLabelEnd, 0, 0, 0, 12, 0, 1},
    {DATETIMEPICK_CLASSW, 0, kRecurrenceEnd, kDate, 0, 13, 24, 1},
    {WC_EDITW, 0, kOccurrences, kReadOnly, 27, 13, 12, 1},
    {UPDOWN_CLASSW, 0, kOccurrencesUpDown, UDS_AUTOBUDDY | UDS_ALIGNRIGHT, 40, 13, 1, 1},
    {WC_STATICW, kLabelSensitivity, 0, 0, 0, 14, 0, 1},
    {WC_LISTBOXW, 0, kSensitivity, kList, 1, 15, 16, 1},
    {UPDOWN_CLASSW, 0, kSensitivityUpDown, kSpin, 18, 15, 1, 1},
    {WC_BUTTONW, kLabelTeam, kTeamTask, kCheck, 0, 16, 20, 1},
    {WC_BUTTONW, kLabelCompleted, kCompleted, kCheck, 24, 16, 20, 1},
    {WC_STATICW, kLabelCategories, 0, 0, 0, 17, 0, 1},
    {WC_LISTBOXW, 0, kCategories, kList, 1, 18, 40, 1},
    {UPDOWN_CLASSW, 0, kCategoriesUpDown, kSpin, 42, 18, 1, 1},
    {WC_STATICW, kLabelNotes, 0, 0, 0, 19, 0, 1},
    {WC_EDITW, 0, kNotes, kNotesStyle, 0, 20, 0, 0},
};

// Compact layout: a glyph beside each field (texts 42030-42039); the notes
// fill the rest.
constexpr DialogItemDef kCompactItems[] = {
    {WC_EDITW, 0, kSubject, kText, 0, 0, 0, 1},
    {DATETIMEPICK_CLASSW, 0, kStart, kDate, 0, 1, 16, 1},
    {WC_STATICW, 42030, 0, 0, 17, 1, 1, 1},
    {DATETIMEPICK_CLASSW, 0, kDue, kDate, 19, 1, 16, 1},
    {DATETIMEPICK_CLASSW, 0, kReminder, kDate, 0, 2, 24, 1},
    {WC_STATICW, 42031, 0, 0, 25, 2, 1, 1},
    {WC_STATICW, 42032, 0, 0, 0, 3, 1, 1},
    {WC_LISTBOXW, 0, kOccurs, kList, 2, 3, 44, 1},
    {UPDOWN_CLASSW, 0, kOccursUpDown, kSpin, 47, 3, 1, 1},
    {WC_STATICW, 42033, 0, 0, 0, 4, 1, 1},
    {DATETIMEPICK_CLASSW, 0, kRecurrenceEnd, kDate, 2, 4, 16, 1},
    {WC_EDITW, 0, kOccurrences, kReadOnly, 20, 4, 9, 1},
    {UPDOWN_CLASSW, 0, kOccurrencesUpDown, UDS_AUTOBUDDY | UDS_ALIGNRIGHT, 30, 4, 1, 1},
    {WC_STATICW, 42034, 0, 0, 32, 4, 1, 1},
    {WC_LISTBOXW, 0, kCategories, kList, 34, 4, 30, 1},
    {UPDOWN_CLASSW, 0, kCategoriesUpDown, kSpin, 65, 4, 1, 1},
    {WC_STATICW, 42035, 0, 0, 0, 5, 1, 1},
    {WC_LISTBOXW, 0, kPriority, kList, 2, 5, 8, 1},
    {UPDOWN_CLASSW, 0, kPriorityUpDown, kSpin, 11, 5, 1, 1},
    {WC_BUTTONW, 0, kPrivate, kCheck, 13, 5, 2, 1},
    {WC_STATICW, 42036, 0, 0, 15, 5, 1, 1},
    {WC_BUTTONW, 0, kTeamTask, kCheck, 17, 5, 2, 1},
    {WC_STATICW, 42037, 0, 0, 19, 5, 1, 1},
    {WC_BUTTONW, 0, kCompleted, kCheck, 21, 5, 2, 1},
    {WC_STATICW, 42038, 0, 0, 23, 5, 1, 1},
    {WC_STATICW, 42039, kSeparator, 0, 0, 6, 0, 1},
    {WC_EDITW, 0, kNotes, kNotesStyle, 0, 7, 0, 0},
};

constexpr UINT kTextMenu = 42012, kTextSelectDay = 42013, kTextInsert = 42014,
               kTextShortDate = 42015, kTextLongDate = 42016, kTextSymbol = 42017,
               kTextDeleteTask = 42018;

constexpr MenuItemDef kSelectDayItems[] = {
    {40097, 40097}, {40098, 40098}, {40099, 40099},
    {40100, 40100}, {40101, 40101}, {40102, 40102},
};
constexpr MenuDef kSelectDayMenu{kSelectDayItems};

constexpr MenuItemDef kShortDateItems[] = {
    {40142, 40142}, {40143, 40143}, {40144, 40144},
    {40145, 40145}, {40146, 40146}, {40147, 40147},
};
constexpr MenuDef kShortDateMenu{kShortDateItems};
constexpr MenuItemDef kLongDateItems[] = {
    {40148, 40148}, {40149, 40149}, {40150, 40150},
    {40151, 40151}, {40152, 40152}, {40153, 40153},
};
constexpr MenuDef kLongDateMenu{kLongDateItems};
constexpr MenuItemDef kSymbolItems[] = {{47000, 47000}};
constexpr MenuDef kSymbolMenu{kSymbolItems};

constexpr MenuItemDef kInsertItems[] = {
    {40085, 40085},
    {40086, 40086},
    {40092, 40092},
    {0, kTextShortDate, &kShortDateMenu},
    {0, kTextLongDate, &kLongDateMenu},
    {40141, 40141},
    {40140, 40140},
    {0, kTextSymbol, &kSymbolMenu},
};
constexpr MenuDef kInsertMenu{kInsertItems};

constexpr MenuItemDef kEditorMenuItems[] = {
    {40107, 40107},
    {40094, 40094},
    {40095, 40095},
    {40096, 40096},
    {0, kTextSelectDay, &kSelectDayMenu},
    {40103, 40103},
    {40104, 40104},
    {MenuItemDef{}},
    {0, kTextInsert, &kInsertMenu},
    {MenuItemDef{}},
    {cmd::kDelete, kTextDeleteTask},
    {40022, 40022},
};
constexpr MenuDef kEditorMenu{kEditorMenuItems};

}  // namespace

const DialogDef kEditFullDialog{kTitleEdit, kFullItems};
const DialogDef kEditCompactDialog{kTitleEdit, kCompactItems};
const SoftKeyBarDef kEditorBar{{40023, 40023, nullptr}, {kTextMenu, 0, &kEditorMenu}};

}  // namespace velmo::res
