// The quick-entry box as the main window sees it: made with the list, its entry
// mode, its back key, its "Done", and the check marks of the quick-entry menu.
// The box itself and its mode belong to the list (quick entry).
#pragma once

#include "platform/ui/types.h"

namespace velmo::app {

// Sent by the box to the main window when entry mode starts (wParam 1) or ends
// (wParam 0).
constexpr UINT kMsgEntryMode = WM_APP + 20;

// nullptr when there is no box.
HWND CreateEntryBox(HWND parent, int id, HWND list, const RECT& where);
bool InEntryMode();
void LeaveEntryMode(HWND box);
void EntryBackKey(HWND box);
void CommitEntry(HWND box);
// A command of the quick-entry menu changes the new task's marks; false for others.
bool ApplyEntryCommand(UINT command);
bool EntryItemChecked(UINT command);

}  // namespace velmo::app
