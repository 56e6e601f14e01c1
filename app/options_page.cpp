// The "Options" page: the input mode of text fields and the switches of the
// task commands. The contact and call insertion modes and the call-history
// subject are kept in the registry but not offered: nothing here inserts
// contacts or calls.
#include "app/settings_page.h"
#include "app/settings_pages.h"
#include "res/dialogs_settings.h"
#include "settings/input_modes.h"

namespace velmo::app {
namespace {

using namespace res::settings_id;
using K = FieldKind;

constexpr auto kInputModeNames = NameIds(kInputModes);

const PageField kFields[] = {
    {kInputMode, K::kChoice, &Settings::input_mode, nullptr, nullptr, kInputModeNames},
    {kDeleteConfirm, K::kCheck, &Settings::delete_confirm},
    {kRenameCopy, K::kCheck, &Settings::rename_copy},
    {kDelReminderOnComplete, K::kCheck, &Settings::del_reminder_on_complete},
    {kDatesInput, K::kCheck, &Settings::dates_input},
    {kExitMenu, K::kCheck, &Settings::exit_menu},
};

const PageDef kPage{res::kOptionsPage, kFields};

}  // namespace

INT_PTR ShowOptionsPage(HWND owner) { return RunSettingsPage(owner, kPage); }

}  // namespace velmo::app
