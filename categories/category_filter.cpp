#include "categories/category_filter.h"

#include <algorithm>
#include <memory>
#include <string_view>
#include <utility>

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

// Room for the distinct category texts of a table without growing on the way.
constexpr size_t kDistinctTextsExpected = 256;

CategoryUseMarking::CategoryUseMarking() {
  for (CategoryEntry& e : CategoryCatalogue().entries)
    e.marks &= static_cast<WORD>(~(InLoadedTasks | InFilter));
  parsed_.reserve(kDistinctTextsExpected);
}

void CategoryUseMarking::Mark(const Task& task) {
  // Most tasks have no categories at all: that text needs no hashing.
  const bool first = task.categories.empty() ? !std::exchange(empty_parsed_, true)
                                             : parsed_.insert(task.categories).second;
  if (first) ParseCategories(CategoryCatalogue(), task.categories, InLoadedTasks, false);
}

void CategoryUseMarking::Finish() {
  for (const CategoryEntry& e : CategoryFilterList().entries)
    AddCategory(CategoryCatalogue(), e.name, InFilter, kAddCategoryMerge);
}

void MarkCategoryUse(const TaskTable& tasks) {
  CategoryUseMarking marking;
  for (const auto& task : tasks)
    if (task && task->oid != 0) marking.Mark(*task);
  marking.Finish();
}

}  // namespace velmo
