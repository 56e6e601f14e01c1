// The bindable keys: 21 slots, the lookup from a key pressed in the task list to
// its slot, and from a slot to the command it is bound to.
#pragma once

#include "platform/wintypes.h"
#include "settings/settings.h"

namespace velmo {

enum ShortcutSlot : int {
  kSlotKey0 = 0,  // kSlotKey0 + n: "Key n"
  kSlotActionKey = 10,
  kSlotNavLeft = 11,
  kSlotHashKey = 12,
  kSlotRecordButton = 13,
  kSlotNavRight = 14,
  kSlotStarKey = 15,
  kSlotVolumeDown = 16,
  kSlotVolumeUp = 17,
  kSlotLeftMenu = 18,  // holds a Left Menu index, not an action code
  kSlotBackKey = 19,   // holds a Back Key index, not an action code
  kSlotTalkKey = 20,
};

// The name of slot n is string kFirstSlotNameId + n ("Key 0" ... "Talk Key").
constexpr UINT kFirstSlotNameId = 40663;

// A phone with a keyboard types its number pad on letters: W E R / S D F / Z X C
// are 1-9, "?" is 0, A the star key and G the hash key. Other keys pass unchanged.
UINT KeypadKeyForLetter(UINT vk);

// The slot of a key pressed in the task list (after the letter translation), or
// -1 for a key that is not bindable there (Up and Down move through the list).
int ListKeySlot(UINT vk);

// The command a slot is bound to, or 0 for none. Slots 18 and 19 hold list
// indexes, not action codes, and give 0 here.
UINT SlotCommand(int slot, const ShortcutTable& bindings);

// A key pressed in the task list: the command to carry out, or 0 (the key does
// nothing).
UINT ListKeyCommand(UINT vk, const ShortcutTable& bindings = CurrentSettings().shortcuts);

}  // namespace velmo
