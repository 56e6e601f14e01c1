// The quick-entry box: a one-line edit under the task list. It shows "Enter new
// task here" while idle; getting the focus enters entry mode (the main window
// then shows the quick-entry menu and the list is disabled); Up or Down with
// text makes the task; Down on an empty box leaves for the first task, Up for
// the last one when "NoEndScroll" is on.
#pragma once

#include "platform/ui/types.h"

namespace velmo {

// Sent to the box's parent when entry mode starts (wParam 1) or ends (wParam 0):
// the parent swaps its menu, refreshes the menu states and rebuilds the title.
constexpr UINT kMsgQuickEntryMode = WM_APP + 20;

// Makes the box as a child of `parent` with control identifier `id`, at `where`,
// working for the task list `list`. nullptr when it cannot be made.
HWND CreateQuickEntryBox(HWND parent, int id, HWND list, const RECT& where);

// Leaves entry mode: the typed text and the mode's state are dropped, the idle
// text comes back, the parent is told, and the list is enabled and focused.
void LeaveQuickEntryMode(HWND box);

// The back key while in entry mode: deletes the character before the caret, or
// on an empty box leaves entry mode.
void QuickEntryBackKey(HWND box);

// Makes the task from the box's text, as Up or Down do; leaves entry mode when
// it was made. Returns the result (S_FALSE for an empty box: nothing to make).
HRESULT CommitQuickEntry(HWND box);

}  // namespace velmo
