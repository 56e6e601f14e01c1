// Window classes, the window table, the window tree and owner chain, focus and
// activation.
#include "platform/ui/window.h"

#include <algorithm>
#include <cwctype>
#include <map>
#include <unordered_map>

#include "platform/lasterror.h"
#include "platform/ui/gdi.h"
#include "platform/ui/message_queue.h"
#include "platform/ui/ui_internal.h"

namespace velmo::ui::internal {
namespace {

struct ClassEntry {
  WNDCLASSW wc{};
  std::wstring name;
};

struct NoCaseLess {
  bool operator()(const std::wstring& a, const std::wstring& b) const {
    return std::lexicographical_compare(a.begin(), a.end(), b.begin(), b.end(),
                                        [](wchar_t x, wchar_t y) {
                                          return std::towlower(x) < std::towlower(y);
                                        });
  }
};

struct WindowSystem {
  std::map<std::wstring, ClassEntry, NoCaseLess> classes;
  ATOM next_atom = 0xC000;
  std::unordered_map<HWND, std::unique_ptr<WindowData>> windows;
  // Handles are never reused and keep their lowest bits clear.
  std::uintptr_t next_handle = 0x10000;
  std::vector<HWND> top_levels;  // bottom of the z-order first
  HWND focus = nullptr;
  HWND active = nullptr;
  int call_depth = 0;
  std::vector<std::unique_ptr<WindowData>> graveyard;
};

WindowSystem& Sys() {
  static WindowSystem sys;
  return sys;
}

HWND StripHandleBits(HWND hwnd) {
  return reinterpret_cast<HWND>(reinterpret_cast<std::uintptr_t>(hwnd) & ~std::uintptr_t{3});
}

void Unlink(WindowData* w) {
  WindowSystem& sys = Sys();
  if (w->parent) {
    if (WindowData* p = Find(w->parent)) std::erase(p->children, w->handle);
  } else {
    std::erase(sys.top_levels, w->handle);
  }
}

bool IsDescendantOrSelf(HWND ancestor, HWND hwnd) {
  for (WindowData* w = Find(hwnd); w; w = Find(w->parent)) {
    if (w->handle == ancestor) return true;
  }
  return false;
}

// Focus leaves a window that is hidden, disabled or destroyed.
void DropFocusFrom(HWND hwnd) {
  if (Sys().focus && IsDescendantOrSelf(hwnd, Sys().focus)) SetFocus(nullptr);
}

void DestroyTree(HWND hwnd) {
  WindowData* w = Find(hwnd);
  if (!w) return;
  CallWindow(hwnd, WM_DESTROY, 0, 0);
  if ((w = Find(hwnd)) == nullptr) return;
  std::vector<HWND> children = w->children;
  for (HWND child : children) DestroyTree(child);
  CallWindow(hwnd, WM_NCDESTROY, 0, 0);
  if ((w = Find(hwnd)) == nullptr) return;
  RemoveTimersOf(hwnd);
  RemoveHotKeysOf(hwnd);
  Unlink(w);
  WindowSystem& sys = Sys();
  for (auto& [handle, other] : sys.windows) {
    if (other->last_focus == hwnd) other->last_focus = nullptr;
  }
  if (sys.active == hwnd) sys.active = nullptr;
  auto it = sys.windows.find(hwnd);
  sys.graveyard.push_back(std::move(it->second));
  sys.windows.erase(it);
}

}  // namespace

WindowData* Find(HWND hwnd) {
  if (!hwnd) return nullptr;
  auto& windows = Sys().windows;
  auto it = windows.find(hwnd);
  return it == windows.end() ? nullptr : it->second.get();
}

HWND TopLevelOf(HWND hwnd) {
  WindowData* w = Find(hwnd);
  while (w && w->parent) w = Find(w->parent);
  return w ? w->handle : nullptr;
}

const std::vector<HWND>& TopLevelWindows() { return Sys().top_levels; }

HWND ActiveWindow() {
  const auto& tops = Sys().top_levels;
  for (auto it = tops.rbegin(); it != tops.rend(); ++it) {
    WindowData* w = Find(*it);
    if (w && (w->style & WS_VISIBLE) && !w->destroying) return *it;
  }
  return nullptr;
}

void UpdateActivation() {
  WindowSystem& sys = Sys();
  HWND now = ActiveWindow();
  HWND before = sys.active;
  if (now == before) return;
  sys.active = now;
  if (before && Find(before)) {
    CallWindow(before, WM_ACTIVATE, MAKEWPARAM(WA_INACTIVE, 0), reinterpret_cast<LPARAM>(now));
  }
  if (now) {
    CallWindow(now, WM_ACTIVATE, MAKEWPARAM(WA_ACTIVE, 0), reinterpret_cast<LPARAM>(before));
  }
  MarkScreenDirty();
}

RECT ScreenRectOf(HWND hwnd) {
  WindowData* w = Find(hwnd);
  if (!w) return RECT{};
  RECT r = w->rect;
  for (WindowData* p = Find(w->parent); p; p = Find(p->parent)) {
    r.left += p->rect.left;
    r.right += p->rect.left;
    r.top += p->rect.top;
    r.bottom += p->rect.top;
  }
  return r;
}

LRESULT CallWindow(HWND hwnd, UINT msg, WPARAM wparam, LPARAM lparam) {
  WindowData* w = Find(hwnd);
  if (!w || !w->proc) return 0;
  WindowSystem& sys = Sys();
  ++sys.call_depth;
  LRESULT result = w->proc(hwnd, msg, wparam, lparam);
  if (--sys.call_depth == 0) sys.graveyard.clear();
  return result;
}

void DestroyAllWindows() {
  WindowSystem& sys = Sys();
  while (!sys.top_levels.empty()) {
    HWND top = sys.top_levels.back();
    DestroyWindow(top);
    // A window that could not go (destroyed already, mid-way) leaves the list anyway.
    if (!sys.top_levels.empty() && sys.top_levels.back() == top) sys.top_levels.pop_back();
  }
  sys.focus = nullptr;
  sys.active = nullptr;
  if (sys.call_depth == 0) sys.graveyard.clear();
}

void ResetClasses() { Sys().classes.clear(); }

}  // namespace velmo::ui::internal

