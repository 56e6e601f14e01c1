// Hot keys of the main window and what each press means.
#include "app/shortcut_hotkeys.h"

#include <algorithm>
#include <iterator>

#include "app/shortcut_actions.h"
#include "app/shortcut_keys.h"
#include "platform/ui/hotkeys.h"
#include "platform/ui/messages.h"
#include "platform/ui/virtual_keys.h"

namespace velmo {
namespace {

struct HotKey {
  int id;
  UINT vk;
  UINT modifiers;
  int slot;  // looked up on the press; -1: handled apart
};

constexpr HotKey kHotKeys[] = {
    {kHotKeyRecord, VK_TRECORD, 0, kSlotRecordButton},
    {kHotKeyVolumeUp, VK_TVOLUMEUP, 0, kSlotVolumeUp},
    {kHotKeyVolumeDown, VK_TVOLUMEDOWN, 0, kSlotVolumeDown},
    {kHotKeyTalk, VK_TTALK, 0, kSlotTalkKey},
    {kHotKeyBack, VK_TBACK, MOD_KEYUP, -1},
};

ShortcutOutcome Command(UINT command) {
  return command ? ShortcutOutcome{ShortcutKind::kCommand, command} : ShortcutOutcome{};
}

ShortcutOutcome BackKeyOutcome(const ShortcutContext& context, const ShortcutTable& bindings) {
  if (context.in_quick_entry) return {ShortcutKind::kEntryField, 0};
  switch (bindings[kSlotBackKey]) {
    case kBackKeyExit:
      return Command(kCmdExit);
    case kBackKeyDefaultViewOrBack:
      if (!context.at_default_view) return Command(kCmdShowDefaultView);
      // At the default view, a key chosen from "Sort by" goes back first.
      if (context.restore_sort) return Command(context.restore_sort);
      return {ShortcutKind::kDefaultBack, 0};
    case kBackKeyDefaultViewOrExit:
      return Command(context.at_default_view ? kCmdExit : kCmdShowDefaultView);
    default:  // "Back", and anything else stored there
      return {ShortcutKind::kDefaultBack, 0};
  }
}

}  // namespace

BOOL RegisterShortcutHotKeys(HWND main_window) {
  BOOL all = TRUE;
  for (const HotKey& k : kHotKeys) {
    if (!RegisterHotKey(main_window, k.id, k.modifiers, k.vk)) all = FALSE;
  }
  return all;
}

void UnregisterShortcutHotKeys(HWND main_window) {
  for (const HotKey& k : kHotKeys) UnregisterHotKey(main_window, k.id);
}

ShortcutOutcome HandleShortcutKey(UINT vk, bool key_up, const ShortcutContext& context,
                                  const ShortcutTable& bindings) {
  if (vk == VK_TBACK) return key_up ? BackKeyOutcome(context, bindings) : ShortcutOutcome{};
  if (key_up) return {};
  if (vk == VK_TTALK && context.in_quick_entry) return Command(kCmdQuickEntryCallHistory);
  auto it = std::find_if(std::begin(kHotKeys), std::end(kHotKeys),
                         [vk](const HotKey& k) { return k.vk == vk && k.slot >= 0; });
  return it == std::end(kHotKeys) ? ShortcutOutcome{} : Command(SlotCommand(it->slot, bindings));
}

ShortcutOutcome HandleHotKeyMessage(WPARAM, LPARAM lparam, const ShortcutContext& context,
                                    const ShortcutTable& bindings) {
  auto packed = static_cast<std::uintptr_t>(lparam);
  return HandleShortcutKey(HIWORD(packed), (LOWORD(packed) & MOD_KEYUP) != 0, context, bindings);
}

}  // namespace velmo
