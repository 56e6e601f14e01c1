// Until quick entry is part of the program, the main window has no entry box
// and is never in entry mode.
#include "app/entry_box.h"

namespace velmo::app {

HWND CreateEntryBox(HWND, int, HWND, const RECT&) { return nullptr; }
bool InEntryMode() { return false; }
void LeaveEntryMode(HWND) {}
void EntryBackKey(HWND) {}
void CommitEntry(HWND) {}
bool ApplyEntryCommand(UINT) { return false; }
bool EntryItemChecked(UINT) { return false; }

}  // namespace velmo::app