using velmo::ui::internal::CallWindow;
using velmo::ui::internal::Find;
using velmo::ui::internal::Sys;
using velmo::ui::internal::WindowData;

ATOM RegisterClassW(const WNDCLASSW* wc) {
  if (!wc || !wc->lpszClassName || !wc->lpfnWndProc) {
    SetLastError(ERROR_INVALID_PARAMETER);
    return 0;
  }
  auto& sys = Sys();
  std::wstring name = wc->lpszClassName;
  if (sys.classes.count(name)) {
    SetLastError(ERROR_CLASS_ALREADY_EXISTS);
    return 0;
  }
  velmo::ui::internal::ClassEntry entry{*wc, name};
  entry.wc.lpszClassName = nullptr;
  entry.wc.lpszMenuName = nullptr;
  sys.classes.emplace(name, std::move(entry));
  return sys.next_atom++;
}

BOOL UnregisterClassW(LPCWSTR class_name, HINSTANCE) {
  if (!class_name || !Sys().classes.erase(class_name)) {
    SetLastError(ERROR_CANNOT_FIND_WND_CLASS);
    return FALSE;
  }
  return TRUE;
}

HWND CreateWindowExW(DWORD ex_style, LPCWSTR class_name, LPCWSTR window_name, DWORD style,
                     int x, int y, int width, int height, HWND parent, HMENU menu,
                     HINSTANCE instance, LPVOID param) {
  auto& sys = Sys();
  auto cls = class_name ? sys.classes.find(class_name) : sys.classes.end();
  if (cls == sys.classes.end()) {
    SetLastError(ERROR_CANNOT_FIND_WND_CLASS);
    return nullptr;
  }
  bool child = (style & WS_CHILD) != 0;
  if (child && !Find(parent)) {
    SetLastError(ERROR_INVALID_WINDOW_HANDLE);
    return nullptr;
  }
  auto data = std::make_unique<WindowData>();
  HWND hwnd = reinterpret_cast<HWND>(sys.next_handle);
  sys.next_handle += 4;
  data->handle = hwnd;
  data->class_name = cls->second.name;
  data->proc = cls->second.wc.lpfnWndProc;
  data->background = cls->second.wc.hbrBackground;
  data->instance = instance;
  data->text = window_name ? window_name : L"";
  data->style = style;
  data->ex_style = ex_style;
  if (child) {
    data->parent = parent;
    data->id = static_cast<LONG_PTR>(reinterpret_cast<std::uintptr_t>(menu));
    if (x == CW_USEDEFAULT) x = y = 0;
    if (width == CW_USEDEFAULT) width = height = 0;
    data->rect = RECT{x, y, x + width, y + height};
  } else {
    data->owner = velmo::ui::internal::TopLevelOf(parent);
    RECT work = velmo::ui::internal::WorkArea();
    if (x == CW_USEDEFAULT || width == CW_USEDEFAULT) {
      data->fills_work_area = true;
      data->rect = work;
    } else {
      data->rect = RECT{x, y, x + width, y + height};
    }
  }
  if (child) {
    Find(parent)->children.push_back(hwnd);
  } else {
    sys.top_levels.push_back(hwnd);
  }
  RECT r = data->rect;
  sys.windows.emplace(hwnd, std::move(data));

  CREATESTRUCTW cs{param,          instance,   menu,       parent,    r.bottom - r.top,
                   r.right - r.left, r.top,     r.left,     static_cast<LONG>(style),
                   window_name,    class_name, ex_style};
  if (!CallWindow(hwnd, WM_NCCREATE, 0, reinterpret_cast<LPARAM>(&cs)) ||
      CallWindow(hwnd, WM_CREATE, 0, reinterpret_cast<LPARAM>(&cs)) == -1) {
    DestroyWindow(hwnd);
    SetLastError(ERROR_INVALID_PARAMETER);
    return nullptr;
  }
  if (!Find(hwnd)) return nullptr;
  CallWindow(hwnd, WM_SIZE, SIZE_RESTORED,
             MAKELPARAM(static_cast<WORD>(r.right - r.left), static_cast<WORD>(r.bottom - r.top)));
  if (style & WS_VISIBLE) {
    velmo::ui::internal::MarkScreenDirty();
    if (!child) velmo::ui::internal::UpdateActivation();
  }
  return Find(hwnd) ? hwnd : nullptr;
}

