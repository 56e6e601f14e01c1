// The "ActiveSync" page: the reminder difference between the computer and the
// phone, the notes resolution after a synchronisation, and the reminder time
// of tasks reminded on their due day.
#include "app/settings_page.h"
#include "app/settings_pages.h"
#include "res/dialogs_settings.h"

namespace velmo::app {
namespace {

using namespace res::settings_id;
using K = FieldKind;

constexpr LONG kMostHoursApart = 24;

const PageField kFields[] = {
    {kReminderDelta, K::kNumber, nullptr, &Settings::reminder_delta, nullptr, {},
     -kMostHoursApart, kMostHoursApart},
    {kNotesSynchro, K::kCheck, &Settings::notes_synchro},
    {kReminderTime, K::kTime, &Settings::reminder_time},
};

const PageDef kPage{res::kActiveSyncPage, kFields};

}  // namespace

INT_PTR ShowActiveSyncPage(HWND owner) { return RunSettingsPage(owner, kPage); }

}  // namespace velmo::app
