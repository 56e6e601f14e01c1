// The list's background: the window colour, or with "Gradient" a vertical ramp
// over the whole list (rows, and the space below them, and the empty list).
// On a 256-colour terminal the ramp falls into bands of the palette.
#pragma once

#include "list/draw_appearance.h"
#include "platform/ui/types.h"

namespace velmo {

// Fills `client` line by line with the list's background.
void DrawListBackground(HDC hdc, const RECT& client, const ListAppearance& look);

// Makes the list view erase its background with DrawListBackground (the rows
// paint their own lines over it). FALSE when `list` is no window.
BOOL InstallListBackground(HWND list);

}  // namespace velmo
