// The Categories dialog (a check list of categories, "Done" and "Menu"), the
// New Category dialog and the search dialog, as tables.
#pragma once

#include "res/dialog_table.h"
#include "res/menu_table.h"

namespace velmo::res {

// The Categories dialog: one list filling it.
constexpr int kCategoriesList = 100;
extern const DialogDef kCategoriesDialog;
extern const SoftKeyBarDef kCategoriesBar;  // "Done" and "Menu"

// Its menu's commands; each is also the number of its text.
constexpr UINT kCmdShowAllCategories = 44100;
constexpr UINT kCmdNewCategory = 44101;
constexpr UINT kCmdSelectAll = 44102;
constexpr UINT kCmdSelectNone = 44103;
constexpr UINT kCmdInvertSelect = 44104;
constexpr UINT kCmdReloadIcons = 44105;
constexpr UINT kCmdCategoriesDone = 44106;  // "Done" (also the search dialog's)
constexpr UINT kTextCategoriesTitle = 44107;  // "%s [%d/%d]": caption, checked, items

// The New Category dialog: the name over the names already known.
constexpr int kNewCategoryName = 110;
constexpr int kNewCategoryKnown = 111;
constexpr int kNewCategoryMaxChars = 99;
extern const DialogDef kNewCategoryDialog;
extern const SoftKeyBarDef kNewCategoryBar;  // "Done" and "Cancel"

// The search dialog.
enum SearchControl : int {
  kSearchText = 120,
  kSearchSubjects = 121,
  kSearchNotes = 122,
  kSearchCaseSensitive = 123,
  kSearchFilter = 124,  // the filter's categories, one entry each
};
constexpr int kSearchTextMaxChars = 100;
constexpr UINT kTextSelectCategories = 44116;  // the filter field without a category
extern const DialogDef kSearchDialog;
extern const SoftKeyBarDef kSearchBar;  // "Done" and "Cancel"

}  // namespace velmo::res
