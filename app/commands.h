// The main window's command dispatch: every menu command, whatever sent it (a
// soft-key menu, a key shortcut, a second instance, another part of the
// program), is carried out here through one table.
#pragma once

#include "platform/wintypes.h"

namespace velmo::app {

// lParam of a command that comes from a key shortcut ("All Categories" then
// rebuilds the list even without a filter in force).
constexpr LPARAM kFromShortcut = 1967;

// Carries out a command; false when it is none of the main window's.
bool RunCommand(UINT command, LPARAM lparam);

// Sends a command to the main window, as a WM_COMMAND.
void SendCommand(UINT command, LPARAM lparam = 0);

// After a view or filter change: the filter menu when asked, the list, the
// title, the menus' marks and the soft keys. Returns the number of rows.
int RefreshAfterViewChange(bool filter_changed);

}  // namespace velmo::app
