// Windows: classes with a window procedure each, creation and destruction, the
// parent/child tree and the owner chain, window data, focus and activation.
//
// Top-level windows made with CW_USEDEFAULT fill the work area: the screen
// between the title line (top row, the active window's title) and the soft-key
// bar (bottom row); they follow the terminal's size. Child windows are placed in
// their parent's client cells. Everything runs on the thread of the message loop.
#pragma once

#include "platform/ui/messages.h"
#include "platform/ui/types.h"

ATOM RegisterClassW(const WNDCLASSW* wc);
BOOL UnregisterClassW(LPCWSTR class_name, HINSTANCE instance);

// For a child window (WS_CHILD) `parent` is its parent and `menu` its control
// identifier; for a top-level window `parent` is its owner (the owner's top-level
// window is taken). Sends WM_NCCREATE, WM_CREATE (-1 refuses) and WM_SIZE.
HWND CreateWindowExW(DWORD ex_style, LPCWSTR class_name, LPCWSTR window_name, DWORD style,
                     int x, int y, int width, int height, HWND parent, HMENU menu,
                     HINSTANCE instance, LPVOID param);
// Destroys the windows it owns, then itself and its children (WM_DESTROY parent
// first, WM_NCDESTROY children first).
BOOL DestroyWindow(HWND hwnd);
BOOL IsWindow(HWND hwnd);

LRESULT DefWindowProcW(HWND hwnd, UINT msg, WPARAM wparam, LPARAM lparam);
LRESULT CallWindowProcW(WNDPROC proc, HWND hwnd, UINT msg, WPARAM wparam, LPARAM lparam);
LONG_PTR GetWindowLongPtrW(HWND hwnd, int index);
LONG_PTR SetWindowLongPtrW(HWND hwnd, int index, LONG_PTR value);

HWND GetWindow(HWND hwnd, UINT relation);
// The parent of a child window, the owner of a top-level window.
HWND GetParent(HWND hwnd);
BOOL IsChild(HWND parent, HWND hwnd);
// Top-level windows, topmost first, until the callback returns FALSE.
BOOL EnumWindows(WNDENUMPROC callback, LPARAM lparam);
HWND GetDlgItem(HWND dialog, int id);
int GetDlgCtrlID(HWND hwnd);

BOOL SetWindowTextW(HWND hwnd, LPCWSTR text);
int GetWindowTextW(HWND hwnd, LPWSTR buffer, int max);
int GetWindowTextLengthW(HWND hwnd);

BOOL ShowWindow(HWND hwnd, int command);
BOOL IsWindowVisible(HWND hwnd);
BOOL EnableWindow(HWND hwnd, BOOL enable);
BOOL IsWindowEnabled(HWND hwnd);
BOOL MoveWindow(HWND hwnd, int x, int y, int width, int height, BOOL repaint);
BOOL GetClientRect(HWND hwnd, RECT* rect);
BOOL GetWindowRect(HWND hwnd, RECT* rect);

// Keyboard focus; returns the window that had it.
HWND SetFocus(HWND hwnd);
HWND GetFocus();
// The active window is the topmost visible top-level window.
HWND GetActiveWindow();
HWND GetForegroundWindow();
// Raises the window's top-level window with the windows it owns. The lowest bit
// of the handle may be set (the platform's form for "with its owned windows").
BOOL SetForegroundWindow(HWND hwnd);

BOOL InvalidateRect(HWND hwnd, const RECT* rect, BOOL erase);
BOOL UpdateWindow(HWND hwnd);

constexpr int SM_CXSCREEN = 0;
constexpr int SM_CYSCREEN = 1;
int GetSystemMetrics(int index);

// The caret: the terminal cursor, shown in the focused text field.
BOOL CreateCaret(HWND hwnd, void* bitmap, int width, int height);
BOOL DestroyCaret();
BOOL SetCaretPos(int x, int y);
BOOL ShowCaret(HWND hwnd);
BOOL HideCaret(HWND hwnd);

BOOL SetRect(RECT* rect, int left, int top, int right, int bottom);
BOOL IntersectRect(RECT* out, const RECT* a, const RECT* b);
BOOL IsRectEmpty(const RECT* rect);
