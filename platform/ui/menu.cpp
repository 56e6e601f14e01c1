// Menus and their items.
#include "platform/ui/menu.h"

#include <algorithm>
#include <memory>
#include <unordered_map>

#include "platform/lasterror.h"
#include "platform/ui/menu_data.h"
#include "platform/ui/messages.h"

namespace velmo::ui::internal {
namespace {

struct Menus {
  std::unordered_map<HMENU, std::unique_ptr<MenuData>> table;
  std::uintptr_t next_handle = 0x20000;
};

Menus& M() {
  static Menus menus;
  return menus;
}

HMENU NewMenu() {
  HMENU handle = reinterpret_cast<HMENU>(M().next_handle);
  M().next_handle += 4;
  M().table.emplace(handle, std::make_unique<MenuData>());
  return handle;
}

struct Located {
  MenuData* menu = nullptr;
  size_t index = 0;
};

// The item of a command (searched depth first through submenus) or a position.
Located Locate(HMENU handle, UINT position, UINT flags) {
  MenuData* menu = FindMenu(handle);
  if (!menu) return {};
  if (flags & MF_BYPOSITION) {
    if (position >= menu->items.size()) return {};
    return Located{menu, position};
  }
  for (size_t i = 0; i < menu->items.size(); ++i) {
    const MenuItem& item = menu->items[i];
    if (item.flags & MF_POPUP) {
      Located inner = Locate(item.submenu, position, flags);
      if (inner.menu) return inner;
    } else if (!(item.flags & MF_SEPARATOR) && item.id == position) {
      return Located{menu, i};
    }
  }
  return {};
}

bool MakeItem(UINT flags, UINT_PTR id, LPCWSTR text, MenuItem* item) {
  item->flags = flags & (MF_GRAYED | MF_DISABLED | MF_CHECKED | MF_POPUP | MF_SEPARATOR |
                         MFT_RADIOCHECK);
  item->text = text && !(flags & MF_SEPARATOR) ? text : L"";
  if (flags & MF_POPUP) {
    item->submenu = reinterpret_cast<HMENU>(id);
    if (!FindMenu(item->submenu)) return false;
  } else {
    item->id = static_cast<UINT>(id);
  }
  return true;
}

}  // namespace

MenuData* FindMenu(HMENU menu) {
  auto it = M().table.find(menu);
  return it == M().table.end() ? nullptr : it->second.get();
}

}  // namespace velmo::ui::internal

using velmo::ui::internal::FindMenu;
using velmo::ui::internal::Locate;
using velmo::ui::internal::MenuData;
using velmo::ui::internal::MenuItem;

HMENU CreateMenu() { return velmo::ui::internal::NewMenu(); }
HMENU CreatePopupMenu() { return velmo::ui::internal::NewMenu(); }

BOOL DestroyMenu(HMENU menu) {
  MenuData* data = FindMenu(menu);
  if (!data) {
    SetLastError(ERROR_INVALID_MENU_HANDLE);
    return FALSE;
  }
  std::vector<HMENU> submenus;
  for (const MenuItem& item : data->items) {
    if (item.flags & MF_POPUP) submenus.push_back(item.submenu);
  }
  velmo::ui::internal::M().table.erase(menu);
  for (HMENU sub : submenus) DestroyMenu(sub);
  return TRUE;
}

BOOL IsMenu(HMENU menu) { return FindMenu(menu) != nullptr; }

BOOL AppendMenuW(HMENU menu, UINT flags, UINT_PTR id, LPCWSTR text) {
  return InsertMenuW(menu, static_cast<UINT>(-1), flags | MF_BYPOSITION, id, text);
}

BOOL InsertMenuW(HMENU menu, UINT position, UINT flags, UINT_PTR id, LPCWSTR text) {
  MenuData* data = FindMenu(menu);
  MenuItem item;
  if (!data || !velmo::ui::internal::MakeItem(flags, id, text, &item)) {
    SetLastError(ERROR_INVALID_MENU_HANDLE);
    return FALSE;
  }
  if (flags & MF_BYPOSITION) {
    size_t at = std::min<size_t>(position, data->items.size());
    data->items.insert(data->items.begin() + static_cast<long>(at), item);
    return TRUE;
  }
  velmo::ui::internal::Located where = Locate(menu, position, flags);
  if (!where.menu) {
    SetLastError(ERROR_INVALID_PARAMETER);
    return FALSE;
  }
  where.menu->items.insert(where.menu->items.begin() + static_cast<long>(where.index), item);
  return TRUE;
}

BOOL ModifyMenuW(HMENU menu, UINT position, UINT flags, UINT_PTR id, LPCWSTR text) {
  velmo::ui::internal::Located where = Locate(menu, position, flags);
  MenuItem item;
  if (!where.menu || !velmo::ui::internal::MakeItem(flags, id, text, &item)) {
    SetLastError(ERROR_INVALID_PARAMETER);
    return FALSE;
  }
  where.menu->items[where.index] = item;
  return TRUE;
}

