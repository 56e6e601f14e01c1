// The main window's menus and soft keys: built from the tables of res/, and the
// marks and enabling that follow the list, the view, the filter and the
// selected task.
#pragma once

#include "platform/ui/types.h"
#include "res/menu_table.h"

namespace velmo::app {

// A popup menu made from a table, submenus included.
HMENU BuildMenu(const res::MenuDef& def);

// Makes the main window's two menus ("Exit" only with the "ExitMenu" setting).
void CreateMainMenus();
void DestroyMainMenus();

// The soft keys over the list: the left key carries out the "Left Menu" choice
// ("Complete" or "Activate" by the selected task for Activate/Complete) and is
// greyed when that acts on a task and none is selected; the right key opens the
// main menu.
void ShowListSoftKeys();
void UpdateListSoftKeys();
// The soft keys of entry mode: "Done" and the quick-entry menu.
void ShowQuickEntrySoftKeys();

// The command of the left soft key over the list, from the "Left Menu" setting.
UINT LeftSoftKeyCommand();

// Whether a command works on the selected task (and so needs one).
bool ActsOnSelectedTask(UINT command);

// The view's radio mark, "Default View" and "Set as Default", and the "Sort by"
// mark, after a view or filter change.
void UpdateViewMarks();

// Deletes the Filter menu's category items and inserts the current ones before
// "Multiple...", checked as the filter is.
void UpdateFilterMenu();

// Before a menu opens: enabling and check marks from the list and the selected
// task (WM_INITMENUPOPUP).
void PrepareMenus();

}  // namespace velmo::app
