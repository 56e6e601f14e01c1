#include "categories/category_filter.h"

#include <algorithm>
#include <memory>
#include <string_view>
#include <unordered_set>

#include "categories/category_names.h"
#include "categories/category_state.h"

namespace velmo {

bool CategoriesPassFilter(const CategoryList& filter,
                          std::optional<std::wstring_view> categories) {
  if (filter.empty()) return true;
  if (!categories) return false;
  // Below the list's capacity every piece is kept, so each piece can be looked
  // up in the filter as it is read, without building the task's list.
  if (std::count(categories->begin(), categories->end(), L',') < kMaxCategories) {
    size_t start = 0;
    for (;;) {
      const size_t comma = categories->find(L',', start);
      if (FindCategory(filter, NormalizeCategoryName(categories->substr(start, comma - start))) >= 0)
        return true;
      if (comma == std::wstring_view::npos) return false;
      start = comma + 1;
    }
  }
  static const auto scratch = std::make_unique<CategoryList>();
  FreeCategoryList(*scratch);
  ParseCategories(*scratch, *categories, InLoadedTasks, false);
  return std::any_of(scratch->entries.begin(), scratch->entries.end(),
                     [&](const CategoryEntry& e) { return FindCategory(filter, e.name) >= 0; });
}

bool TaskPassesFilter(const Task& task) {
  return CategoriesPassFilter(CategoryFilterList(), task.categories);
}

void MarkCategoryUse(const TaskTable& tasks) {
  CategoryList& catalogue = CategoryCatalogue();
  for (CategoryEntry& e : catalogue.entries)
    e.marks &= static_cast<WORD>(~(InLoadedTasks | InFilter));
  // Tasks share a few category texts, and marking is the same each time, so
  // each distinct text is parsed once.
  std::unordered_set<std::wstring_view> parsed;
  for (const auto& task : tasks)
    if (task && task->oid != 0 && parsed.insert(task->categories).second)
      ParseCategories(catalogue, task->categories, InLoadedTasks, false);
  for (const CategoryEntry& e : CategoryFilterList().entries)
    AddCategory(catalogue, e.name, InFilter, kAddCategoryMerge);
}

}  // namespace velmo
