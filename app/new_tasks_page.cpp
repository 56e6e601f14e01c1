// The "New Tasks" page: what a new task starts with.
#include "app/settings_page.h"
#include "app/settings_pages.h"
#include "res/dialogs_settings.h"

namespace velmo::app {
namespace {

using namespace res::settings_id;
using K = FieldKind;

constexpr LONG kMostCategoryChars = 1024;
// List position = stored value: importance 0 low, 1 normal, 2 high; sensitivity
// 0 normal, 1 private.
constexpr UINT kImportanceNames[] = {40015, 40014, 40013};  // "Low", "Normal", "High"
constexpr UINT kSensitivityNames[] = {39993, 39995};        // "Normal", "Private"

const PageField kFields[] = {
    {kCategoriesForNew, K::kText, nullptr, nullptr, &Settings::categories_for_new, {}, 0,
     kMostCategoryChars},
    {kImportanceForNew, K::kChoice, &Settings::importance_for_new, nullptr, nullptr,
     kImportanceNames},
    {kSensitivityForNew, K::kChoice, &Settings::sensitivity_for_new, nullptr, nullptr,
     kSensitivityNames},
    {kTeamTaskForNew, K::kCheck, &Settings::team_task_for_new},
    {kFilteredCatForNew, K::kCheck, &Settings::filtered_cat_for_new},
    {kReminderForNew, K::kCheck, &Settings::reminder_for_new},
    {kReminderTimeForNew, K::kTime, &Settings::reminder_time_for_new},
};

const PageDef kPage{res::kNewTasksPage, kFields};

}  // namespace

INT_PTR ShowNewTasksPage(HWND owner) { return RunSettingsPage(owner, kPage); }

}  // namespace velmo::app
