// An open menu: its boxes (the menu and the submenus opened from it), its keys
// and its own message loop.
#include <algorithm>
#include <string>
#include <vector>

#include "platform/ui/colours.h"
#include "platform/ui/glyphs.h"
#include "platform/ui/menu.h"
#include "platform/ui/menu_data.h"
#include "platform/ui/message_queue.h"
#include "platform/ui/messages.h"
#include "platform/ui/ui_internal.h"
#include "platform/ui/virtual_keys.h"
#include "platform/ui/window.h"

namespace velmo::ui::internal {
namespace {

struct Level {
  HMENU menu = nullptr;
  int selected = -1;
  int scroll = 0;  // first item shown when the menu is taller than the screen
  RECT box{};      // screen cells, frame included
};

struct Tracking {
  bool active = false;
  bool end_requested = false;
  HWND owner = nullptr;
  bool notify = true;
  std::vector<Level> levels;
};

Tracking& Track() {
  static Tracking tracking;
  return tracking;
}

bool Selectable(const MenuItem& item) { return !(item.flags & MF_SEPARATOR); }
bool Chooseable(const MenuItem& item) {
  return Selectable(item) && !(item.flags & (MF_GRAYED | MF_DISABLED));
}

// The quick-choice number of each item: 1-9 for the first nine that are not
// separators, 0 for the others.
std::vector<int> Numbers(const MenuData& menu) {
  std::vector<int> numbers;
  int next = 1;
  for (const MenuItem& item : menu.items) {
    numbers.push_back(Selectable(item) && next <= 9 ? next : 0);
    if (Selectable(item)) ++next;
  }
  return numbers;
}

std::wstring Before(const std::wstring& text) { return text.substr(0, text.find(L'\t')); }
std::wstring After(const std::wstring& text) {
  size_t tab = text.find(L'\t');
  return tab == std::wstring::npos ? std::wstring() : text.substr(tab + 1);
}

// Inner width: mark, number, space, text, gap, right-hand part or submenu arrow, space.
int InnerWidth(const MenuData& menu) {
  int text = 0, right = 0;
  for (const MenuItem& item : menu.items) {
    text = std::max(text, TextWidth(Before(item.text)));
    right = std::max(right, TextWidth(After(item.text)));
  }
  return 3 + text + 2 + std::max(right, 1) + 1;
}

// Places a box of the menu: horizontally at x (right-aligned: ending at x),
// vertically starting at `top` or ending at `bottom` (exclusive), inside the screen.
RECT PlaceBox(const MenuData& menu, int x, bool right_aligned, int top, int bottom) {
  Screen* screen = CurrentScreen();
  int sw = screen ? screen->width() : 80, sh = screen ? screen->height() : 24;
  int width = std::min(InnerWidth(menu) + 2, sw);
  int height = std::min(static_cast<int>(menu.items.size()) + 2, std::max(sh - 1, 3));
  int left = right_aligned ? x - width : x;
  left = std::clamp(left, 0, std::max(0, sw - width));
  int y = bottom >= 0 ? bottom - height : top;
  y = std::clamp(y, 0, std::max(0, sh - 1 - height));
  return RECT{left, y, left + width, y + height};
}

int VisibleRows(const Level& level) { return level.box.bottom - level.box.top - 2; }

void KeepSelectionVisible(Level& level) {
  int rows = VisibleRows(level);
  if (level.selected < level.scroll) level.scroll = level.selected;
  if (level.selected >= level.scroll + rows) level.scroll = level.selected - rows + 1;
  if (level.scroll < 0) level.scroll = 0;
}

void PutText(Screen& screen, int x, int y, int right, std::wstring_view text, COLORREF fg,
             COLORREF bg, BYTE attrs) {
  for (wchar_t ch : text) {
    if (x + CellWidth(ch) > right) break;
    x += screen.PutChar(x, y, ch, fg, bg, attrs);
  }
}

void PaintLevel(Screen& screen, const Level& level) {
  MenuData* menu = FindMenu(level.menu);
  if (!menu) return;
  const RECT& b = level.box;
  COLORREF frame = GetSysColor(COLOR_WINDOWFRAME), bg = GetSysColor(COLOR_MENU);
  screen.Fill(b.left, b.top, b.right, b.bottom, Cell{L' ', frame, bg, 0});
  int inner = b.right - b.left - 2;
  std::wstring line(static_cast<size_t>(std::max(inner, 0)), Glyph(kGlyphFrameHorizontal));
  PutText(screen, b.left, b.top, b.right, Glyph(kGlyphFrameTopLeft) + line + Glyph(kGlyphFrameTopRight), frame, bg, 0);
  PutText(screen, b.left, b.bottom - 1, b.right, Glyph(kGlyphFrameBottomLeft) + line + Glyph(kGlyphFrameBottomRight), frame, bg, 0);
  std::vector<int> numbers = Numbers(*menu);
  int rows = VisibleRows(level);
  for (int r = 0; r < rows; ++r) {
    int y = b.top + 1 + r;
    PutText(screen, b.left, y, b.right, std::wstring(1, Glyph(kGlyphFrameVertical)), frame, bg, 0);
    PutText(screen, b.right - 1, y, b.right, std::wstring(1, Glyph(kGlyphFrameVertical)), frame, bg, 0);
    size_t i = static_cast<size_t>(level.scroll + r);
    if (i >= menu->items.size()) continue;
    const MenuItem& item = menu->items[i];
    if (item.flags & MF_SEPARATOR) {
      PutText(screen, b.left, y, b.right, Glyph(kGlyphFrameTeeLeft) + line + Glyph(kGlyphFrameTeeRight), frame, bg, 0);
      continue;
    }
    bool selected = static_cast<int>(i) == level.selected;
    COLORREF fg = item.flags & (MF_GRAYED | MF_DISABLED) ? GetSysColor(COLOR_GRAYTEXT)
                  : selected                             ? GetSysColor(COLOR_HIGHLIGHTTEXT)
                                                         : GetSysColor(COLOR_MENUTEXT);
    COLORREF row_bg = selected ? GetSysColor(COLOR_HIGHLIGHT) : bg;
    int left = b.left + 1, right = b.right - 1;
    screen.Fill(left, y, right, y + 1, Cell{L' ', fg, row_bg, 0});
    wchar_t check = item.flags & MFT_RADIOCHECK ? Glyph(kGlyphRadioMark) : Glyph(kGlyphCheckMark);
    std::wstring mark(1, item.flags & MF_CHECKED ? check : L' ');
    std::wstring number = numbers[i] ? std::wstring(1, static_cast<wchar_t>(L'0' + numbers[i])) : L" ";
    PutText(screen, left, y, right, mark + number + L" " + Before(item.text), fg, row_bg, 0);
    std::wstring tail = (item.flags & MF_POPUP ? std::wstring(1, Glyph(kGlyphSubmenu)) : After(item.text)) + L" ";
    PutText(screen, right - TextWidth(tail), y, right, tail, fg, row_bg, 0);
  }
}

void PaintMenus(Screen& screen) {
  for (const Level& level : Track().levels) PaintLevel(screen, level);
}

void Notify(HMENU menu, int index) {
  if (Track().notify && IsWindow(Track().owner)) {
    SendMessageW(Track().owner, WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(menu),
                 MAKELPARAM(static_cast<WORD>(index), 0));
  }
}

int FirstSelectable(const MenuData& menu) {
  for (size_t i = 0; i < menu.items.size(); ++i) {
    if (Selectable(menu.items[i])) return static_cast<int>(i);
  }
  return -1;
}

void OpenSubmenu(HMENU sub, int index) {
  Notify(sub, index);
  MenuData* data = FindMenu(sub);
  if (!data || data->items.empty()) return;
  const Level& parent = Track().levels.back();
  int row = parent.box.top + 1 + (parent.selected - parent.scroll);
  Screen* screen = CurrentScreen();
  int sw = screen ? screen->width() : 80;
  Level level;
  level.menu = sub;
  level.selected = FirstSelectable(*data);
  int width = InnerWidth(*data) + 2;
  bool fits_right = parent.box.right + width <= sw;
  level.box = PlaceBox(*data, fits_right ? parent.box.right : parent.box.left, !fits_right,
                       row - 1, -1);
  KeepSelectionVisible(level);
  Track().levels.push_back(level);
  MarkScreenDirty();
}

// Chooses the selected item of the innermost menu: opens its submenu, or ends
// the menu with its command. Returns the command, 0 when the menu stays open.
UINT Choose() {
  Level& level = Track().levels.back();
  MenuData* menu = FindMenu(level.menu);
  if (!menu || level.selected < 0) return 0;
  const MenuItem& item = menu->items[static_cast<size_t>(level.selected)];
  if (!Chooseable(item)) return 0;
  if (item.flags & MF_POPUP) {
    OpenSubmenu(item.submenu, level.selected);
    return 0;
  }
  return item.id;
}

void Move(int step) {
  Level& level = Track().levels.back();
  MenuData* menu = FindMenu(level.menu);
  if (!menu) return;
  int n = static_cast<int>(menu->items.size());
  for (int k = 1; k <= n; ++k) {
    int i = ((level.selected + step * k) % n + n) % n;
    if (Selectable(menu->items[static_cast<size_t>(i)])) {
      level.selected = i;
      break;
    }
  }
  KeepSelectionVisible(level);
  MarkScreenDirty();
}

// Handles a key; true when the menu is to close, with *command chosen (or 0).
bool HandleKey(UINT vk, UINT* command) {
  auto& levels = Track().levels;
  switch (vk) {
    case VK_UP: Move(-1); return false;
    case VK_DOWN: Move(1); return false;
    case VK_RETURN:
    case VK_RIGHT:
    case VK_TSOFT1:
      *command = Choose();
      return *command != 0;
    case VK_LEFT:
    case VK_ESCAPE:
    case VK_BACK:
      if (levels.size() > 1) {
        levels.pop_back();
        MarkScreenDirty();
        return false;
      }
      return vk != VK_LEFT;
    case VK_TSOFT2: return true;
    default: break;
  }
  if (vk >= '1' && vk <= '9') {
    Level& level = levels.back();
    MenuData* menu = FindMenu(level.menu);
    if (!menu) return true;
    std::vector<int> numbers = Numbers(*menu);
    auto it = std::find(numbers.begin(), numbers.end(), static_cast<int>(vk - '0'));
    if (it == numbers.end()) return false;
    level.selected = static_cast<int>(it - numbers.begin());
    KeepSelectionVisible(level);
    MarkScreenDirty();
    *command = Choose();
    return *command != 0;
  }
  return false;
}

}  // namespace

bool MenuTracking() { return Track().active; }

}  // namespace velmo::ui::internal

