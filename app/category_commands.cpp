#include "app/category_commands.h"

#include <string>

#include "app/commands.h"
#include "app/main_window_state.h"
#include "app/task_changes.h"
#include "categories/category_names.h"
#include "categories/category_state.h"
#include "categories/dialog/categories_dialog.h"
#include "categories/filter_menu.h"
#include "list/quick_entry.h"
#include "store/direct_writes.h"

namespace velmo::app {

void ChooseMultipleCategories() {
  std::wstring result;
  if (RunCategoriesDialog(MainWindow().window, kCategoriesForFilter, CategoriesOpener::kOther,
                          CurrentFilterText(), &result) != 1)
    return;
  ApplyMultipleCategoriesResult(result);
  RefreshAfterViewChange(true);
}

void ChangeTaskCategories(CEOID oid) {
  ITask* item = nullptr;
  if (FAILED(OpenTaskItem(oid, &item)) || !item) return;
  std::wstring categories;
  ReadTaskCategories(item, &categories);  // a task without any has none checked
  if (ChooseCategories(MainWindow().window, CategoriesOpener::kOther, &categories) &&
      SUCCEEDED(WriteTaskCategories(item, categories.c_str(), false)))
    RereadTask(oid);
  item->Release();
}

void ChangeQuickEntryCategories() {
  std::wstring& categories = CurrentQuickEntry().categories;
  std::wstring chosen = categories == kNoCategoryMarker ? std::wstring() : categories;
  if (!ChooseCategories(MainWindow().window, CategoriesOpener::kOther, &chosen)) return;
  categories = chosen.empty() ? std::wstring(kNoCategoryMarker) : chosen;
}

}  // namespace velmo::app
