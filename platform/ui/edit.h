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
constexpr DWORD ES_MULTILINE = 0x0004;
constexpr DWORD ES_AUTOVSCROLL = 0x0040;
constexpr DWORD ES_READONLY = 0x0800;
constexpr DWORD ES_WANTRETURN = 0x1000;

constexpr UINT EM_GETSEL = 0x00B0;
constexpr UINT EM_SETSEL = 0x00B1;
constexpr UINT EM_REPLACESEL = 0x00C2;
constexpr UINT EM_LIMITTEXT = 0x00C5;
constexpr UINT EM_SETLIMITTEXT = EM_LIMITTEXT;
constexpr UINT EM_GETLIMITTEXT = 0x00D5;

// Multi-line edit (ES_MULTILINE): the text wraps at words unless the control has
// WS_HSCROLL (then lines run on and scroll sideways); Enter with ES_WANTRETURN
// puts a line break ("\r\n") in the text; Up/Down move the caret by a line
// (the dialog gets them at the first and last line), Ctrl+Left/Right by a word,
// Ctrl+Home/End to the ends, PageUp/PageDown and the volume keys by a screen;
// Shift with a move selects. WM_CUT, WM_COPY and WM_PASTE use the program's
// clipboard (clipboard.h). Lines of EM_GETLINECOUNT, EM_LINEINDEX and the like
// are the rows shown. EM_LIMITTEXT 0 lifts the limit.
constexpr UINT EM_GETLINECOUNT = 0x00BA;
constexpr UINT EM_LINEINDEX = 0x00BB;
constexpr UINT EM_LINEFROMCHAR = 0x00C9;
constexpr UINT EM_GETFIRSTVISIBLELINE = 0x00CE;
constexpr UINT EM_LINESCROLL = 0x00B6;
constexpr UINT EM_SCROLL = 0x00B5;
constexpr UINT EM_SCROLLCARET = 0x00B7;
constexpr UINT EM_SETREADONLY = 0x00CF;
constexpr UINT EM_GETMODIFY = 0x00B8;
constexpr UINT EM_SETMODIFY = 0x00B9;
constexpr UINT EM_FMTLINES = 0x00C8;  // wParam TRUE: word wrap on
constexpr WPARAM SB_PAGEUP = 2;
constexpr WPARAM SB_PAGEDOWN = 3;
constexpr UINT WM_CUT = 0x0300;
constexpr UINT WM_COPY = 0x0301;
constexpr UINT WM_PASTE = 0x0302;
constexpr UINT WM_CLEAR = 0x0303;

constexpr WORD EN_SETFOCUS = 0x0100;
constexpr WORD EN_KILLFOCUS = 0x0200;
constexpr WORD EN_CHANGE = 0x0300;
constexpr WORD EN_MAXTEXT = 0x0501;
