// The notes editor's tables: its one control, its soft keys ("Done", "Menu")
// and menu, and the prompt of "Find...".
#pragma once

#include "platform/ui/dialog.h"
#include "res/dialog_table.h"
#include "res/menu_table.h"

namespace velmo::res {

// The menu's commands; each is also the number of its text (but "Cancel").
constexpr UINT kNotesWordWrap = 30500;
constexpr UINT kNotesFind = 30501;
constexpr UINT kNotesFindNext = 30502;
constexpr UINT kNotesSelectAll = 30503;
constexpr UINT kNotesCut = 30504;
constexpr UINT kNotesCopy = 30505;
constexpr UINT kNotesPaste = 30506;
constexpr UINT kNotesCancel = 30507;
constexpr UINT kTextFindTitle = 30508;  // "Find"
constexpr UINT kTextFindWhat = 30509;   // "Find what:"

// The notes field, as in the task editor; the find prompt's text field.
constexpr int kNotesFieldId = 40190;
constexpr int kFindTextId = 30510;
constexpr int kFindTextMaxChars = 100;

extern const MenuDef kNotesMenu;
extern const SoftKeyBarDef kNotesBar;     // "Done" (IDOK) and "Menu"
extern const SoftKeyBarDef kFindBar;      // "Done" (IDOK) and "Cancel" (IDCANCEL)

// The notes editor fills the screen with its field; the find prompt is
// "Find what:" over a text field.
extern const DLGITEMTEMPLATEW kNotesItems[1];
extern const DialogDef kFindDialog;

}  // namespace velmo::res