BOOL DestroyWindow(HWND hwnd) {
  WindowData* w = Find(hwnd);
  if (!w) {
    SetLastError(ERROR_INVALID_WINDOW_HANDLE);
    return FALSE;
  }
  if (w->destroying) return TRUE;
  w->destroying = true;
  // Owned windows go first.
  std::vector<HWND> owned;
  for (HWND top : Sys().top_levels) {
    WindowData* t = Find(top);
    if (t && t->owner == hwnd) owned.push_back(top);
  }
  for (auto it = owned.rbegin(); it != owned.rend(); ++it) DestroyWindow(*it);
  bool top_level = Find(hwnd) && !Find(hwnd)->parent;
  velmo::ui::internal::DropFocusFrom(hwnd);
  velmo::ui::internal::DestroyTree(hwnd);
  velmo::ui::internal::MarkScreenDirty();
  if (top_level) velmo::ui::internal::UpdateActivation();
  return TRUE;
}

BOOL IsWindow(HWND hwnd) { return Find(hwnd) != nullptr; }

LRESULT DefWindowProcW(HWND hwnd, UINT msg, WPARAM wparam, LPARAM lparam) {
  WindowData* w = Find(hwnd);
  if (!w) return 0;
  switch (msg) {
    case WM_NCCREATE:
      return TRUE;
    case WM_CLOSE:
      DestroyWindow(hwnd);
      return 0;
    case WM_SETTEXT:
      w->text = lparam ? reinterpret_cast<LPCWSTR>(lparam) : L"";
      velmo::ui::internal::MarkScreenDirty();
      return TRUE;
    case WM_GETTEXT: {
      auto* buffer = reinterpret_cast<LPWSTR>(lparam);
      if (!buffer || wparam == 0) return 0;
      size_t n = std::min<size_t>(w->text.size(), wparam - 1);
      std::copy_n(w->text.data(), n, buffer);
      buffer[n] = 0;
      return static_cast<LRESULT>(n);
    }
    case WM_GETTEXTLENGTH:
      return static_cast<LRESULT>(w->text.size());
    case WM_ERASEBKGND: {
      if (!w->background) return 0;
      RECT rc;
      GetClientRect(hwnd, &rc);
      FillRect(reinterpret_cast<HDC>(wparam), &rc, w->background);
      return 1;
    }
    case WM_PAINT: {
      PAINTSTRUCT ps;
      BeginPaint(hwnd, &ps);
      EndPaint(hwnd, &ps);
      return 0;
    }
    case WM_ACTIVATE:
      if (LOWORD(wparam) != WA_INACTIVE && !w->parent) {
        HWND last = w->last_focus;
        if (last && IsWindow(last) && IsChild(hwnd, last) && IsWindowVisible(last)) {
          SetFocus(last);
        } else {
          SetFocus(hwnd);
        }
      }
      return 0;
    default:
      return 0;
  }
}

