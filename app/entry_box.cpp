#include "app/entry_box.h"

#include "list/quick_entry.h"
#include "list/quick_entry_box.h"

namespace velmo::app {

static_assert(kMsgEntryMode == kMsgQuickEntryMode);

HWND CreateEntryBox(HWND parent, int id, HWND list, const RECT& where) {
  return CreateQuickEntryBox(parent, id, list, where);
}
bool InEntryMode() { return CurrentQuickEntry().active; }
void LeaveEntryMode(HWND box) { LeaveQuickEntryMode(box); }
void EntryBackKey(HWND box) { QuickEntryBackKey(box); }
void CommitEntry(HWND box) { CommitQuickEntry(box); }
bool ApplyEntryCommand(UINT command) {
  return ApplyQuickEntryCommand(CurrentQuickEntry(), command);
}
bool EntryItemChecked(UINT command) { return QuickEntryChecked(CurrentQuickEntry(), command); }

}  // namespace velmo::app
