// Reading and writing the "Shortcuts" value, and the rows of its settings page.
#include "app/shortcut_store.h"

#include <algorithm>

#include "app/shortcut_actions.h"
#include "platform/registry.h"
#include "settings/registry_io.h"

namespace velmo {
namespace {

bool IsListRow(int slot) { return slot == kSlotLeftMenu || slot == kSlotBackKey; }

}  // namespace

bool ReadShortcutBindings(ShortcutTable* bindings) {
  *bindings = kDefaultShortcuts;
  HKEY key = nullptr;
  if (RegOpenKeyExW(HKEY_CURRENT_USER, kSettingsKey, 0, KEY_READ, &key) != ERROR_SUCCESS) {
    return false;
  }
  std::vector<BYTE> bytes;
  bool read = registry_io::ReadBinary(key, L"Shortcuts", kShortcutsValueSize, &bytes);
  RegCloseKey(key);
  if (!read) return false;
  std::vector<WORD> words = registry_io::UnpackWords(bytes);
  std::copy_n(words.begin(), kShortcutCount, bindings->begin());
  return true;
}

LONG SaveShortcutBindings(const ShortcutTable& bindings, Settings& s) {
  s.shortcuts = bindings;
  HKEY key = nullptr;
  LONG result = RegCreateKeyExW(HKEY_CURRENT_USER, kSettingsKey, 0, nullptr,
                                REG_OPTION_NON_VOLATILE, KEY_ALL_ACCESS, nullptr, &key, nullptr);
  if (result != ERROR_SUCCESS) return result;
  result = registry_io::WriteBinary(
      key, L"Shortcuts",
      registry_io::PackWords(std::vector<WORD>(bindings.begin(), bindings.end())));
  if (result == ERROR_SUCCESS) result = RegFlushKey(key);
  RegCloseKey(key);
  return result;
}

ShortcutPage MakeShortcutPage(const ShortcutTable& bindings) {
  ShortcutPage page;
  for (int slot = 0; slot < kShortcutCount; ++slot) {
    ShortcutPageRow& row = page[static_cast<size_t>(slot)];
    row.name_id = kFirstSlotNameId + static_cast<UINT>(slot);
    WORD value = bindings[static_cast<size_t>(slot)];
    if (slot == kSlotLeftMenu) {
      for (const LeftMenuChoice& c : kLeftMenuChoices) row.choices.push_back(c.text_id);
      row.selected = value < kLeftMenuChoiceCount ? value : 0;
    } else if (slot == kSlotBackKey) {
      row.choices.assign(kBackKeyChoiceTexts.begin(), kBackKeyChoiceTexts.end());
      row.selected = value < kBackKeyChoiceCount ? value : 0;
    } else {
      for (const ShortcutAction& a : kShortcutActions) row.choices.push_back(a.text_id);
      row.selected = std::max(ShortcutActionPosition(value), 0);
    }
  }
  return page;
}

ShortcutTable ShortcutsFromPage(const ShortcutPage& page) {
  ShortcutTable bindings{};
  for (int slot = 0; slot < kShortcutCount; ++slot) {
    const ShortcutPageRow& row = page[static_cast<size_t>(slot)];
    // A selection outside the row's choices stands for its first choice.
    size_t selected = row.selected >= 0 && static_cast<size_t>(row.selected) < row.choices.size()
                          ? static_cast<size_t>(row.selected)
                          : 0;
    bindings[static_cast<size_t>(slot)] =
        IsListRow(slot) ? static_cast<WORD>(selected) : kShortcutActions[selected].code;
  }
  return bindings;
}

}  // namespace velmo
