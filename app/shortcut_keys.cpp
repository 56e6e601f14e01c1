// Key-to-slot and slot-to-command lookups of the task list.
#include "app/shortcut_keys.h"

#include <algorithm>
#include <iterator>

#include "app/shortcut_actions.h"
#include "platform/ui/virtual_keys.h"

namespace velmo {
namespace {

struct KeyMapping {
  UINT from;
  UINT to;
};

constexpr KeyMapping kKeyboardLetters[] = {
    {'W', '1'}, {'E', '2'}, {'R', '3'}, {'S', '4'},         {'D', '5'},       {'F', '6'},
    {'Z', '7'}, {'X', '8'}, {'C', '9'}, {VK_QUESTION, '0'}, {'A', VK_TSTAR}, {'G', VK_TPOUND},
};

struct KeySlot {
  UINT vk;
  int slot;
};

// The keys of the list other than the digits, which are slots 0-9.
constexpr KeySlot kListKeySlots[] = {
    {VK_TACTION, kSlotActionKey}, {VK_TLEFT, kSlotNavLeft},  {VK_TRIGHT, kSlotNavRight},
    {VK_TTALK, kSlotTalkKey},     {VK_TSTAR, kSlotStarKey},  {VK_TPOUND, kSlotHashKey},
};

}  // namespace

UINT KeypadKeyForLetter(UINT vk) {
  auto it = std::find_if(std::begin(kKeyboardLetters), std::end(kKeyboardLetters),
                         [vk](const KeyMapping& m) { return m.from == vk; });
  return it == std::end(kKeyboardLetters) ? vk : it->to;
}

int ListKeySlot(UINT vk) {
  vk = KeypadKeyForLetter(vk);
  if (vk >= '0' && vk <= '9') return kSlotKey0 + static_cast<int>(vk - '0');
  auto it = std::find_if(std::begin(kListKeySlots), std::end(kListKeySlots),
                         [vk](const KeySlot& k) { return k.vk == vk; });
  return it == std::end(kListKeySlots) ? -1 : it->slot;
}

UINT SlotCommand(int slot, const ShortcutTable& bindings) {
  if (slot < 0 || slot >= kShortcutCount || slot == kSlotLeftMenu || slot == kSlotBackKey) return 0;
  return ShortcutActionCommand(bindings[static_cast<size_t>(slot)]);
}

UINT ListKeyCommand(UINT vk, const ShortcutTable& bindings) {
  return SlotCommand(ListKeySlot(vk), bindings);
}

}  // namespace velmo