BOOL TrackPopupMenuEx(HMENU menu, UINT flags, int x, int y, HWND owner, void*) {
  using namespace velmo::ui::internal;
  Tracking& track = Track();
  if (!FindMenu(menu) || track.active) return FALSE;
  track = Tracking{true, false, owner, !(flags & TPM_NONOTIFY), {}};
  Notify(menu, 0);
  MenuData* data = FindMenu(menu);
  if (!data || data->items.empty()) {
    track.active = false;
    return FALSE;
  }
  Level level;
  level.menu = menu;
  level.selected = FirstSelectable(*data);
  bool bottom = flags & TPM_BOTTOMALIGN;
  level.box = PlaceBox(*data, x, (flags & TPM_RIGHTALIGN) != 0, bottom ? -1 : y, bottom ? y : -1);
  KeepSelectionVisible(level);
  track.levels.push_back(level);
  int overlay = AddOverlay(PaintMenus);

  UINT command = 0;
  MSG msg;
  for (;;) {
    if (!GetMessageW(&msg, nullptr, 0, 0)) {
      PostQuitMessage(static_cast<int>(msg.wParam));
      break;
    }
    if (msg.message == WM_KEYDOWN) {
      if (HandleKey(static_cast<UINT>(msg.wParam), &command)) break;
    } else if (msg.message != WM_KEYUP && msg.message != WM_CHAR) {
      DispatchMessageW(&msg);
    }
    if (track.end_requested || (owner && !IsWindow(owner)) || !FindMenu(menu)) {
      command = 0;
      break;
    }
  }
  RemoveOverlay(overlay);
  track = Tracking{};
  if (flags & TPM_RETURNCMD) return static_cast<BOOL>(command);
  if (command && IsWindow(owner)) PostMessageW(owner, WM_COMMAND, MAKEWPARAM(static_cast<WORD>(command), 0), 0);
  return command != 0;
}

BOOL EndMenu() {
  if (!velmo::ui::internal::Track().active) return FALSE;
  velmo::ui::internal::Track().end_requested = true;
  return TRUE;
}
