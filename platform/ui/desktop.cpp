// The desktop: painting every window back to front, the title line, the
// soft-key bar, open menus, the caret, and the terminal's size.
#include "platform/ui/desktop.h"

#include <map>

#include "platform/ui/colours.h"
#include "platform/ui/gdi.h"
#include "platform/ui/messages.h"
#include "platform/ui/ui_internal.h"
#include "platform/ui/window.h"

namespace velmo::ui::internal {
namespace {

struct Caret {
  HWND hwnd = nullptr;
  POINT pos{};
  int hidden = 1;  // ShowCaret/HideCaret count, as the platform's
};

struct Desktop {
  Screen* screen = nullptr;
  bool dirty = true;
  bool painting = false;
  std::map<int, std::function<void(Screen&)>> overlays;
  int next_overlay = 1;
  int min_width = 0;
  int min_height = 0;
  std::wstring notice;
  std::wstring tray_sign;
  COLORREF tray_colour = 0;
  Caret caret;
};

Desktop& D() {
  static Desktop desktop;
  return desktop;
}

void PaintTree(HWND hwnd) {
  if (!(Find(hwnd) && (Find(hwnd)->style & WS_VISIBLE))) return;
  HDC hdc = CreateWindowDC(hwnd);
  CallWindow(hwnd, WM_ERASEBKGND, reinterpret_cast<WPARAM>(hdc), 0);
  FreeDC(hdc);
  CallWindow(hwnd, WM_PAINT, 0, 0);
  WindowData* w = Find(hwnd);
  if (!w) return;
  std::vector<HWND> children = w->children;
  for (HWND child : children) PaintTree(child);
}

// The topmost visible window that fills the work area names the screen.
HWND TitleWindow() {
  const auto& tops = TopLevelWindows();
  for (auto it = tops.rbegin(); it != tops.rend(); ++it) {
    WindowData* w = Find(*it);
    if (w && (w->style & WS_VISIBLE) && w->fills_work_area) return *it;
  }
  return ActiveWindow();
}

void PaintTitleLine(Screen& screen) {
  COLORREF fg = GetSysColor(COLOR_CAPTIONTEXT), bg = GetSysColor(COLOR_ACTIVECAPTION);
  screen.Fill(0, 0, screen.width(), 1, Cell{L' ', fg, bg, 0});
  int right = screen.width();
  Desktop& d = D();
  if (!d.tray_sign.empty()) {
    right -= TextWidth(d.tray_sign) + 1;
    int x = right;
    for (wchar_t ch : d.tray_sign) x += screen.PutChar(x, 0, ch, d.tray_colour, bg, kAttrBold);
  }
  WindowData* w = Find(TitleWindow());
  if (!w) return;
  int x = 1;
  for (wchar_t ch : w->text) {
    if (x + CellWidth(ch) > right - 1) break;
    x += screen.PutChar(x, 0, ch, fg, bg, kAttrBold);
  }
}

// The bar of the active window, else of the nearest owner that has one.
void PaintBottomBar(Screen& screen) {
  int row = screen.height() - 1;
  screen.Fill(0, row, screen.width(), row + 1,
              Cell{L' ', GetSysColor(COLOR_BTNTEXT), GetSysColor(COLOR_BTNFACE), 0});
  for (HWND w = ActiveWindow(); w; w = GetWindow(w, GW_OWNER)) {
    if (HWND bar = SoftKeyBarFor(w)) {
      PaintSoftKeyBar(screen, bar, row);
      return;
    }
  }
}

void PaintNotice(Screen& screen) {
  Desktop& d = D();
  Cell blank{L' ', GetSysColor(COLOR_WINDOWTEXT), GetSysColor(COLOR_WINDOW), 0};
  screen.Fill(0, 0, screen.width(), screen.height(), blank);
  std::vector<std::wstring> lines = WrapText(d.notice, screen.width());
  int y = (screen.height() - static_cast<int>(lines.size())) / 2;
  for (const std::wstring& line : lines) {
    int x = (screen.width() - TextWidth(line)) / 2;
    for (wchar_t ch : line) x += screen.PutChar(x, y, ch, blank.fg, blank.bg, 0);
    ++y;
  }
}

}  // namespace

Screen* CurrentScreen() { return D().screen; }

void MarkScreenDirty() {
  if (!D().painting) D().dirty = true;
}

bool ScreenDirty() { return D().dirty && D().screen; }

RECT WorkArea() {
  Screen* screen = D().screen;
  if (!screen) return RECT{0, 0, 80, 24};
  int bottom = screen->height() - 1;
  if (bottom < 1) bottom = 1;
  return RECT{0, 1, screen->width(), bottom};
}

void PaintScreen() {
  Desktop& d = D();
  if (!d.screen) return;
  Screen& screen = *d.screen;
  d.dirty = false;
  d.painting = true;
  screen.HideCursor();
  if (screen.width() < d.min_width || screen.height() < d.min_height) {
    PaintNotice(screen);
  } else {
    screen.Fill(0, 0, screen.width(), screen.height(),
                Cell{L' ', GetSysColor(COLOR_WINDOWTEXT), GetSysColor(COLOR_WINDOW), 0});
    std::vector<HWND> tops = TopLevelWindows();
    for (HWND top : tops) PaintTree(top);
    PaintTitleLine(screen);
    PaintBottomBar(screen);
    for (auto& [id, paint] : d.overlays) paint(screen);
    Caret& caret = d.caret;
    if (caret.hidden <= 0 && IsWindowVisible(caret.hwnd) && caret.hwnd == GetFocus() &&
        d.overlays.empty()) {
      RECT r = ScreenRectOf(caret.hwnd);
      screen.SetCursor(r.left + caret.pos.x, r.top + caret.pos.y);
    }
  }
  d.painting = false;
  screen.Present();
}

void HandleResize() {
  Screen* screen = D().screen;
  if (!screen) return;
  RECT work = WorkArea();
  std::vector<HWND> tops = TopLevelWindows();
  for (HWND top : tops) {
    WindowData* w = Find(top);
    if (!w) continue;
    if (w->fills_work_area) {
      MoveWindow(top, work.left, work.top, work.right - work.left, work.bottom - work.top, TRUE);
      if ((w = Find(top))) w->fills_work_area = true;
    } else if (w->centred) {
      int width = std::min<int>(w->rect.right - w->rect.left, work.right - work.left);
      int height = std::min<int>(w->rect.bottom - w->rect.top, work.bottom - work.top);
      MoveWindow(top, work.left + (work.right - work.left - width) / 2,
                 work.top + (work.bottom - work.top - height) / 2, width, height, TRUE);
      if ((w = Find(top))) w->centred = true;
    }
  }
  MarkScreenDirty();
}

int AddOverlay(std::function<void(Screen&)> paint) {
  int id = D().next_overlay++;
  D().overlays.emplace(id, std::move(paint));
  MarkScreenDirty();
  return id;
}

void RemoveOverlay(int id) {
  D().overlays.erase(id);
  MarkScreenDirty();
}

void ResetDesktop() {
  Desktop& d = D();
  d.overlays.clear();
  d.min_width = d.min_height = 0;
  d.notice.clear();
  d.tray_sign.clear();
  d.caret = Caret{};
  d.dirty = true;
}

}  // namespace velmo::ui::internal

