// The soft-key bar of a top-level window: the bottom row of the screen, the left
// soft key (F1) at its left end and the right soft key (F2, usually "Menu") at
// its right end. A key either sends its command to the owner as WM_COMMAND or
// opens its menu upward from the key. The bar shown is the active window's (or
// that of the nearest owner that has one).
#pragma once

#include "platform/ui/types.h"

struct SOFTKEY {
  LPCWSTR text;   // nullptr or empty: the key shows nothing and does nothing
  UINT command;   // sent when there is no menu
  HMENU menu;     // opened when set (the bar does not own it)
};

constexpr int SK_LEFT = 0;
constexpr int SK_RIGHT = 1;

// Makes the bar of a top-level window (replacing one it had); destroyed with it.
HWND CreateSoftKeyBar(HWND owner, const SOFTKEY* left, const SOFTKEY* right);
BOOL SetSoftKey(HWND bar, int key, const SOFTKEY* soft_key);
// A disabled key is drawn grey and does nothing.
BOOL EnableSoftKey(HWND bar, int key, BOOL enable);
// The bar of a top-level window, or nullptr.
HWND SHFindMenuBar(HWND owner);
