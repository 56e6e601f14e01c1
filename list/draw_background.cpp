// The list's background, painted in place of the list view's own erase.
#include "list/draw_background.h"

#include "list/draw_row.h"
#include "platform/ui/gdi.h"
#include "platform/ui/messages.h"
#include "platform/ui/window.h"

namespace velmo {
namespace {


WNDPROC& OriginalProc() {
  static WNDPROC proc = nullptr;
  return proc;
}

LRESULT GradientListProc(HWND hwnd, UINT msg, WPARAM wparam, LPARAM lparam) {
  if (msg == WM_ERASEBKGND) {
    RECT client{};
    GetClientRect(hwnd, &client);
    DrawListBackground(reinterpret_cast<HDC>(wparam), client, MakeListAppearance());
    return 1;
  }
  return CallWindowProcW(OriginalProc(), hwnd, msg, wparam, lparam);
}

}  // namespace

void DrawListBackground(HDC hdc, const RECT& client, const ListAppearance& look) {
  int lines = client.bottom - client.top;
  for (int y = client.top; y < client.bottom; ++y) {
    RECT line{client.left, y, client.right, y + 1};
    SetBkColor(hdc, ListLineColour(look, y - client.top, lines));
    ExtTextOutW(hdc, client.left, y, ETO_OPAQUE, &line, nullptr, 0, nullptr);
  }
}

BOOL InstallListBackground(HWND list) {
  if (!IsWindow(list)) return FALSE;
  auto current = reinterpret_cast<WNDPROC>(GetWindowLongPtrW(list, GWLP_WNDPROC));
  if (current == GradientListProc) return TRUE;
  // Every list view shares the class procedure, so one original serves them all.
  OriginalProc() = current;
  SetWindowLongPtrW(list, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(GradientListProc));
  return TRUE;
}

}  // namespace velmo
