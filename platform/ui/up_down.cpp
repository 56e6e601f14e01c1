// The up-down control: steps a position within a range, or a spinner list's
// entries. With a buddy it draws its marks in the cells just before and after
// the buddy (the buddy's layout leaves them free), so it follows the buddy
// wherever a layout moves it; without one it draws them in its own cells.
#include <algorithm>
#include <map>
#include <string>

#include "platform/ui/control_look.h"
#include "platform/ui/gdi.h"
#include "platform/ui/message_queue.h"
#include "platform/ui/messages.h"
#include "platform/ui/spinner.h"
#include "platform/ui/ui_internal.h"
#include "platform/ui/virtual_keys.h"
#include "platform/ui/window.h"

namespace velmo::ui::internal {
namespace {

constexpr wchar_t kMarks[] = L"◂▸";

struct UpDownData : ControlData {
  HWND buddy = nullptr;
  int lower = 0;
  int upper = 100;
  int pos = 0;
};

// Buddies whose arrow keys an up-down takes (UDS_ARROWKEYS): their own procedure.
struct Subclassed {
  WNDPROC proc;
  HWND up_down;
};
std::map<HWND, Subclassed>& Buddies() {
  static std::map<HWND, Subclassed> buddies;
  return buddies;
}

UpDownData* Data(HWND hwnd) { return ControlOf<UpDownData>(hwnd); }
DWORD Style(HWND hwnd) { return static_cast<DWORD>(GetWindowLongPtrW(hwnd, GWL_STYLE)); }

bool IsListBox(HWND hwnd) {
  WindowData* w = Find(hwnd);
  return w && w->class_name == WC_LISTBOXW;
}

int StepFromKey(UINT vk) { return vk == VK_RIGHT ? 1 : vk == VK_LEFT ? -1 : 0; }

LRESULT BuddyProc(HWND hwnd, UINT msg, WPARAM wparam, LPARAM lparam) {
  auto it = Buddies().find(hwnd);
  if (it == Buddies().end()) return DefWindowProcW(hwnd, msg, wparam, lparam);
  Subclassed sub = it->second;
  if (msg == WM_KEYDOWN && StepFromKey(static_cast<UINT>(wparam))) {
    SendMessageW(sub.up_down, kUpDownStep, static_cast<WPARAM>(StepFromKey(static_cast<UINT>(wparam))), 0);
    return 0;
  }
  if (msg == WM_NCDESTROY) Buddies().erase(hwnd);
  return CallWindowProcW(sub.proc, hwnd, msg, wparam, lparam);
}

void ReleaseBuddy(HWND hwnd, UpDownData* d) {
  HWND buddy = d->buddy;
  d->buddy = nullptr;
  if (!buddy || !IsWindow(buddy)) return;
  if (IsListBox(buddy)) SendMessageW(buddy, kListBoxSetUpDown, 0, 0);
  auto it = Buddies().find(buddy);
  if (it != Buddies().end() && it->second.up_down == hwnd) {
    SetWindowLongPtrW(buddy, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(it->second.proc));
    Buddies().erase(it);
  }
}

void ShowPosInBuddy(HWND hwnd, const UpDownData* d) {
  if (d->buddy && (Style(hwnd) & UDS_SETBUDDYINT) && !IsListBox(d->buddy)) {
    SetWindowTextW(d->buddy, std::to_wstring(d->pos).c_str());
  }
}

void AttachBuddy(HWND hwnd, HWND buddy) {
  UpDownData* d = Data(hwnd);
  if (!d) return;
  ReleaseBuddy(hwnd, d);
  if (!buddy || !IsWindow(buddy)) return;
  d->buddy = buddy;
  if (IsListBox(buddy)) {
    SendMessageW(buddy, kListBoxSetUpDown, reinterpret_cast<WPARAM>(hwnd), 0);
  } else if (Style(hwnd) & UDS_ARROWKEYS) {
    auto proc = reinterpret_cast<WNDPROC>(GetWindowLongPtrW(buddy, GWLP_WNDPROC));
    if (proc == &BuddyProc) {
      Buddies()[buddy].up_down = hwnd;
    } else {
      Buddies()[buddy] = Subclassed{proc, hwnd};
      SetWindowLongPtrW(buddy, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&BuddyProc));
    }
  }
  ShowPosInBuddy(hwnd, d);
  MarkScreenDirty();
}

struct Range {
  int low;
  int high;
  int pos;
};

// A list buddy's range is its entries, its position the current one.
Range CurrentRange(const UpDownData* d) {
  if (d->buddy && IsListBox(d->buddy)) {
    int n = static_cast<int>(SendMessageW(d->buddy, LB_GETCOUNT, 0, 0));
    return {0, n - 1, static_cast<int>(SendMessageW(d->buddy, LB_GETCURSEL, 0, 0))};
  }
  return {std::min(d->lower, d->upper), std::max(d->lower, d->upper), d->pos};
}

void SetPos(HWND hwnd, UpDownData* d, int pos) {
  if (d->buddy && IsListBox(d->buddy)) {
    SendMessageW(d->buddy, LB_SETCURSEL, static_cast<WPARAM>(pos), 0);
  }
  d->pos = pos;
  ShowPosInBuddy(hwnd, d);
  MarkScreenDirty();
}

// Steps by `delta`, wrapping with UDS_WRAP; the parent may refuse the step.
void Step(HWND hwnd, int delta) {
  UpDownData* d = Data(hwnd);
  if (!d || delta == 0 || !IsWindowEnabled(hwnd)) return;
  Range r = CurrentRange(d);
  if (r.high < r.low) return;
  int next = r.pos < r.low ? (delta > 0 ? r.low : r.high) : r.pos + delta;
  if (next < r.low || next > r.high) {
    if (!(Style(hwnd) & UDS_WRAP)) next = std::clamp(next, r.low, r.high);
    else next = next < r.low ? r.high : r.low;
  }
  if (next == r.pos) return;
  NMUPDOWN nm{};
  nm.iPos = r.pos;
  nm.iDelta = next - r.pos;
  if (NotifyParent(hwnd, &nm.hdr, UDN_DELTAPOS)) return;
  if (!(d = Data(hwnd))) return;
  SetPos(hwnd, d, next);
  if (d->buddy && IsListBox(d->buddy)) CommandToParent(d->buddy, LBN_SELCHANGE);
}

// `state` is the window whose state (disabled, focused) the marks show.
void DrawMarks(HWND state, HDC hdc, int left, int right, int y) {
  ControlColours colours = ColoursFor(state, GetFocus() == state);
  UseColours(hdc, colours);
  DrawCells(hdc, left, y, std::wstring_view(kMarks, 1));
  DrawCells(hdc, right, y, std::wstring_view(kMarks + 1, 1));
}

void Paint(HWND hwnd) {
  PAINTSTRUCT ps;
  HDC own = BeginPaint(hwnd, &ps);
  UpDownData* d = Data(hwnd);
  if (d && d->buddy && IsWindow(d->buddy)) {
    if (IsWindowVisible(d->buddy)) {
      HWND parent = GetParent(d->buddy);
      RECT buddy = ScreenRectOf(d->buddy), origin = ScreenRectOf(parent);
      HDC hdc = GetDC(parent);
      DrawMarks(IsWindowEnabled(hwnd) ? d->buddy : hwnd, hdc, buddy.left - origin.left - 1,
                buddy.right - origin.left, buddy.top - origin.top);
      ReleaseDC(parent, hdc);
    }
  } else if (d) {
    RECT rc;
    GetClientRect(hwnd, &rc);
    if (rc.right >= 2) DrawMarks(hwnd, own, 0, rc.right - 1, 0);
  }
  EndPaint(hwnd, &ps);
}

}  // namespace

