// The main window's menus and soft-key bars.
#include "res/menus_app.h"

#include "platform/ui/edit.h"
#include "platform/ui/messages.h"
#include "res/command_ids.h"

namespace velmo::res {
namespace {

constexpr UINT kRadio = 0x0200;  // MFT_RADIOCHECK
constexpr MenuItemDef kSeparator{};

constexpr UINT kTextTask = 41702, kTextView = 41703, kTextFilter = 41704, kTextSortBy = 41705,
               kTextDelete = 41706, kTextSettings = 41707, kTextSend = 41708, kTextBeam = 41709,
               kTextPriority = 41710;

constexpr MenuItemDef kPriorityItems[] = {
    {cmd::kHigh, cmd::kHigh, nullptr, kRadio},
    {cmd::kNormal, cmd::kNormal, nullptr, kRadio},
    {cmd::kLow, cmd::kLow, nullptr, kRadio},
};
constexpr MenuDef kPriorityMenu{kPriorityItems};

constexpr MenuItemDef kBeamItems[] = {
    {cmd::kBeamTask, cmd::kBeamTask},
    {cmd::kBeamDisplayed, cmd::kBeamDisplayed},
    {cmd::kBeamAll, cmd::kBeamAll},
};
constexpr MenuDef kBeamMenu{kBeamItems};

constexpr MenuItemDef kSendItems[] = {
    {cmd::kSaveToFile, cmd::kSaveToFile},
    {cmd::kSendMessaging, cmd::kSendMessaging},
    {0, kTextBeam, &kBeamMenu},
};
constexpr MenuDef kSendMenu{kSendItems};

// The menu of the selected task; the links part puts the task's links on top.
constexpr MenuItemDef kTaskItems[] = {
    {cmd::kView, cmd::kView},
    {cmd::kEdit, cmd::kEdit},
    {cmd::kRename, cmd::kRename},
    {cmd::kCreateCopy, cmd::kCreateCopy},
    {cmd::kDelete, cmd::kDelete},
    kSeparator,
    {0, kTextPriority, &kPriorityMenu},
    {cmd::kDueDate, cmd::kDueDate},
    {cmd::kTeamTask, cmd::kTeamTask},
    {cmd::kNotes, cmd::kNotes},
    {cmd::kChangeCategories, cmd::kChangeCategories},
    {cmd::kLinksView, cmd::kLinksView},
    kSeparator,
    {0, kTextSend, &kSendMenu},
};
constexpr MenuDef kTaskMenu{kTaskItems};

constexpr MenuItemDef kViewItems[] = {
    {40050, 40050, nullptr, kRadio}, {40051, 40051, nullptr, kRadio},
    {40052, 40052, nullptr, kRadio}, {40053, 40053, nullptr, kRadio},
    {40054, 40054, nullptr, kRadio}, {40055, 40055, nullptr, kRadio},
    {40056, 40056, nullptr, kRadio}, {40057, 40057, nullptr, kRadio},
    {40058, 40058, nullptr, kRadio},
    kSeparator,
    {40048, 40048},  // "Default View"
    {40049, 40049},  // "Set as Default"
    {cmd::kToggleCompact, cmd::kToggleCompact},
};
constexpr MenuDef kViewMenu{kViewItems};

// The category items are inserted before "Multiple..." as the tasks change.
constexpr MenuItemDef kFilterItems[] = {
    {cmd::kAllCategories, cmd::kAllCategories},
    {cmd::kMultipleCategories, cmd::kMultipleCategories},
};
constexpr MenuDef kFilterMenu{kFilterItems};

// "Sort by" items 39950.. are the sort keys 1.. (texts 480 + key).
constexpr MenuItemDef kSortItems[] = {
    {39950, 481, nullptr, kRadio}, {39951, 482, nullptr, kRadio}, {39952, 483, nullptr, kRadio},
    {39953, 484, nullptr, kRadio}, {39954, 485, nullptr, kRadio}, {39955, 486, nullptr, kRadio},
    {39956, 487, nullptr, kRadio}, {39957, 488, nullptr, kRadio}, {39958, 489, nullptr, kRadio},
    {39959, 490, nullptr, kRadio},
};
constexpr MenuDef kSortMenu{kSortItems};

constexpr MenuItemDef kDeleteItems[] = {
    {cmd::kDeleteCompleted, cmd::kDeleteCompleted},
    {cmd::kDeleteDisplayed, cmd::kDeleteDisplayed},
};
constexpr MenuDef kDeleteMenu{kDeleteItems};

constexpr MenuItemDef kSettingsItems[] = {
    {cmd::kSettingsOptions, cmd::kSettingsOptions},
    {cmd::kSettingsViews, cmd::kSettingsViews},
    {cmd::kSettingsNewTasks, cmd::kSettingsNewTasks},
    {cmd::kSettingsActiveSync, cmd::kSettingsActiveSync},
    {cmd::kSettingsAppearance, cmd::kSettingsAppearance},
    {cmd::kSettingsShortcuts, cmd::kSettingsShortcuts},
    {cmd::kSettingsMyText, cmd::kSettingsMyText},
    {cmd::kSettingsReset, cmd::kSettingsReset},
};
constexpr MenuDef kSettingsMenu{kSettingsItems};

// "Exit" stays only with the "ExitMenu" setting.
constexpr MenuItemDef kMainItems[] = {
    {cmd::kNew, cmd::kNew},
    {0, kTextTask, &kTaskMenu},
    {0, kTextView, &kViewMenu},
    {0, kTextFilter, &kFilterMenu},
    {0, kTextSortBy, &kSortMenu},
    {0, kTextDelete, &kDeleteMenu},
    {0, kTextSettings, &kSettingsMenu},
    {cmd::kExit, cmd::kExit},
};

constexpr MenuItemDef kQuickEntryItems[] = {
    {cmd::kHigh, cmd::kHigh, nullptr, kRadio},
    {cmd::kNormal, cmd::kNormal, nullptr, kRadio},
    {cmd::kLow, cmd::kLow, nullptr, kRadio},
    kSeparator,
    {cmd::kSensitivityNormal, cmd::kSensitivityNormal, nullptr, kRadio},
    {cmd::kSensitivityPrivate, cmd::kSensitivityPrivate, nullptr, kRadio},
    {cmd::kTeamTask, cmd::kTeamTask},
    {cmd::kQuickReminder, cmd::kQuickReminder},
    kSeparator,
    {cmd::kDueDate, cmd::kDueDate},
    {cmd::kChangeCategories, cmd::kChangeCategories},
};

}  // namespace

const MenuDef kMainMenu{kMainItems};
const MenuDef kQuickEntryMenu{kQuickEntryItems};
const SoftKeyBarDef kListBar{{kTextComplete, cmd::kCompleteOrActivate, nullptr},
                             {kTextMenu, 0, &kMainMenu}};
const SoftKeyBarDef kQuickEntryBar{{kTextDone, cmd::kQuickEntryEnter, nullptr},
                                   {kTextMenu, 0, &kQuickEntryMenu}};

namespace {
constexpr DialogItemDef kRenameItems[] = {
    {WC_STATICW, kTextSubjectLabel, 0, 0, 1, 0, -1, 1},
    {WC_EDITW, 0, kRenameSubjectField, WS_TABSTOP | ES_AUTOHSCROLL, 1, 1, -1, 1},
};
}  // namespace

const DialogDef kRenameDialog{kTextRenameTitle, kRenameItems};
const SoftKeyBarDef kDoneCancelBar{{kTextDone, IDOK, nullptr}, {kTextCancel, IDCANCEL, nullptr}};

}  // namespace velmo::res