LRESULT CallWindowProcW(WNDPROC proc, HWND hwnd, UINT msg, WPARAM wparam, LPARAM lparam) {
  if (!proc || !Find(hwnd)) return 0;
  auto& sys = Sys();
  ++sys.call_depth;
  LRESULT result = proc(hwnd, msg, wparam, lparam);
  if (--sys.call_depth == 0) sys.graveyard.clear();
  return result;
}

LONG_PTR GetWindowLongPtrW(HWND hwnd, int index) {
  WindowData* w = Find(hwnd);
  if (!w) {
    SetLastError(ERROR_INVALID_WINDOW_HANDLE);
    return 0;
  }
  switch (index) {
    case GWLP_WNDPROC: return reinterpret_cast<LONG_PTR>(w->proc);
    case GWLP_HINSTANCE: return reinterpret_cast<LONG_PTR>(w->instance);
    case GWLP_ID: return w->id;
    case GWL_STYLE: return static_cast<LONG_PTR>(w->style);
    case GWL_EXSTYLE: return static_cast<LONG_PTR>(w->ex_style);
    case GWLP_USERDATA: return w->user_data;
    default: break;
  }
  if (w->is_dialog) {
    if (index == DWLP_MSGRESULT) return w->dlg_msg_result;
    if (index == DWLP_DLGPROC) return reinterpret_cast<LONG_PTR>(w->dlg_proc);
    if (index == DWLP_USER) return w->dlg_user;
  }
  SetLastError(ERROR_INVALID_INDEX);
  return 0;
}

LONG_PTR SetWindowLongPtrW(HWND hwnd, int index, LONG_PTR value) {
  WindowData* w = Find(hwnd);
  if (!w) {
    SetLastError(ERROR_INVALID_WINDOW_HANDLE);
    return 0;
  }
  LONG_PTR old = GetWindowLongPtrW(hwnd, index);
  switch (index) {
    case GWLP_WNDPROC: w->proc = reinterpret_cast<WNDPROC>(value); return old;
    case GWLP_HINSTANCE: w->instance = reinterpret_cast<HINSTANCE>(value); return old;
    case GWLP_ID: w->id = value; return old;
    case GWL_STYLE:
      w->style = static_cast<DWORD>(value);
      velmo::ui::internal::MarkScreenDirty();
      return old;
    case GWL_EXSTYLE: w->ex_style = static_cast<DWORD>(value); return old;
    case GWLP_USERDATA: w->user_data = value; return old;
    default: break;
  }
  if (w->is_dialog) {
    if (index == DWLP_MSGRESULT) { w->dlg_msg_result = value; return old; }
    if (index == DWLP_DLGPROC) { w->dlg_proc = reinterpret_cast<DLGPROC>(value); return old; }
    if (index == DWLP_USER) { w->dlg_user = value; return old; }
  }
  SetLastError(ERROR_INVALID_INDEX);
  return 0;
}

HWND GetWindow(HWND hwnd, UINT relation) {
  WindowData* w = Find(hwnd);
  if (!w) {
    SetLastError(ERROR_INVALID_WINDOW_HANDLE);
    return nullptr;
  }
  if (relation == GW_OWNER) return w->owner;
  if (relation == GW_CHILD) return w->children.empty() ? nullptr : w->children.front();
  // Siblings: children in creation order; top-level windows topmost first.
  std::vector<HWND> siblings;
  if (WindowData* p = Find(w->parent)) {
    siblings = p->children;
  } else {
    siblings.assign(Sys().top_levels.rbegin(), Sys().top_levels.rend());
  }
  auto it = std::find(siblings.begin(), siblings.end(), hwnd);
  switch (relation) {
    case GW_HWNDFIRST: return siblings.empty() ? nullptr : siblings.front();
    case GW_HWNDLAST: return siblings.empty() ? nullptr : siblings.back();
    case GW_HWNDNEXT: return it == siblings.end() || it + 1 == siblings.end() ? nullptr : *(it + 1);
    case GW_HWNDPREV: return it == siblings.begin() || it == siblings.end() ? nullptr : *(it - 1);
    default: return nullptr;
  }
}

