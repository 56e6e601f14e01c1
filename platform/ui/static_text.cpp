// The static text control: one line, left, centred or right.
#include <string>

#include "platform/ui/dialog.h"
#include "platform/ui/gdi.h"
#include "platform/ui/ui_internal.h"
#include "platform/ui/window.h"

namespace velmo::ui::internal {

LRESULT StaticProc(HWND hwnd, UINT msg, WPARAM wparam, LPARAM lparam) {
  if (msg != WM_PAINT) return DefWindowProcW(hwnd, msg, wparam, lparam);
  PAINTSTRUCT ps;
  HDC hdc = BeginPaint(hwnd, &ps);
  WindowData* w = Find(hwnd);
  if (w) {
    RECT rc;
    GetClientRect(hwnd, &rc);
    UINT align = (w->style & SS_RIGHT) ? DT_RIGHT : (w->style & SS_CENTER) ? DT_CENTER : DT_LEFT;
    SetBkMode(hdc, TRANSPARENT);
    DrawTextW(hdc, w->text.c_str(), -1, &rc, align | DT_WORDBREAK | DT_NOPREFIX);
  }
  EndPaint(hwnd, &ps);
  return 0;
}

}  // namespace velmo::ui::internal
