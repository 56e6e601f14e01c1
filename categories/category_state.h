// The program-wide category state: the catalogue of every category met during
// the run, the Filter list in force and its text. They live from start-up to exit.
#pragma once

#include <string>
#include <string_view>

#include "categories/category_list.h"
#include "platform/wintypes.h"

namespace velmo {

CategoryList& CategoryCatalogue();
CategoryList& CategoryFilterList();
// The categories string of the filter in force; empty means no filter. Kept
// apart from the default filter of the "FilterCategories" setting.
std::wstring& CurrentFilterText();

// Start-up: the catalogue holds only No Category (Builtin); the categories for
// new tasks are marked; unless the program starts for the Today view (start
// request 40054) a non-empty default filter becomes the Filter list, and the
// filter text its normalised form.
void InitCategories(UINT start_request, std::wstring_view filter_categories,
                    std::wstring_view categories_for_new);
// The same with "FilterCategories" and "CategoriesForNew" of the settings block.
void InitCategories(UINT start_request);

// Clears ForNewTasks on every catalogue entry, then marks (adding where needed)
// the categories of the "CategoriesForNew" setting.
void MarkNewTaskCategories(std::wstring_view categories_for_new);
void MarkNewTaskCategories();  // from the settings block

// Makes the Filter list exactly the categories of `text` (InFilter, empty text
// meaning no filter) and the filter text its normalised form.
void SetCategoryFilter(std::wstring_view text);

}  // namespace velmo
