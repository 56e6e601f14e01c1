// The key bindings as the registry keeps them: the "Shortcuts" value under the
// settings key, binary, exactly 42 bytes: the 21 slot values in slot order, each
// little-endian 16-bit. The "Shortcuts" settings page reads and writes them as
// rows of choices.
#pragma once

#include <array>
#include <vector>

#include "app/shortcut_keys.h"
#include "settings/settings.h"

namespace velmo {

constexpr DWORD kShortcutsValueSize = 2 * kShortcutCount;  // 42

// Reads the value; anything but exactly 42 bytes of binary leaves the defaults.
// Returns whether the stored value was taken.
bool ReadShortcutBindings(ShortcutTable* bindings);

// Writes all 21 values and flushes; the settings block takes them too. Returns
// the registry's result.
LONG SaveShortcutBindings(const ShortcutTable& bindings, Settings& s = CurrentSettings());

// One row of the "Shortcuts" page: the key's name and its choices (string
// numbers), with the stored value's choice selected.
struct ShortcutPageRow {
  UINT name_id = 0;
  std::vector<UINT> choices;
  int selected = 0;
};
using ShortcutPage = std::array<ShortcutPageRow, kShortcutCount>;

// Rows 0-17 and 20 offer the 71 actions, row 18 the Left Menu list and row 19
// the Back Key list. A stored value that is in no list selects the first choice.
ShortcutPage MakeShortcutPage(const ShortcutTable& bindings);

// The values the rows' selections stand for (codes; indexes for rows 18, 19).
ShortcutTable ShortcutsFromPage(const ShortcutPage& page);

}  // namespace velmo
