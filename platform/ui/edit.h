// The single-line edit (class WC_EDITW): its text is the window text. Typed
// characters (WM_CHAR) replace the selection or go in at the caret, Backspace
// deletes before the caret, Delete after it; Left/Right/Home/End move the caret.
// Changes made by typing are reported to the parent as WM_COMMAND
// MAKEWPARAM(id, EN_CHANGE) with the edit as lParam. Up, Down, Enter and Esc are
// left to the dialog or the parent.
#pragma once

#include "platform/ui/types.h"

constexpr wchar_t WC_EDITW[] = L"Edit";

constexpr DWORD ES_LEFT = 0x0000;
constexpr DWORD ES_AUTOHSCROLL = 0x0080;
constexpr DWORD ES_NUMBER = 0x2000;

constexpr UINT EM_GETSEL = 0x00B0;
constexpr UINT EM_SETSEL = 0x00B1;
constexpr UINT EM_REPLACESEL = 0x00C2;
constexpr UINT EM_LIMITTEXT = 0x00C5;
constexpr UINT EM_SETLIMITTEXT = EM_LIMITTEXT;
constexpr UINT EM_GETLIMITTEXT = 0x00D5;

constexpr WORD EN_SETFOCUS = 0x0100;
constexpr WORD EN_KILLFOCUS = 0x0200;
constexpr WORD EN_CHANGE = 0x0300;
constexpr WORD EN_MAXTEXT = 0x0501;
