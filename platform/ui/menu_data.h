// The items of a menu, shared by the menu calls and the open menu.
#pragma once

#include <string>
#include <vector>

#include "platform/ui/types.h"

namespace velmo::ui::internal {

struct MenuItem {
  UINT id = 0;
  UINT flags = 0;  // MF_GRAYED, MF_DISABLED, MF_CHECKED, MF_POPUP, MF_SEPARATOR, MFT_RADIOCHECK
  std::wstring text;
  HMENU submenu = nullptr;
};

struct MenuData {
  std::vector<MenuItem> items;
};

MenuData* FindMenu(HMENU menu);

}  // namespace velmo::ui::internal