LRESULT UpDownProc(HWND hwnd, UINT msg, WPARAM wparam, LPARAM lparam) {
  if (msg == WM_NCCREATE) {
    if (WindowData* w = Find(hwnd)) w->control = std::make_unique<UpDownData>();
    return TRUE;
  }
  UpDownData* d = Data(hwnd);
  if (!d) return DefWindowProcW(hwnd, msg, wparam, lparam);
  switch (msg) {
    case WM_CREATE:
      if (Style(hwnd) & UDS_AUTOBUDDY) AttachBuddy(hwnd, GetWindow(hwnd, GW_HWNDPREV));
      return 0;
    case WM_DESTROY:
      ReleaseBuddy(hwnd, d);
      return 0;
    case WM_PAINT:
      Paint(hwnd);
      return 0;
    case WM_GETDLGCODE:
      return 0;
    case WM_KEYDOWN:
      Step(hwnd, StepFromKey(static_cast<UINT>(wparam)));
      return 0;
    case WM_SETFOCUS:
    case WM_KILLFOCUS:
    case WM_ENABLE:
      MarkScreenDirty();
      return 0;
    case kUpDownStep:
      Step(hwnd, static_cast<int>(static_cast<LONG_PTR>(wparam)));
      return 0;
    case UDM_SETBUDDY: {
      HWND old = d->buddy;
      AttachBuddy(hwnd, reinterpret_cast<HWND>(wparam));
      return reinterpret_cast<LRESULT>(old);
    }
    case UDM_GETBUDDY:
      return reinterpret_cast<LRESULT>(d->buddy);
    case UDM_SETRANGE:
      d->upper = static_cast<short>(LOWORD(lparam));
      d->lower = static_cast<short>(HIWORD(lparam));
      return 0;
    case UDM_GETRANGE:
      return static_cast<LRESULT>(
          MAKELONG(static_cast<WORD>(d->upper), static_cast<WORD>(d->lower)));
    case UDM_SETPOS: {
      Range r = CurrentRange(d);
      int old = r.pos;
      SetPos(hwnd, d, std::clamp<int>(static_cast<short>(LOWORD(lparam)), r.low, std::max(r.low, r.high)));
      return old;
    }
    case UDM_GETPOS:
      return static_cast<LRESULT>(MAKELONG(static_cast<WORD>(CurrentRange(d).pos), 0));
    default:
      return DefWindowProcW(hwnd, msg, wparam, lparam);
  }
}

}  // namespace velmo::ui::internal
