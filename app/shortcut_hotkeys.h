// The keys the main window registers as hot keys (record, volume, talk, back):
// they reach it whatever control has the focus, and are turned here into what
// the main window does.
#pragma once

#include "platform/ui/types.h"
#include "settings/settings.h"

namespace velmo {

// Hot-key identifiers of the main window.
enum ShortcutHotKey : int {
  kHotKeyRecord = 1,
  kHotKeyVolumeUp,
  kHotKeyVolumeDown,
  kHotKeyTalk,
  kHotKeyBack,  // registered for its release as well
};

// Registers every hot key for the window. FALSE (last error set) when any
// cannot be registered; those that could stay registered.
BOOL RegisterShortcutHotKeys(HWND main_window);
void UnregisterShortcutHotKeys(HWND main_window);

enum class ShortcutKind {
  kNothing,      // the key does nothing
  kCommand,      // carry out `command` as if chosen from the menu
  kDefaultBack,  // the platform's own back handling
  kEntryField,   // the quick-entry field takes the key as its own
};

struct ShortcutOutcome {
  ShortcutKind kind = ShortcutKind::kNothing;
  UINT command = 0;
  friend bool operator==(const ShortcutOutcome&, const ShortcutOutcome&) = default;
};

struct ShortcutContext {
  bool in_quick_entry = false;   // the quick-entry field is in entry mode
  bool at_default_view = false;  // the list shows the default view and filter
  // The "Sort by" command that brings back the primary key of the sort record
  // in use after a "Sort by" choice replaced it; 0 when nothing is to restore.
  UINT restore_sort = 0;
};

// A hot key pressed (key_up false) or released (key_up true): record and volume
// keys and the talk key act on the press, the back key on its release. In entry
// mode the talk key is the field's "Call History" command and the back key is
// the field's own (it deletes, or leaves entry mode).
ShortcutOutcome HandleShortcutKey(UINT vk, bool key_up, const ShortcutContext& context,
                                  const ShortcutTable& bindings = CurrentSettings().shortcuts);

// The same for a WM_HOTKEY message's parameters.
ShortcutOutcome HandleHotKeyMessage(WPARAM id, LPARAM lparam, const ShortcutContext& context,
                                    const ShortcutTable& bindings = CurrentSettings().shortcuts);

// The command of the quick-entry field's talk key.
constexpr UINT kCmdQuickEntryCallHistory = 40092;
// Commands the back key's choices use.
constexpr UINT kCmdShowDefaultView = 40048;
constexpr UINT kCmdExit = 40037;

}  // namespace velmo
