#include "categories/category_filter.h"

#include <algorithm>
#include <memory>

#include "categories/category_state.h"

namespace velmo {

bool CategoriesPassFilter(const CategoryList& filter,
                          std::optional<std::wstring_view> categories) {
  if (filter.empty()) return true;
  if (!categories) return false;
  // One scratch list serves every call: the rebuild asks for every loaded task.
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
  for (const auto& task : tasks)
    if (task && task->oid != 0) ParseCategories(catalogue, task->categories, InLoadedTasks, false);
  for (const CategoryEntry& e : CategoryFilterList().entries)
    AddCategory(catalogue, e.name, InFilter, kAddCategoryMerge);
}

}  // namespace velmo
