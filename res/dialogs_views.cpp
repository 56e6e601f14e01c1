// The task summary's and the recurrence dialog's tables.
#include "res/dialogs_views.h"

#include "platform/ui/button.h"
#include "platform/ui/date_picker.h"
#include "platform/ui/edit.h"
#include "platform/ui/messages.h"
#include "platform/ui/spinner.h"
#include "res/command_ids.h"
#include "res/menus_app.h"

namespace velmo::res {
namespace {

constexpr UINT kRadio = 0x0200;  // MFT_RADIOCHECK
constexpr UINT kTextPriority = 41710;
constexpr MenuItemDef kSeparator{};

constexpr DialogItemDef kSummaryItems[] = {
    {kTaskSummaryPageClass, 0, kTaskSummaryPage, WS_TABSTOP, 0, 0, 0, 0},
};

constexpr MenuItemDef kSummaryPriorityItems[] = {
    {cmd::kHigh, cmd::kHigh, nullptr, kRadio},
    {cmd::kNormal, cmd::kNormal, nullptr, kRadio},
    {cmd::kLow, cmd::kLow, nullptr, kRadio},
};
constexpr MenuDef kSummaryPriorityMenu{kSummaryPriorityItems};

// The commands of the task that make sense while reading it; the main window
// carries out the one chosen on the selected task.
constexpr MenuItemDef kSummaryMenuItems[] = {
    {cmd::kCompleteOrActivate, cmd::kCompleteOrActivate},
    {0, kTextPriority, &kSummaryPriorityMenu},
    {cmd::kDueDate, cmd::kDueDate},
    {cmd::kTeamTask, cmd::kTeamTask},
    {cmd::kNotes, cmd::kNotes},
    kSeparator,
    {cmd::kRename, cmd::kRename},
    {cmd::kCreateCopy, cmd::kCreateCopy},
    {cmd::kDelete, cmd::kDelete},
};
constexpr MenuDef kSummaryMenu{kSummaryMenuItems};

constexpr DWORD kSpinList = WS_TABSTOP;
constexpr DWORD kSpinButtons = UDS_AUTOBUDDY | UDS_ARROWKEYS | UDS_WRAP;
constexpr DWORD kNumber = WS_TABSTOP | ES_NUMBER;
constexpr DWORD kNumberButtons = UDS_AUTOBUDDY | UDS_ARROWKEYS | UDS_SETBUDDYINT;
constexpr DWORD kDayBox = WS_TABSTOP | BS_AUTOCHECKBOX;
constexpr int kLabel = -1;
constexpr int kField = 15;  // where the fields start, after their labels

// Labels 41821-41829: "Repeats:", "Every:", "On:", "Day:", "Week:", "Month:",
// "Ends:", "End date:", "Occurrences:".
constexpr DialogItemDef kRecurrenceItems[] = {
    {WC_STATICW, 41821, kLabel, 0, 0, 0, kField, 1},
    {WC_LISTBOXW, 0, kRecurType, kSpinList, kField + 1, 0, 24, 1},
    {UPDOWN_CLASSW, 0, kRecurType + 1, kSpinButtons, 0, 0, 1, 1},
    {WC_STATICW, 41822, kLabel, 0, 0, 1, kField, 1},
    {WC_EDITW, 0, kRecurInterval, kNumber, kField + 1, 1, 4, 1},
    {UPDOWN_CLASSW, 0, kRecurInterval + 1, kNumberButtons, 0, 0, 1, 1},
    {WC_STATICW, 0, kRecurUnit, 0, kField + 7, 1, 12, 1},
    {WC_STATICW, 41823, kLabel, 0, 0, 2, kField, 1},
    {WC_BUTTONW, 0, kRecurFirstDay + 0, kDayBox, kField, 2, 8, 1},
    {WC_BUTTONW, 0, kRecurFirstDay + 1, kDayBox, kField + 8, 2, 8, 1},
    {WC_BUTTONW, 0, kRecurFirstDay + 2, kDayBox, kField + 16, 2, 8, 1},
    {WC_BUTTONW, 0, kRecurFirstDay + 3, kDayBox, kField + 24, 2, 8, 1},
    {WC_BUTTONW, 0, kRecurFirstDay + 4, kDayBox, kField, 3, 8, 1},
    {WC_BUTTONW, 0, kRecurFirstDay + 5, kDayBox, kField + 8, 3, 8, 1},
    {WC_BUTTONW, 0, kRecurFirstDay + 6, kDayBox, kField + 16, 3, 8, 1},
    {WC_STATICW, 41824, kLabel, 0, 0, 4, kField, 1},
    {WC_EDITW, 0, kRecurDayOfMonth, kNumber, kField + 1, 4, 3, 1},
    {UPDOWN_CLASSW, 0, kRecurDayOfMonth + 1, kNumberButtons, 0, 0, 1, 1},
    {WC_STATICW, 41825, kLabel, 0, 0, 5, kField, 1},
    {WC_LISTBOXW, 0, kRecurInstance, kSpinList, kField + 1, 5, 8, 1},
    {UPDOWN_CLASSW, 0, kRecurInstance + 1, kSpinButtons, 0, 0, 1, 1},
    {WC_STATICW, 41826, kLabel, 0, 0, 6, kField, 1},
    {WC_LISTBOXW, 0, kRecurMonth, kSpinList, kField + 1, 6, 14, 1},
    {UPDOWN_CLASSW, 0, kRecurMonth + 1, kSpinButtons, 0, 0, 1, 1},
    {WC_STATICW, 41827, kLabel, 0, 0, 8, kField, 1},
    {WC_LISTBOXW, 0, kRecurEnd, kSpinList, kField + 1, 8, 32, 1},
    {UPDOWN_CLASSW, 0, kRecurEnd + 1, kSpinButtons, 0, 0, 1, 1},
    {WC_STATICW, 41828, kLabel, 0, 0, 9, kField, 1},
    {DATETIMEPICK_CLASSW, 0, kRecurEndDate, WS_TABSTOP, kField + 1, 9, 20, 1},
    {WC_STATICW, 41829, kLabel, 0, 0, 10, kField, 1},
    {WC_EDITW, 0, kRecurCount, kNumber, kField + 1, 10, 4, 1},
    {UPDOWN_CLASSW, 0, kRecurCount + 1, kNumberButtons, 0, 0, 1, 1},
    {WC_STATICW, 0, kRecurDescription, 0, 0, 12, 0, 2},
    {WC_STATICW, 0, kRecurNext, 0, 0, 14, 0, 1},
};

}  // namespace

const DialogDef kTaskSummaryDialog{kTextSummaryTitle, kSummaryItems};
const SoftKeyBarDef kTaskSummaryBar{{cmd::kEdit, cmd::kEdit, nullptr},
                                    {kTextMenu, 0, &kSummaryMenu}};
const DialogDef kRecurrenceDialog{kTextRecurrenceTitle, kRecurrenceItems};

}  // namespace velmo::res
