// Menus: popup menus with items (a command identifier and a text, which may have
// a tab and a right-hand part such as "Next Task\t»"), separators, submenus,
// check and radio marks and grey items. An open menu numbers its first nine
// items 1-9 (separators not counted); pressing the number chooses the item.
#pragma once

#include "platform/ui/types.h"

constexpr UINT MF_STRING = 0x0000;
constexpr UINT MF_ENABLED = 0x0000;
constexpr UINT MF_UNCHECKED = 0x0000;
constexpr UINT MF_BYCOMMAND = 0x0000;
constexpr UINT MF_GRAYED = 0x0001;
constexpr UINT MF_DISABLED = 0x0002;
constexpr UINT MF_CHECKED = 0x0008;
constexpr UINT MF_POPUP = 0x0010;
constexpr UINT MF_BYPOSITION = 0x0400;
constexpr UINT MF_SEPARATOR = 0x0800;
constexpr UINT MFT_RADIOCHECK = 0x0200;

constexpr UINT TPM_LEFTALIGN = 0x0000;
constexpr UINT TPM_TOPALIGN = 0x0000;
constexpr UINT TPM_CENTERALIGN = 0x0004;
constexpr UINT TPM_RIGHTALIGN = 0x0008;
constexpr UINT TPM_BOTTOMALIGN = 0x0020;
constexpr UINT TPM_NONOTIFY = 0x0080;
constexpr UINT TPM_RETURNCMD = 0x0100;

HMENU CreateMenu();
HMENU CreatePopupMenu();
// Destroys the menu and its submenus.
BOOL DestroyMenu(HMENU menu);
BOOL IsMenu(HMENU menu);

// With MF_POPUP, `id` is the submenu's HMENU.
BOOL AppendMenuW(HMENU menu, UINT flags, UINT_PTR id, LPCWSTR text);
// Inserts before the item at `position` (MF_BYPOSITION; past the end appends) or
// before the item of that command (MF_BYCOMMAND, submenus searched too).
BOOL InsertMenuW(HMENU menu, UINT position, UINT flags, UINT_PTR id, LPCWSTR text);
BOOL ModifyMenuW(HMENU menu, UINT position, UINT flags, UINT_PTR id, LPCWSTR text);
// Removes an item; DeleteMenu destroys its submenu, RemoveMenu leaves it alone.
BOOL DeleteMenu(HMENU menu, UINT position, UINT flags);
BOOL RemoveMenu(HMENU menu, UINT position, UINT flags);

// Return the item's previous state (MF_CHECKED, MF_GRAYED|MF_DISABLED), or -1
// (as a DWORD) when there is no such item.
DWORD CheckMenuItem(HMENU menu, UINT id, UINT flags);
UINT EnableMenuItem(HMENU menu, UINT id, UINT flags);
// Marks `check` with a radio mark and clears the marks of the others in
// first..last (commands, or positions with MF_BYPOSITION).
BOOL CheckMenuRadioItem(HMENU menu, UINT first, UINT last, UINT check, UINT flags);

int GetMenuItemCount(HMENU menu);
// The command of the item at a position; -1 (as UINT) for a submenu or none.
UINT GetMenuItemID(HMENU menu, int position);
HMENU GetSubMenu(HMENU menu, int position);
// The item's flags (MF_CHECKED, MF_GRAYED, MF_POPUP, MF_SEPARATOR ...), or -1.
UINT GetMenuState(HMENU menu, UINT id, UINT flags);
int GetMenuStringW(HMENU menu, UINT id, LPWSTR buffer, int max, UINT flags);

// Opens the menu at (x, y) (screen cells; TPM_BOTTOMALIGN: the menu ends just
// above row y, TPM_RIGHTALIGN: just left of column x) and runs its own loop until
// an item is chosen or the menu is closed. WM_INITMENUPOPUP goes to the owner
// before each popup opens (unless TPM_NONOTIFY). The chosen command is returned
// with TPM_RETURNCMD, else posted to the owner as WM_COMMAND. 0: nothing chosen.
// Keys: Up/Down move, Enter, Right or the left soft key choose or open a submenu,
// 1-9 choose by number, Left and Esc close a submenu (Esc the menu), the right
// soft key closes the whole menu.
BOOL TrackPopupMenuEx(HMENU menu, UINT flags, int x, int y, HWND owner, void* params);
// Closes the open menu, as if nothing was chosen.
BOOL EndMenu();
