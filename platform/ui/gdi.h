// Drawing: device contexts over the screen's cells, brushes, fonts (bold, italic,
// underline) and text, with the platform's names. Coordinates are the window's
// client cells; a character is one cell wide or two (double-width).
#pragma once

#include "platform/ui/colours.h"
#include "platform/ui/types.h"

HDC BeginPaint(HWND hwnd, PAINTSTRUCT* ps);
BOOL EndPaint(HWND hwnd, const PAINTSTRUCT* ps);
// A context for drawing outside WM_PAINT; what it draws lasts until the next repaint.
HDC GetDC(HWND hwnd);
int ReleaseDC(HWND hwnd, HDC hdc);

constexpr int TRANSPARENT = 1;
constexpr int OPAQUE = 2;
COLORREF SetTextColor(HDC hdc, COLORREF colour);
COLORREF GetTextColor(HDC hdc);
COLORREF SetBkColor(HDC hdc, COLORREF colour);
COLORREF GetBkColor(HDC hdc);
int SetBkMode(HDC hdc, int mode);

HBRUSH CreateSolidBrush(COLORREF colour);
// A brush of a system colour; it follows the colour when the theme changes.
HBRUSH GetSysColorBrush(int index);
constexpr int FW_NORMAL = 400;
constexpr int FW_BOLD = 700;
HFONT CreateFontIndirectW(const LOGFONTW* font);
HGDIOBJ SelectObject(HDC hdc, HGDIOBJ object);
BOOL DeleteObject(HGDIOBJ object);

BOOL FillRect(HDC hdc, const RECT* rect, HBRUSH brush);
BOOL TextOutW(HDC hdc, int x, int y, LPCWSTR text, int length);
constexpr UINT ETO_OPAQUE = 0x0002;
constexpr UINT ETO_CLIPPED = 0x0004;
BOOL ExtTextOutW(HDC hdc, int x, int y, UINT options, const RECT* rect, LPCWSTR text,
                 UINT length, const int* spacing);
BOOL GetTextExtentPoint32W(HDC hdc, LPCWSTR text, int length, SIZE* size);

constexpr UINT DT_LEFT = 0x0000;
constexpr UINT DT_CENTER = 0x0001;
constexpr UINT DT_RIGHT = 0x0002;
constexpr UINT DT_VCENTER = 0x0004;
constexpr UINT DT_BOTTOM = 0x0008;
constexpr UINT DT_WORDBREAK = 0x0010;
constexpr UINT DT_SINGLELINE = 0x0020;
constexpr UINT DT_EXPANDTABS = 0x0040;
constexpr UINT DT_NOCLIP = 0x0100;
constexpr UINT DT_CALCRECT = 0x0400;
constexpr UINT DT_NOPREFIX = 0x0800;
constexpr UINT DT_END_ELLIPSIS = 0x8000;
// Returns the height of the text drawn, in lines. `length` -1: up to the terminator.
int DrawTextW(HDC hdc, LPCWSTR text, int length, RECT* rect, UINT format);

namespace velmo::ui {
// Cell attributes (screen.h: kAttrReverse ...) added to everything the context
// draws, besides those of its font.
BYTE SetTextAttributes(HDC hdc, BYTE attributes);
}  // namespace velmo::ui
