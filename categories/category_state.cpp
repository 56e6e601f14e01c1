#include "categories/category_state.h"

#include <memory>

#include "categories/category_icons.h"
#include "settings/settings.h"

namespace velmo {
namespace {

constexpr UINT kStartForToday = 40054;

}  // namespace

CategoryList& CategoryCatalogue() {
  static const auto catalogue = std::make_unique<CategoryList>();
  return *catalogue;
}

CategoryList& CategoryFilterList() {
  static const auto filter = std::make_unique<CategoryList>();
  return *filter;
}

std::wstring& CurrentFilterText() {
  static std::wstring text;
  return text;
}

void InitCategories(UINT start_request, std::wstring_view filter_categories,
                    std::wstring_view categories_for_new) {
  CategoryList& catalogue = CategoryCatalogue();
  FreeCategoryList(catalogue);
  DestroyCategoryImages();
  AddCategory(catalogue, L"", Builtin, kAddCategoryMerge);
  MarkNewTaskCategories(categories_for_new);
  SetCategoryFilter(start_request == kStartForToday ? std::wstring_view{} : filter_categories);
}

void InitCategories(UINT start_request) {
  const Settings& s = CurrentSettings();
  InitCategories(start_request, s.filter_categories, s.categories_for_new);
}

void MarkNewTaskCategories() { MarkNewTaskCategories(CurrentSettings().categories_for_new); }

void MarkNewTaskCategories(std::wstring_view categories_for_new) {
  CategoryList& catalogue = CategoryCatalogue();
  for (CategoryEntry& e : catalogue.entries) e.marks &= static_cast<WORD>(~ForNewTasks);
  if (!categories_for_new.empty())
    ParseCategories(catalogue, categories_for_new, ForNewTasks, true);
}

void SetCategoryFilter(std::wstring_view text) {
  CategoryList& filter = CategoryFilterList();
  FreeCategoryList(filter);
  ParseCategories(filter, text, InFilter, true);
  CurrentFilterText() = JoinCategories(filter, false);
}

}  // namespace velmo
