// The soft-key bar: a hidden top-level window owned by the window whose keys it
// holds; the desktop draws it in the bottom row.
#include "platform/ui/softkey_bar.h"

#include <string>

#include "platform/ui/colours.h"
#include "platform/ui/menu.h"
#include "platform/ui/message_queue.h"
#include "platform/ui/messages.h"
#include "platform/ui/ui_internal.h"
#include "platform/ui/virtual_keys.h"
#include "platform/ui/window.h"

namespace velmo::ui::internal {
namespace {

struct Key {
  std::wstring text;
  UINT command = 0;
  HMENU menu = nullptr;
  bool enabled = true;
};

struct SoftKeyBarData : ControlData {
  Key keys[2];
  int open = -1;  // the key whose menu is open
};

Key MakeKey(const SOFTKEY* key) {
  Key k;
  if (key) {
    k.text = key->text ? key->text : L"";
    k.command = key->command;
    k.menu = key->menu;
  }
  return k;
}

void Press(HWND bar, int which) {
  auto* data = ControlOf<SoftKeyBarData>(bar);
  HWND owner = GetWindow(bar, GW_OWNER);
  if (!data || !owner) return;
  Key key = data->keys[which];
  if (!key.enabled || key.text.empty()) return;
  if (key.menu) {
    Screen* screen = CurrentScreen();
    int width = screen ? screen->width() : 80, height = screen ? screen->height() : 24;
    data->open = which;
    MarkScreenDirty();
    UINT align = which == SK_LEFT ? TPM_LEFTALIGN : TPM_RIGHTALIGN;
    TrackPopupMenuEx(key.menu, align | TPM_BOTTOMALIGN, which == SK_LEFT ? 0 : width,
                     height - 1, owner, nullptr);
    if ((data = ControlOf<SoftKeyBarData>(bar))) data->open = -1;
    MarkScreenDirty();
  } else if (key.command) {
    PostMessageW(owner, WM_COMMAND, MAKEWPARAM(static_cast<WORD>(key.command), 0), 0);
  }
}

}  // namespace

LRESULT SoftKeyBarProc(HWND hwnd, UINT msg, WPARAM wparam, LPARAM lparam) {
  switch (msg) {
    case WM_NCCREATE:
      if (WindowData* w = Find(hwnd)) w->control = std::make_unique<SoftKeyBarData>();
      return TRUE;
    case WM_KEYDOWN:
      if (wparam == VK_TSOFT1) Press(hwnd, SK_LEFT);
      if (wparam == VK_TSOFT2) Press(hwnd, SK_RIGHT);
      return 0;
    case WM_COMMAND:
      return 0;  // a cancel along the owner chain is for the owner, not the bar
    default:
      return DefWindowProcW(hwnd, msg, wparam, lparam);
  }
}

HWND SoftKeyBarFor(HWND top_level) {
  if (!top_level) return nullptr;
  for (HWND top : TopLevelWindows()) {
    WindowData* w = Find(top);
    if (w && w->owner == top_level && !w->destroying && ControlOf<SoftKeyBarData>(top)) return top;
  }
  return nullptr;
}

void PaintSoftKeyBar(Screen& screen, HWND bar, int row) {
  auto* data = ControlOf<SoftKeyBarData>(bar);
  if (!data) return;
  COLORREF bg = GetSysColor(COLOR_BTNFACE);
  for (int which = 0; which < 2; ++which) {
    const Key& key = data->keys[which];
    if (key.text.empty()) continue;
    COLORREF fg = key.enabled ? GetSysColor(COLOR_BTNTEXT) : GetSysColor(COLOR_GRAYTEXT);
    BYTE attrs = data->open == which ? kAttrReverse | kAttrBold : kAttrBold;
    int width = TextWidth(key.text);
    int x = which == SK_LEFT ? 1 : screen.width() - 1 - width;
    if (which == SK_RIGHT && x < 0) x = 0;
    for (wchar_t ch : key.text) x += screen.PutChar(x, row, ch, fg, bg, attrs);
  }
}

}  // namespace velmo::ui::internal

using velmo::ui::internal::ControlOf;
using velmo::ui::internal::SoftKeyBarData;

HWND CreateSoftKeyBar(HWND owner, const SOFTKEY* left, const SOFTKEY* right) {
  HWND top = velmo::ui::internal::TopLevelOf(owner);
  if (!top) return nullptr;
  if (HWND old = velmo::ui::internal::SoftKeyBarFor(top)) DestroyWindow(old);
  HWND bar = CreateWindowExW(0, velmo::ui::internal::kSoftKeyBarClass, L"", WS_POPUP, 0, 0, 0, 0,
                             top, nullptr, nullptr, nullptr);
  auto* data = ControlOf<SoftKeyBarData>(bar);
  if (!data) return nullptr;
  data->keys[SK_LEFT] = velmo::ui::internal::MakeKey(left);
  data->keys[SK_RIGHT] = velmo::ui::internal::MakeKey(right);
  velmo::ui::internal::MarkScreenDirty();
  return bar;
}

BOOL SetSoftKey(HWND bar, int key, const SOFTKEY* soft_key) {
  auto* data = ControlOf<SoftKeyBarData>(bar);
  if (!data || key < 0 || key > 1) return FALSE;
  bool enabled = data->keys[key].enabled;
  data->keys[key] = velmo::ui::internal::MakeKey(soft_key);
  data->keys[key].enabled = enabled;
  velmo::ui::internal::MarkScreenDirty();
  return TRUE;
}

BOOL EnableSoftKey(HWND bar, int key, BOOL enable) {
  auto* data = ControlOf<SoftKeyBarData>(bar);
  if (!data || key < 0 || key > 1) return FALSE;
  data->keys[key].enabled = enable != FALSE;
  velmo::ui::internal::MarkScreenDirty();
  return TRUE;
}

HWND SHFindMenuBar(HWND owner) { return velmo::ui::internal::SoftKeyBarFor(owner); }
