// Virtual-key codes, with the phone's names for its hardware keys.
//
// How the terminal's keys arrive (see keymap.h):
//   F1 / F2          left / right soft key      VK_TSOFT1 / VK_TSOFT2
//   Enter            action key                 VK_RETURN
//   Esc              back key                   VK_ESCAPE (Backspace too, outside text fields)
//   Backspace        in a text field            VK_BACK
//   arrows           navigation pad             VK_LEFT / VK_UP / VK_RIGHT / VK_DOWN
//   0-9              number keys                '0'..'9'
//   * / #            star / hash keys           VK_TSTAR / VK_TPOUND (with WM_CHAR '*' / '#')
//   F3 / F4          talk / end                 VK_TTALK / VK_TEND
//   F5, PageDown     volume down                VK_TVOLUMEDOWN
//   F6, PageUp       volume up                  VK_TVOLUMEUP
//   F7               record                     VK_TRECORD
//   letters          'A'..'Z' (with WM_CHAR of the letter as typed)
//   ?                63 (with WM_CHAR '?'), the "0" of a phone with a keyboard
//   other characters VK_NONAME, the character itself as WM_CHAR
//   PageUp/PageDown  VK_PRIOR / VK_NEXT when Shift or Control is held with them
#pragma once

#include "platform/wintypes.h"

constexpr UINT VK_BACK = 0x08;
constexpr UINT VK_TAB = 0x09;
constexpr UINT VK_RETURN = 0x0D;
constexpr UINT VK_ESCAPE = 0x1B;
constexpr UINT VK_SHIFT = 0x10;
constexpr UINT VK_CONTROL = 0x11;
constexpr UINT VK_SPACE = 0x20;
constexpr UINT VK_PRIOR = 0x21;
constexpr UINT VK_NEXT = 0x22;
constexpr UINT VK_END = 0x23;
constexpr UINT VK_HOME = 0x24;
constexpr UINT VK_LEFT = 0x25;
constexpr UINT VK_UP = 0x26;
constexpr UINT VK_RIGHT = 0x27;
constexpr UINT VK_DOWN = 0x28;
constexpr UINT VK_DELETE = 0x2E;
constexpr UINT VK_MULTIPLY = 0x6A;
constexpr UINT VK_F1 = 0x70;
constexpr UINT VK_F2 = 0x71;
constexpr UINT VK_F3 = 0x72;
constexpr UINT VK_F4 = 0x73;
constexpr UINT VK_F5 = 0x74;
constexpr UINT VK_F6 = 0x75;
constexpr UINT VK_F7 = 0x76;
constexpr UINT VK_F8 = 0x77;
constexpr UINT VK_F9 = 0x78;
constexpr UINT VK_F10 = 0x79;
constexpr UINT VK_F11 = 0x7A;
constexpr UINT VK_F12 = 0x7B;
constexpr UINT VK_NONAME = 0xFC;

// The phone's keys.
constexpr UINT VK_TSOFT1 = VK_F1;
constexpr UINT VK_TSOFT2 = VK_F2;
constexpr UINT VK_TTALK = VK_F3;
constexpr UINT VK_TEND = VK_F4;
constexpr UINT VK_TVOLUMEUP = VK_F6;
constexpr UINT VK_TVOLUMEDOWN = VK_F7;
constexpr UINT VK_TSTAR = VK_F8;
constexpr UINT VK_TPOUND = VK_F9;
constexpr UINT VK_TRECORD = VK_F10;
constexpr UINT VK_TBACK = VK_ESCAPE;
constexpr UINT VK_TACTION = VK_RETURN;
constexpr UINT VK_TUP = VK_UP;
constexpr UINT VK_TDOWN = VK_DOWN;
constexpr UINT VK_TLEFT = VK_LEFT;
constexpr UINT VK_TRIGHT = VK_RIGHT;
// The "?" key of a phone with a keyboard.
constexpr UINT VK_QUESTION = 63;

// Whether Shift or Control (VK_SHIFT, VK_CONTROL) was held with the key being
// handled: the high bit set when it was. Terminals report them only with the
// arrows, Home, End, PageUp and PageDown (Shift, Control, or both).
SHORT GetKeyState(int vk);
