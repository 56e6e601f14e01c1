// The New Category dialog: "Category name:" over a field of at most 99
// characters and, under it, the names of every category already known (those of
// the contacts and appointments gathered first). Done adds what was typed to
// the catalogue, several categories when it holds commas.
#pragma once

#include <string>

#include "categories/dialog/categories_dialog.h"
#include "platform/ui/types.h"

namespace velmo {

// The known names from the catalogue's second entry on, separated by ", ",
// stopping before the text would pass 3,840 characters.
std::wstring KnownCategoryNames();

// Returns the catalogue index of the last category typed, or -1 on Cancel.
int RunNewCategoryDialog(HWND owner, CategoriesOpener opener);

}  // namespace velmo
