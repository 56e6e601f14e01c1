// The Categories dialog's check list: which catalogue entries each mode offers,
// filling the list in catalogue order with the checked set ticked, the checked
// items back as a categories string, the title, and the drawing of a row (its
// box, the category's icon, its name).
#pragma once

#include <string>
#include <string_view>

#include "categories/category_list.h"
#include "categories/dialog/categories_dialog.h"
#include "platform/ui/types.h"

namespace velmo::category_dialog {

// Whether the list of that mode offers the catalogue entry at `index`.
bool Offers(CategoriesDialogMode mode, int index, const CategoryEntry& entry);
// Whether "Reload Icons" reports on the entry in that mode.
bool ReportsIcon(CategoriesDialogMode mode, const CategoryEntry& entry);

// Empties the list and fills it from the catalogue; an item is checked when its
// name is in `checked`. The item named `focus` (when given), else the first
// checked one, else the first, is selected and focused.
void FillCheckList(HWND list, CategoriesDialogMode mode, const CategoryList& checked,
                   const std::wstring* focus);

int CheckedCount(HWND list);
bool IsChecked(HWND list, int item);
void SetChecked(HWND list, int item, bool on);  // item -1: every item

// The checked items in list order, joined with "," ("<NoCat>" for No Category).
std::wstring CheckedCategories(HWND list);

// "Categories [checked/items]".
std::wstring CheckListTitle(HWND list);

// WM_DRAWITEM of a row: "☑"/"☐", the icon, the name.
void DrawCheckListRow(const DRAWITEMSTRUCT& item);

}  // namespace velmo::category_dialog
