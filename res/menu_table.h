// Menus and soft-key bars as tables of constants: each item names its command
// and the string resource of its text; the window layer builds menus from them.
#pragma once

#include <span>

#include "platform/wintypes.h"

namespace velmo::res {

struct MenuDef;

struct MenuItemDef {
  UINT command = 0;              // 0 for a separator or a submenu
  UINT text_id = 0;              // 0: a separator
  const MenuDef* popup = nullptr;  // a submenu
  UINT flags = 0;                // MFT_RADIOCHECK for the items of a radio group
};

struct MenuDef {
  std::span<const MenuItemDef> items;
};

struct SoftKeyDef {
  UINT text_id = 0;
  UINT command = 0;              // sent when the key has no menu
  const MenuDef* menu = nullptr;
};

struct SoftKeyBarDef {
  SoftKeyDef left;
  SoftKeyDef right;
};

}  // namespace velmo::res