namespace velmo::ui {

void Attach(Screen* screen) {
  internal::D().screen = screen;
  internal::ResetClasses();
  internal::RegisterBuiltInClasses();
  internal::MarkScreenDirty();
}

void Detach() {
  internal::DestroyAllWindows();
  internal::ResetQueue();
  internal::ResetTimers();
  internal::ResetHotKeys();
  internal::ResetDesktop();
  internal::ResetGdi();
  internal::ResetClasses();
  internal::D().screen = nullptr;
}

void SetMinimumScreenSize(int width, int height, std::wstring notice) {
  internal::Desktop& d = internal::D();
  d.min_width = width;
  d.min_height = height;
  d.notice = std::move(notice);
  internal::MarkScreenDirty();
}

void SetTraySign(std::wstring sign, COLORREF colour) {
  internal::D().tray_sign = std::move(sign);
  internal::D().tray_colour = colour;
  internal::MarkScreenDirty();
}

}  // namespace velmo::ui

BOOL CreateCaret(HWND hwnd, void*, int, int) {
  if (!IsWindow(hwnd)) return FALSE;
  velmo::ui::internal::D().caret = velmo::ui::internal::Caret{hwnd, POINT{0, 0}, 1};
  velmo::ui::internal::MarkScreenDirty();
  return TRUE;
}

BOOL DestroyCaret() {
  velmo::ui::internal::D().caret = velmo::ui::internal::Caret{};
  velmo::ui::internal::MarkScreenDirty();
  return TRUE;
}

BOOL SetCaretPos(int x, int y) {
  auto& caret = velmo::ui::internal::D().caret;
  if (!caret.hwnd) return FALSE;
  caret.pos = POINT{x, y};
  velmo::ui::internal::MarkScreenDirty();
  return TRUE;
}

BOOL ShowCaret(HWND hwnd) {
  auto& caret = velmo::ui::internal::D().caret;
  if (!caret.hwnd || (hwnd && hwnd != caret.hwnd)) return FALSE;
  if (caret.hidden > 0) --caret.hidden;
  velmo::ui::internal::MarkScreenDirty();
  return TRUE;
}

BOOL HideCaret(HWND hwnd) {
  auto& caret = velmo::ui::internal::D().caret;
  if (!caret.hwnd || (hwnd && hwnd != caret.hwnd)) return FALSE;
  ++caret.hidden;
  velmo::ui::internal::MarkScreenDirty();
  return TRUE;
}
