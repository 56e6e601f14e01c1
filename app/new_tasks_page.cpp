// The "New Tasks" page: what a new task starts with. The categories are
// chosen in the Categories dialog, opened with the action key on their field.
#include <string>

#include "app/settings_page.h"
#include "app/settings_pages.h"
#include "categories/dialog/categories_dialog.h"
#include "platform/ui/window.h"
#include "res/dialogs_settings.h"

namespace velmo::app {
namespace {

using namespace res::settings_id;
using K = FieldKind;

constexpr UINT kTextNone = 480;  // "None", shown for no categories
// List position = stored value: importance 0 low, 1 normal, 2 high; sensitivity
// 0 normal, 1 private.
constexpr UINT kImportanceNames[] = {40015, 40014, 40013};  // "Low", "Normal", "High"
constexpr UINT kSensitivityNames[] = {39993, 39995};        // "Normal", "Private"

const PageField kFields[] = {
    {kImportanceForNew, K::kChoice, &Settings::importance_for_new, nullptr, nullptr,
     kImportanceNames},
    {kSensitivityForNew, K::kChoice, &Settings::sensitivity_for_new, nullptr, nullptr,
     kSensitivityNames},
    {kTeamTaskForNew, K::kCheck, &Settings::team_task_for_new},
    {kFilteredCatForNew, K::kCheck, &Settings::filtered_cat_for_new},
    {kReminderForNew, K::kCheck, &Settings::reminder_for_new},
    {kReminderTimeForNew, K::kTime, &Settings::reminder_time_for_new},
};

struct CategoriesEdit {
  std::wstring chosen;
  bool changed = false;
};

void ShowCategories(HWND page, const std::wstring& categories) {
  FillCategoriesListBox(GetDlgItem(page, kCategoriesForNew), categories, kTextNone);
}

void Init(HWND page, PageState& state) {
  auto& edit = *static_cast<CategoriesEdit*>(state.own);
  edit.chosen = state.before.categories_for_new;
  ShowCategories(page, edit.chosen);
}

bool Action(HWND page, PageState& state, int id) {
  if (id != kCategoriesForNew) return false;
  auto& edit = *static_cast<CategoriesEdit*>(state.own);
  if (ChooseCategories(page, CategoriesOpener::kNewTasksPage, &edit.chosen)) {
    edit.changed = true;
    ShowCategories(page, edit.chosen);
  }
  return true;
}

void Done(HWND, PageState& state) {
  const auto& edit = *static_cast<const CategoriesEdit*>(state.own);
  if (edit.changed) state.edited.categories_for_new = edit.chosen;
}

const PageDef kPage{res::kNewTasksPage, kFields, {Init, nullptr, Done, Action}};

}  // namespace

INT_PTR ShowNewTasksPage(HWND owner) {
  CategoriesEdit edit;
  return RunSettingsPage(owner, kPage, &edit);
}

}  // namespace velmo::app
