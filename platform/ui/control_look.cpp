// Colours and notifications shared by the small built-in controls.
#include "platform/ui/control_look.h"

#include "platform/ui/colours.h"
#include "platform/ui/gdi.h"
#include "platform/ui/message_queue.h"
#include "platform/ui/messages.h"
#include "platform/ui/window.h"

namespace velmo::ui::internal {

ControlColours ColoursFor(HWND hwnd, bool marked) {
  if (!IsWindowEnabled(hwnd)) return {COLOR_GRAYTEXT, COLOR_WINDOW};
  if (marked) return {COLOR_HIGHLIGHTTEXT, COLOR_HIGHLIGHT};
  return {COLOR_WINDOWTEXT, COLOR_WINDOW};
}

void UseColours(HDC hdc, const ControlColours& colours) {
  SetBkMode(hdc, OPAQUE);
  SetTextColor(hdc, GetSysColor(colours.fg));
  SetBkColor(hdc, GetSysColor(colours.bg));
}

void FillWith(HDC hdc, const RECT& rect, const ControlColours& colours) {
  FillRect(hdc, &rect, GetSysColorBrush(colours.bg));
}

void CommandToParent(HWND hwnd, WORD code) {
  if (HWND parent = GetParent(hwnd)) {
    SendMessageW(parent, WM_COMMAND, MAKEWPARAM(static_cast<WORD>(GetDlgCtrlID(hwnd)), code),
                 reinterpret_cast<LPARAM>(hwnd));
  }
}

LRESULT NotifyParent(HWND hwnd, NMHDR* hdr, UINT code) {
  hdr->hwndFrom = hwnd;
  hdr->idFrom = static_cast<UINT_PTR>(GetDlgCtrlID(hwnd));
  hdr->code = code;
  HWND parent = GetParent(hwnd);
  return parent ? SendMessageW(parent, WM_NOTIFY, hdr->idFrom, reinterpret_cast<LPARAM>(hdr)) : 0;
}

}  // namespace velmo::ui::internal
