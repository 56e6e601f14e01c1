#include "categories/filter_menu.h"

#include "categories/category_filter.h"
#include "categories/category_names.h"
#include "categories/category_state.h"

namespace velmo {
namespace {

FilterMenu& MenuState() {
  static FilterMenu menu;
  return menu;
}

struct StepCommand {
  UINT command;
  bool forward;
  bool skip_empty;
};

constexpr StepCommand kStepCommands[] = {
    {kCmdFilterNext, true, false},
    {kCmdFilterNextSkipEmpty, true, true},
    {kCmdFilterPrevious, false, false},
    {kCmdFilterPreviousSkipEmpty, false, true},
};

// Empties the Filter list and returns the command the step lands on.
UINT StepTarget(bool forward) {
  const bool was_empty = CategoryFilterList().empty();
  FreeCategoryList(CategoryFilterList());
  const auto& entries = CategoryCatalogue().entries;
  const int n = static_cast<int>(entries.size());
  bool passed_checked = was_empty;
  for (int k = 0; k < n; ++k) {
    const CategoryEntry& e = entries[static_cast<size_t>(forward ? k : n - 1 - k)];
    if (passed_checked && e.menu_command != 0) return e.menu_command;
    if (e.menu_checked) passed_checked = true;
  }
  return kCmdAllCategories;
}

}  // namespace

bool IsCategoryItemCommand(UINT command) {
  return command >= kCmdFirstCategoryItem && command <= kCmdLastCategoryItem;
}

const FilterMenu& CurrentFilterMenu() { return MenuState(); }

const FilterMenu& RebuildFilterMenu(const TaskTable& tasks) {
  MarkCategoryUse(tasks);
  FilterMenu& menu = MenuState();
  menu = FilterMenu{};
  const CategoryList& filter = CategoryFilterList();
  for (CategoryEntry& e : CategoryCatalogue().entries) {
    e.menu_checked = 0;
    e.menu_command = 0;
    if (!(e.marks & (InLoadedTasks | InFilter)) || menu.next_command > kCmdLastCategoryItem)
      continue;
    e.menu_command = menu.next_command++;
    e.menu_checked = FindCategory(filter, e.name) >= 0;
    menu.category_items.push_back({e.menu_command, CategoryNameForDisplay(e.name), e.menu_checked != 0});
  }
  menu.all_categories_checked = filter.empty();
  return menu;
}

bool ChooseFilterCommand(UINT command, bool from_shortcut) {
  CategoryList& filter = CategoryFilterList();
  if (command == kCmdAllCategories) {
    const bool was_filtered = !filter.empty();
    FreeCategoryList(filter);
    CurrentFilterText().clear();
    return was_filtered || from_shortcut;
  }
  if (!IsCategoryItemCommand(command)) return false;
  for (const CategoryEntry& e : CategoryCatalogue().entries) {
    if (e.menu_command != command) continue;
    const std::wstring name = e.name;  // the catalogue entry outlives the filter change
    FreeCategoryList(filter);
    AddCategory(filter, name, InFilter, kAddCategoryMerge);
    CurrentFilterText() = JoinCategories(filter, false);
    return true;
  }
  return false;
}

void ApplyMultipleCategoriesResult(const std::wstring& result) {
  CurrentFilterText() = result;
  CategoryList& filter = CategoryFilterList();
  FreeCategoryList(filter);
  ParseCategories(filter, result, InFilter, true);
}

void StepCategoryFilter(UINT command, const FilterRebuild& rebuild) {
  for (const StepCommand& step : kStepCommands) {
    if (step.command != command) continue;
    // Each step moves past the checked item, so the walk reaches All Categories
    // within one step per catalogue entry; the bound only guards a rebuild that
    // forgot the Filter menu.
    for (int steps = 0; steps <= kMaxCategories; ++steps) {
      ChooseFilterCommand(StepTarget(step.forward), true);
      const int shown = rebuild();
      if (!step.skip_empty || shown > 0 || CategoryFilterList().empty()) break;
    }
    return;
  }
}

}  // namespace velmo
