// Message numbers, window styles and the other constants of the window system,
// with the platform's names and values.
#pragma once

#include "platform/ui/types.h"

// Window messages (WM_COMMAND, WM_COPYDATA and WM_APP are in wintypes.h).
constexpr UINT WM_NULL = 0x0000;
constexpr UINT WM_CREATE = 0x0001;
constexpr UINT WM_DESTROY = 0x0002;
constexpr UINT WM_MOVE = 0x0003;
constexpr UINT WM_SIZE = 0x0005;
constexpr UINT WM_ACTIVATE = 0x0006;
constexpr UINT WM_SETFOCUS = 0x0007;
constexpr UINT WM_KILLFOCUS = 0x0008;
constexpr UINT WM_ENABLE = 0x000A;
constexpr UINT WM_SETTEXT = 0x000C;
constexpr UINT WM_GETTEXT = 0x000D;
constexpr UINT WM_GETTEXTLENGTH = 0x000E;
constexpr UINT WM_PAINT = 0x000F;
constexpr UINT WM_CLOSE = 0x0010;
constexpr UINT WM_QUIT = 0x0012;
constexpr UINT WM_ERASEBKGND = 0x0014;
constexpr UINT WM_SHOWWINDOW = 0x0018;
constexpr UINT WM_CANCELMODE = 0x001F;
constexpr UINT WM_DRAWITEM = 0x002B;
constexpr UINT WM_MEASUREITEM = 0x002C;
constexpr UINT WM_NOTIFY = 0x004E;
constexpr UINT WM_NCCREATE = 0x0081;
constexpr UINT WM_NCDESTROY = 0x0082;
constexpr UINT WM_GETDLGCODE = 0x0087;
constexpr UINT WM_KEYDOWN = 0x0100;
constexpr UINT WM_KEYUP = 0x0101;
constexpr UINT WM_CHAR = 0x0102;
constexpr UINT WM_INITDIALOG = 0x0110;
constexpr UINT WM_TIMER = 0x0113;
constexpr UINT WM_INITMENUPOPUP = 0x0117;
constexpr UINT WM_HOTKEY = 0x0312;
constexpr UINT WM_USER = 0x0400;

// WM_ACTIVATE states.
constexpr WORD WA_INACTIVE = 0;
constexpr WORD WA_ACTIVE = 1;

// WM_SIZE kinds.
constexpr WPARAM SIZE_RESTORED = 0;

// Window styles.
constexpr DWORD WS_OVERLAPPED = 0x00000000;
constexpr DWORD WS_POPUP = 0x80000000;
constexpr DWORD WS_CHILD = 0x40000000;
constexpr DWORD WS_VISIBLE = 0x10000000;
constexpr DWORD WS_DISABLED = 0x08000000;
constexpr DWORD WS_BORDER = 0x00800000;
constexpr DWORD WS_CAPTION = 0x00C00000;
constexpr DWORD WS_TABSTOP = 0x00010000;
constexpr DWORD WS_GROUP = 0x00020000;
constexpr DWORD WS_VSCROLL = 0x00200000;
constexpr DWORD WS_HSCROLL = 0x00100000;

constexpr int CW_USEDEFAULT = static_cast<int>(0x80000000u);

// GetWindowLongPtrW / SetWindowLongPtrW indexes.
constexpr int GWLP_WNDPROC = -4;
constexpr int GWLP_HINSTANCE = -6;
constexpr int GWLP_ID = -12;
constexpr int GWL_STYLE = -16;
constexpr int GWL_EXSTYLE = -20;
constexpr int GWLP_USERDATA = -21;
// Dialog windows.
constexpr int DWLP_MSGRESULT = 0;
constexpr int DWLP_DLGPROC = static_cast<int>(sizeof(LRESULT));
constexpr int DWLP_USER = DWLP_DLGPROC + static_cast<int>(sizeof(DLGPROC));

// GetWindow relations.
constexpr UINT GW_HWNDFIRST = 0;
constexpr UINT GW_HWNDLAST = 1;
constexpr UINT GW_HWNDNEXT = 2;
constexpr UINT GW_HWNDPREV = 3;
constexpr UINT GW_OWNER = 4;
constexpr UINT GW_CHILD = 5;

// ShowWindow commands.
constexpr int SW_HIDE = 0;
constexpr int SW_SHOWNORMAL = 1;
constexpr int SW_SHOW = 5;
constexpr int SW_SHOWNA = 8;

// PeekMessageW.
constexpr UINT PM_NOREMOVE = 0x0000;
constexpr UINT PM_REMOVE = 0x0001;

// Hot-key modifiers. MOD_KEYUP asks for a second WM_HOTKEY when the key is released.
constexpr UINT MOD_ALT = 0x0001;
constexpr UINT MOD_CONTROL = 0x0002;
constexpr UINT MOD_SHIFT = 0x0004;
constexpr UINT MOD_WIN = 0x0008;
constexpr UINT MOD_KEYUP = 0x1000;

// Dialog codes (WM_GETDLGCODE).
constexpr LRESULT DLGC_WANTARROWS = 0x0001;
constexpr LRESULT DLGC_WANTTAB = 0x0002;
constexpr LRESULT DLGC_WANTALLKEYS = 0x0004;
constexpr LRESULT DLGC_HASSETSEL = 0x0008;
constexpr LRESULT DLGC_WANTCHARS = 0x0080;

// Dialog and message-box results (IDOK and IDCANCEL are in wintypes.h).
constexpr int IDABORT = 3;
constexpr int IDRETRY = 4;
constexpr int IDIGNORE = 5;
constexpr int IDYES = 6;
constexpr int IDNO = 7;

// Owner-draw.
constexpr UINT ODT_MENU = 1;
constexpr UINT ODT_LISTBOX = 2;
constexpr UINT ODT_LISTVIEW = 102;
constexpr UINT ODA_DRAWENTIRE = 0x0001;
constexpr UINT ODS_SELECTED = 0x0001;
constexpr UINT ODS_GRAYED = 0x0002;
constexpr UINT ODS_DISABLED = 0x0004;
constexpr UINT ODS_FOCUS = 0x0010;

// Last errors of the window system.
constexpr DWORD ERROR_INVALID_MENU_HANDLE = 1401;
constexpr DWORD ERROR_CANNOT_FIND_WND_CLASS = 1407;
constexpr DWORD ERROR_CLASS_ALREADY_EXISTS = 1410;
constexpr DWORD ERROR_HOTKEY_ALREADY_REGISTERED = 1409;
constexpr DWORD ERROR_HOTKEY_NOT_REGISTERED = 1419;
constexpr DWORD ERROR_INVALID_INDEX = 1413;
