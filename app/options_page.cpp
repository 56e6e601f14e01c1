// The "Options" page: the input mode of text fields, how a contact and a call
// are inserted, and the switches of the task commands.
#include "app/settings_page.h"
#include "app/settings_pages.h"
#include "res/dialogs_settings.h"
#include "editor/call_insert.h"
#include "editor/contact_insert.h"
#include "settings/input_modes.h"

namespace velmo::app {
namespace {

using namespace res::settings_id;
using K = FieldKind;

constexpr auto kInputModeNames = NameIds(kInputModes);
constexpr UINT kContactModeNames[kContactInsertModeCount] = {
    kFirstContactInsertModeText,     kFirstContactInsertModeText + 1, kFirstContactInsertModeText + 2,
    kFirstContactInsertModeText + 3, kFirstContactInsertModeText + 4, kFirstContactInsertModeText + 5};
constexpr UINT kCallModeNames[kCallInsertModeCount] = {
    kFirstCallInsertModeText,     kFirstCallInsertModeText + 1, kFirstCallInsertModeText + 2,
    kFirstCallInsertModeText + 3, kFirstCallInsertModeText + 4, kFirstCallInsertModeText + 5};

const PageField kFields[] = {
    {kInputMode, K::kChoice, &Settings::input_mode, nullptr, nullptr, kInputModeNames},
    {kContactInsertMode, K::kChoice, &Settings::contact_insert_mode, nullptr, nullptr,
     kContactModeNames},
    {kCallInsertMode, K::kChoice, &Settings::call_insert_mode, nullptr, nullptr, kCallModeNames},
    {kDeleteConfirm, K::kCheck, &Settings::delete_confirm},
    {kRenameCopy, K::kCheck, &Settings::rename_copy},
    {kDelReminderOnComplete, K::kCheck, &Settings::del_reminder_on_complete},
    {kDatesInput, K::kCheck, &Settings::dates_input},
    {kExitMenu, K::kCheck, &Settings::exit_menu},
    {kSubjectInCallLog, K::kCheck, &Settings::subject_in_call_log},
};

const PageDef kPage{res::kOptionsPage, kFields};

}  // namespace

INT_PTR ShowOptionsPage(HWND owner) { return RunSettingsPage(owner, kPage); }

}  // namespace velmo::app