HWND GetParent(HWND hwnd) {
  WindowData* w = Find(hwnd);
  if (!w) return nullptr;
  return w->parent ? w->parent : w->owner;
}

BOOL IsChild(HWND parent, HWND hwnd) {
  return parent != hwnd && Find(parent) && velmo::ui::internal::IsDescendantOrSelf(parent, hwnd);
}

BOOL EnumWindows(WNDENUMPROC callback, LPARAM lparam) {
  if (!callback) return FALSE;
  std::vector<HWND> tops(Sys().top_levels.rbegin(), Sys().top_levels.rend());
  for (HWND top : tops) {
    if (Find(top) && !callback(top, lparam)) break;
  }
  return TRUE;
}

HWND GetDlgItem(HWND dialog, int id) {
  WindowData* w = Find(dialog);
  if (!w) return nullptr;
  for (HWND child : w->children) {
    if (Find(child)->id == id) return child;
  }
  return nullptr;
}

int GetDlgCtrlID(HWND hwnd) {
  WindowData* w = Find(hwnd);
  return w ? static_cast<int>(w->id) : 0;
}

BOOL SetWindowTextW(HWND hwnd, LPCWSTR text) {
  if (!Find(hwnd)) return FALSE;
  return static_cast<BOOL>(CallWindow(hwnd, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text)));
}

int GetWindowTextW(HWND hwnd, LPWSTR buffer, int max) {
  if (!Find(hwnd) || max <= 0) return 0;
  return static_cast<int>(
      CallWindow(hwnd, WM_GETTEXT, static_cast<WPARAM>(max), reinterpret_cast<LPARAM>(buffer)));
}

int GetWindowTextLengthW(HWND hwnd) {
  return Find(hwnd) ? static_cast<int>(CallWindow(hwnd, WM_GETTEXTLENGTH, 0, 0)) : 0;
}

BOOL ShowWindow(HWND hwnd, int command) {
  WindowData* w = Find(hwnd);
  if (!w) return FALSE;
  BOOL was_visible = (w->style & WS_VISIBLE) != 0;
  bool show = command != SW_HIDE;
  if (show == static_cast<bool>(was_visible)) return was_visible;
  CallWindow(hwnd, WM_SHOWWINDOW, show, 0);
  if ((w = Find(hwnd)) == nullptr) return was_visible;
  if (show) {
    w->style |= WS_VISIBLE;
  } else {
    w->style &= ~WS_VISIBLE;
    velmo::ui::internal::DropFocusFrom(hwnd);
  }
  velmo::ui::internal::MarkScreenDirty();
  if (!w->parent) velmo::ui::internal::UpdateActivation();
  return was_visible;
}

BOOL IsWindowVisible(HWND hwnd) {
  for (WindowData* w = Find(hwnd); w; w = Find(w->parent)) {
    if (!(w->style & WS_VISIBLE)) return FALSE;
  }
  return Find(hwnd) != nullptr;
}

BOOL EnableWindow(HWND hwnd, BOOL enable) {
  WindowData* w = Find(hwnd);
  if (!w) return FALSE;
  BOOL was_disabled = (w->style & WS_DISABLED) != 0;
  if (enable) {
    w->style &= ~WS_DISABLED;
  } else {
    w->style |= WS_DISABLED;
    velmo::ui::internal::DropFocusFrom(hwnd);
  }
  if (static_cast<bool>(was_disabled) == static_cast<bool>(enable)) {
    CallWindow(hwnd, WM_ENABLE, enable ? TRUE : FALSE, 0);
    velmo::ui::internal::MarkScreenDirty();
  }
  return was_disabled;
}

BOOL IsWindowEnabled(HWND hwnd) {
  WindowData* w = Find(hwnd);
  return w && !(w->style & WS_DISABLED);
}

