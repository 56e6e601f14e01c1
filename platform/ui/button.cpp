// The check box: a box glyph and the window text on one line.
#include "platform/ui/button.h"

#include <string>

#include "platform/ui/control_look.h"
#include "platform/ui/gdi.h"
#include "platform/ui/message_queue.h"
#include "platform/ui/messages.h"
#include "platform/ui/ui_internal.h"
#include "platform/ui/virtual_keys.h"
#include "platform/ui/window.h"

namespace velmo::ui::internal {
namespace {

constexpr wchar_t kBoxGlyph[] = {L'☐', L'☑'};

struct CheckBoxData : ControlData {
  bool checked = false;
};

CheckBoxData* Data(HWND hwnd) { return ControlOf<CheckBoxData>(hwnd); }

bool IsToggleKey(UINT vk) { return vk == VK_SPACE || vk == VK_RETURN; }

void Click(HWND hwnd) {
  CheckBoxData* d = Data(hwnd);
  if (!d) return;
  if ((GetWindowLongPtrW(hwnd, GWL_STYLE) & 0xF) == BS_AUTOCHECKBOX) {
    d->checked = !d->checked;
    MarkScreenDirty();
  }
  CommandToParent(hwnd, BN_CLICKED);
}

// The whole line is marked while the box has the focus.
void Paint(HWND hwnd) {
  PAINTSTRUCT ps;
  HDC hdc = BeginPaint(hwnd, &ps);
  CheckBoxData* d = Data(hwnd);
  WindowData* w = Find(hwnd);
  RECT rc;
  GetClientRect(hwnd, &rc);
  if (d && w && rc.right > 0 && rc.bottom > 0) {
    ControlColours colours = ColoursFor(hwnd, GetFocus() == hwnd);
    UseColours(hdc, colours);
    RECT line{0, 0, rc.right, 1};
    FillWith(hdc, line, colours);
    std::wstring text = std::wstring(1, kBoxGlyph[d->checked]) + L" " + w->text;
    DrawTextW(hdc, text.c_str(), -1, &line, DT_SINGLELINE | DT_END_ELLIPSIS | DT_NOPREFIX);
  }
  EndPaint(hwnd, &ps);
}

}  // namespace

LRESULT CheckBoxProc(HWND hwnd, UINT msg, WPARAM wparam, LPARAM lparam) {
  if (msg == WM_NCCREATE) {
    if (WindowData* w = Find(hwnd)) w->control = std::make_unique<CheckBoxData>();
    return TRUE;
  }
  CheckBoxData* d = Data(hwnd);
  if (!d) return DefWindowProcW(hwnd, msg, wparam, lparam);
  switch (msg) {
    case WM_PAINT:
      Paint(hwnd);
      return 0;
    case WM_GETDLGCODE:
      // Enter toggles the box instead of ending the dialog.
      return wparam == VK_RETURN ? DLGC_WANTALLKEYS : 0;
    case WM_KEYDOWN:
      if (IsToggleKey(static_cast<UINT>(wparam))) Click(hwnd);
      return 0;
    case WM_SETFOCUS:
    case WM_KILLFOCUS:
    case WM_ENABLE:
      MarkScreenDirty();
      return 0;
    case BM_GETCHECK:
      return d->checked ? BST_CHECKED : BST_UNCHECKED;
    case BM_SETCHECK:
      d->checked = wparam == BST_CHECKED;
      MarkScreenDirty();
      return 0;
    default:
      return DefWindowProcW(hwnd, msg, wparam, lparam);
  }
}

}  // namespace velmo::ui::internal
