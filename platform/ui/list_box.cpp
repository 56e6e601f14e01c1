// The spinner list: a one-line list box showing its current entry. Left/Right
// step it, through its up-down when it has one (which draws the marks beside it
// and may wrap), else by itself without wrapping.
#include <algorithm>
#include <string>
#include <vector>

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

struct Entry {
  std::wstring text;
  LPARAM data = 0;
};

struct ListBoxData : ControlData {
  std::vector<Entry> entries;
  int current = -1;
  HWND up_down = nullptr;
};

ListBoxData* Data(HWND hwnd) { return ControlOf<ListBoxData>(hwnd); }

int Count(const ListBoxData* d) { return static_cast<int>(d->entries.size()); }

void Step(HWND hwnd, ListBoxData* d, int delta) {
  if (d->up_down && IsWindow(d->up_down)) {
    SendMessageW(d->up_down, kUpDownStep, static_cast<WPARAM>(delta), 0);
    return;
  }
  int n = Count(d);
  if (n == 0) return;
  int next = d->current < 0 ? 0 : std::clamp(d->current + delta, 0, n - 1);
  if (next == d->current) return;
  d->current = next;
  MarkScreenDirty();
  CommandToParent(hwnd, LBN_SELCHANGE);
}

void Paint(HWND hwnd) {
  PAINTSTRUCT ps;
  HDC hdc = BeginPaint(hwnd, &ps);
  ListBoxData* d = Data(hwnd);
  RECT rc;
  GetClientRect(hwnd, &rc);
  if (d && rc.right > 0 && rc.bottom > 0) {
    ControlColours colours = ColoursFor(hwnd, GetFocus() == hwnd);
    RECT line{0, 0, rc.right, 1};
    FillWith(hdc, line, colours);
    UseColours(hdc, colours);
    if (d->current >= 0 && d->current < Count(d)) {
      const std::wstring& text = d->entries[static_cast<size_t>(d->current)].text;
      DrawTextW(hdc, text.c_str(), -1, &line, DT_SINGLELINE | DT_END_ELLIPSIS | DT_NOPREFIX);
    }
  }
  EndPaint(hwnd, &ps);
}

LRESULT Insert(ListBoxData* d, int at, LPCWSTR text) {
  if (!text) return LB_ERR;
  if (at < 0 || at > Count(d)) at = Count(d);
  d->entries.insert(d->entries.begin() + at, Entry{text, 0});
  if (d->current >= at) ++d->current;
  MarkScreenDirty();
  return at;
}

// Copies an entry's text into the caller's buffer (big enough, as LB_GETTEXTLEN says).
LRESULT CopyText(const Entry& entry, LPARAM buffer) {
  auto* out = reinterpret_cast<wchar_t*>(buffer);
  if (!out) return LB_ERR;
  std::copy(entry.text.begin(), entry.text.end(), out);
  out[entry.text.size()] = 0;
  return static_cast<LRESULT>(entry.text.size());
}

}  // namespace

LRESULT ListBoxProc(HWND hwnd, UINT msg, WPARAM wparam, LPARAM lparam) {
  if (msg == WM_NCCREATE) {
    if (WindowData* w = Find(hwnd)) w->control = std::make_unique<ListBoxData>();
    return TRUE;
  }
  ListBoxData* d = Data(hwnd);
  if (!d) return DefWindowProcW(hwnd, msg, wparam, lparam);
  int i = static_cast<int>(static_cast<LONG_PTR>(wparam));
  bool valid = i >= 0 && i < Count(d);
  switch (msg) {
    case WM_PAINT:
      Paint(hwnd);
      return 0;
    case WM_GETDLGCODE:
      return 0;  // Up/Down move between the dialog's fields
    case WM_KEYDOWN:
      if (wparam == VK_LEFT || wparam == VK_RIGHT) Step(hwnd, d, wparam == VK_LEFT ? -1 : 1);
      return 0;
    case WM_SETFOCUS:
    case WM_KILLFOCUS:
    case WM_ENABLE:
      MarkScreenDirty();
      return 0;
    case kListBoxSetUpDown:
      d->up_down = reinterpret_cast<HWND>(wparam);
      return 0;
    case LB_ADDSTRING:
      return Insert(d, -1, reinterpret_cast<LPCWSTR>(lparam));
    case LB_INSERTSTRING:
      return Insert(d, i, reinterpret_cast<LPCWSTR>(lparam));
    case LB_DELETESTRING:
      if (!valid) return LB_ERR;
      d->entries.erase(d->entries.begin() + i);
      if (d->current == i) d->current = -1;
      if (d->current > i) --d->current;
      MarkScreenDirty();
      return Count(d);
    case LB_RESETCONTENT:
      d->entries.clear();
      d->current = -1;
      MarkScreenDirty();
      return 0;
    case LB_SETCURSEL:
      d->current = valid ? i : -1;
      MarkScreenDirty();
      return valid ? i : LB_ERR;
    case LB_GETCURSEL:
      return d->current;
    case LB_GETCOUNT:
      return Count(d);
    case LB_GETTEXT:
      return valid ? CopyText(d->entries[static_cast<size_t>(i)], lparam) : LB_ERR;
    case LB_GETTEXTLEN:
      return valid ? static_cast<LRESULT>(d->entries[static_cast<size_t>(i)].text.size()) : LB_ERR;
    case LB_GETITEMDATA:
      return valid ? d->entries[static_cast<size_t>(i)].data : LB_ERR;
    case LB_SETITEMDATA:
      if (!valid) return LB_ERR;
      d->entries[static_cast<size_t>(i)].data = lparam;
      return 0;
    default:
      return DefWindowProcW(hwnd, msg, wparam, lparam);
  }
}

}  // namespace velmo::ui::internal