BOOL MoveWindow(HWND hwnd, int x, int y, int width, int height, BOOL repaint) {
  WindowData* w = Find(hwnd);
  if (!w) return FALSE;
  if (width < 0) width = 0;
  if (height < 0) height = 0;
  RECT old = w->rect;
  w->rect = RECT{x, y, x + width, y + height};
  w->fills_work_area = false;
  if (old.right - old.left != width || old.bottom - old.top != height) {
    CallWindow(hwnd, WM_SIZE, SIZE_RESTORED,
               MAKELPARAM(static_cast<WORD>(width), static_cast<WORD>(height)));
  }
  if (repaint) velmo::ui::internal::MarkScreenDirty();
  return TRUE;
}

BOOL GetClientRect(HWND hwnd, RECT* rect) {
  WindowData* w = Find(hwnd);
  if (!w || !rect) return FALSE;
  *rect = RECT{0, 0, w->rect.right - w->rect.left, w->rect.bottom - w->rect.top};
  return TRUE;
}

BOOL GetWindowRect(HWND hwnd, RECT* rect) {
  if (!Find(hwnd) || !rect) return FALSE;
  *rect = velmo::ui::internal::ScreenRectOf(hwnd);
  return TRUE;
}

HWND SetFocus(HWND hwnd) {
  auto& sys = Sys();
  HWND old = sys.focus;
  if (hwnd && (!Find(hwnd) || !IsWindowEnabled(velmo::ui::internal::TopLevelOf(hwnd)))) {
    return nullptr;
  }
  if (hwnd == old) return old;
  sys.focus = hwnd;
  if (old && Find(old)) CallWindow(old, WM_KILLFOCUS, reinterpret_cast<WPARAM>(hwnd), 0);
  if (hwnd && Find(hwnd) && sys.focus == hwnd) {
    if (WindowData* top = Find(velmo::ui::internal::TopLevelOf(hwnd))) top->last_focus = hwnd;
    CallWindow(hwnd, WM_SETFOCUS, reinterpret_cast<WPARAM>(old), 0);
  }
  velmo::ui::internal::MarkScreenDirty();
  return old;
}

HWND GetFocus() { return Find(Sys().focus) ? Sys().focus : nullptr; }

HWND GetActiveWindow() { return velmo::ui::internal::ActiveWindow(); }

HWND GetForegroundWindow() { return velmo::ui::internal::ActiveWindow(); }

BOOL SetForegroundWindow(HWND hwnd) {
  HWND top = velmo::ui::internal::TopLevelOf(velmo::ui::internal::StripHandleBits(hwnd));
  if (!top) return FALSE;
  auto& tops = Sys().top_levels;
  // The window and everything it owns (directly or not) move to the top, in
  // their present order.
  auto owned_by_top = [&](HWND h) {
    for (WindowData* w = Find(h); w; w = Find(w->owner)) {
      if (w->handle == top) return true;
    }
    return false;
  };
  std::stable_partition(tops.begin(), tops.end(), [&](HWND h) { return !owned_by_top(h); });
  velmo::ui::internal::MarkScreenDirty();
  velmo::ui::internal::UpdateActivation();
  return TRUE;
}

BOOL InvalidateRect(HWND hwnd, const RECT*, BOOL) {
  if (hwnd && !Find(hwnd)) return FALSE;
  velmo::ui::internal::MarkScreenDirty();
  return TRUE;
}

BOOL UpdateWindow(HWND hwnd) {
  if (hwnd && !Find(hwnd)) return FALSE;
  if (velmo::ui::internal::ScreenDirty()) velmo::ui::internal::PaintScreen();
  return TRUE;
}

int GetSystemMetrics(int index) {
  velmo::ui::Screen* screen = velmo::ui::internal::CurrentScreen();
  if (!screen) return 0;
  if (index == SM_CXSCREEN) return screen->width();
  if (index == SM_CYSCREEN) return screen->height();
  return 0;
}

BOOL SetRect(RECT* rect, int left, int top, int right, int bottom) {
  if (!rect) return FALSE;
  *rect = RECT{left, top, right, bottom};
  return TRUE;
}

BOOL IsRectEmpty(const RECT* rect) {
  return !rect || rect->right <= rect->left || rect->bottom <= rect->top;
}

BOOL IntersectRect(RECT* out, const RECT* a, const RECT* b) {
  if (!out || !a || !b) return FALSE;
  *out = RECT{std::max(a->left, b->left), std::max(a->top, b->top),
              std::min(a->right, b->right), std::min(a->bottom, b->bottom)};
  if (IsRectEmpty(out)) {
    *out = RECT{};
    return FALSE;
  }
  return TRUE;
}
