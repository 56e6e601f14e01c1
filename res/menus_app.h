// The main window's menus and soft-key bars: the task list's bar (the left key
// set by the "Left Menu" shortcut, "Menu" on the right) and the quick-entry bar.
#pragma once

#include "res/dialog_table.h"
#include "res/menu_table.h"

namespace velmo::res {

// Popups of the main menu, by the text they carry.
extern const MenuDef kMainMenu;
extern const MenuDef kQuickEntryMenu;
extern const SoftKeyBarDef kListBar;        // left key: replaced by the "Left Menu" choice
extern const SoftKeyBarDef kQuickEntryBar;

// Texts of the main window's own.
constexpr UINT kTextMenu = 41700;            // "Menu"
constexpr UINT kTextActivate = 41701;        // "Activate" (40003 on a completed task)
constexpr UINT kTextComplete = 40003;        // "Complete"
constexpr UINT kTextRenameTitle = 41712;     // "Rename Task"
constexpr UINT kTextSubjectLabel = 41713;    // "Subject:"
constexpr UINT kTextTooSmall = 41714;        // the notice of a terminal too small
constexpr UINT kTextDone = 41711;            // "Done"
constexpr UINT kTextCancel = 41715;          // "Cancel"

// "Rename": "Subject:" over the subject's field, "Done" and "Cancel".
constexpr int kRenameSubjectField = 101;
extern const DialogDef kRenameDialog;
extern const SoftKeyBarDef kDoneCancelBar;

}  // namespace velmo::res