BOOL RemoveMenu(HMENU menu, UINT position, UINT flags) {
  velmo::ui::internal::Located where = Locate(menu, position, flags);
  if (!where.menu) {
    SetLastError(ERROR_INVALID_PARAMETER);
    return FALSE;
  }
  where.menu->items.erase(where.menu->items.begin() + static_cast<long>(where.index));
  return TRUE;
}

BOOL DeleteMenu(HMENU menu, UINT position, UINT flags) {
  velmo::ui::internal::Located where = Locate(menu, position, flags);
  if (!where.menu) {
    SetLastError(ERROR_INVALID_PARAMETER);
    return FALSE;
  }
  HMENU sub = where.menu->items[where.index].submenu;
  bool popup = where.menu->items[where.index].flags & MF_POPUP;
  where.menu->items.erase(where.menu->items.begin() + static_cast<long>(where.index));
  if (popup) DestroyMenu(sub);
  return TRUE;
}

DWORD CheckMenuItem(HMENU menu, UINT id, UINT flags) {
  velmo::ui::internal::Located where = Locate(menu, id, flags);
  if (!where.menu) return static_cast<DWORD>(-1);
  MenuItem& item = where.menu->items[where.index];
  DWORD previous = item.flags & MF_CHECKED;
  item.flags = (item.flags & ~(MF_CHECKED | MFT_RADIOCHECK)) | (flags & MF_CHECKED);
  return previous;
}

UINT EnableMenuItem(HMENU menu, UINT id, UINT flags) {
  velmo::ui::internal::Located where = Locate(menu, id, flags);
  if (!where.menu) return static_cast<UINT>(-1);
  MenuItem& item = where.menu->items[where.index];
  UINT previous = item.flags & (MF_GRAYED | MF_DISABLED);
  item.flags = (item.flags & ~(MF_GRAYED | MF_DISABLED)) | (flags & (MF_GRAYED | MF_DISABLED));
  return previous;
}

BOOL CheckMenuRadioItem(HMENU menu, UINT first, UINT last, UINT check, UINT flags) {
  bool found = false;
  if (flags & MF_BYPOSITION) {
    MenuData* data = FindMenu(menu);
    if (!data) return FALSE;
    for (UINT pos = first; pos <= last && pos < data->items.size(); ++pos) {
      MenuItem& item = data->items[pos];
      item.flags &= ~(MF_CHECKED | MFT_RADIOCHECK);
      if (pos == check) {
        item.flags |= MF_CHECKED | MFT_RADIOCHECK;
        found = true;
      }
    }
    return found;
  }
  for (UINT id = first; id <= last; ++id) {
    velmo::ui::internal::Located where = Locate(menu, id, MF_BYCOMMAND);
    if (!where.menu) continue;
    MenuItem& item = where.menu->items[where.index];
    item.flags &= ~(MF_CHECKED | MFT_RADIOCHECK);
    if (id == check) {
      item.flags |= MF_CHECKED | MFT_RADIOCHECK;
      found = true;
    }
  }
  return found;
}

int GetMenuItemCount(HMENU menu) {
  MenuData* data = FindMenu(menu);
  return data ? static_cast<int>(data->items.size()) : -1;
}

UINT GetMenuItemID(HMENU menu, int position) {
  MenuData* data = FindMenu(menu);
  if (!data || position < 0 || static_cast<size_t>(position) >= data->items.size()) {
    return static_cast<UINT>(-1);
  }
  const MenuItem& item = data->items[static_cast<size_t>(position)];
  if (item.flags & MF_POPUP) return static_cast<UINT>(-1);
  return item.flags & MF_SEPARATOR ? 0 : item.id;
}

HMENU GetSubMenu(HMENU menu, int position) {
  MenuData* data = FindMenu(menu);
  if (!data || position < 0 || static_cast<size_t>(position) >= data->items.size()) return nullptr;
  const MenuItem& item = data->items[static_cast<size_t>(position)];
  return item.flags & MF_POPUP ? item.submenu : nullptr;
}

UINT GetMenuState(HMENU menu, UINT id, UINT flags) {
  velmo::ui::internal::Located where = Locate(menu, id, flags);
  if (!where.menu) return static_cast<UINT>(-1);
  return where.menu->items[where.index].flags;
}

int GetMenuStringW(HMENU menu, UINT id, LPWSTR buffer, int max, UINT flags) {
  velmo::ui::internal::Located where = Locate(menu, id, flags);
  if (!where.menu) return 0;
  const std::wstring& text = where.menu->items[where.index].text;
  if (!buffer || max <= 0) return static_cast<int>(text.size());
  size_t n = std::min<size_t>(text.size(), static_cast<size_t>(max - 1));
  std::copy_n(text.data(), n, buffer);
  buffer[n] = 0;
  return static_cast<int>(n);
}
