// Hot keys: a key registered by a window reaches it as WM_HOTKEY (wParam the
// identifier, lParam MAKELPARAM(modifiers, virtual key)) whatever window has the
// focus, as long as the window is enabled (no modal dialog over it) and no menu
// is open. With MOD_KEYUP a second WM_HOTKEY, with MOD_KEYUP in its modifiers,
// follows when the key is released. The terminal reports no modifier keys.
#pragma once

#include "platform/ui/types.h"

BOOL RegisterHotKey(HWND hwnd, int id, UINT modifiers, UINT vk);
BOOL UnregisterHotKey(HWND hwnd, int id);
