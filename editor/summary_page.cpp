#include "editor/summary_page.h"

#include <algorithm>
#include <vector>

#include "platform/ui/colours.h"
#include "platform/ui/gdi.h"
#include "platform/ui/screen.h"
#include "platform/ui/virtual_keys.h"
#include "platform/ui/window.h"
#include "res/dialogs_views.h"

namespace velmo {
namespace {

struct Page {
  const SummaryTask* task = nullptr;
  std::vector<SummaryLine> lines;
  int top = 0;
};

struct InkLook {
  SummaryInk ink;
  BYTE attributes;
  int colour;  // a system colour
};
constexpr InkLook kInks[] = {
    {SummaryInk::kTitle, ui::kAttrBold, COLOR_WINDOWTEXT},
    {SummaryInk::kLabel, 0, COLOR_GRAYTEXT},
    {SummaryInk::kText, 0, COLOR_WINDOWTEXT},
    {SummaryInk::kLink, ui::kAttrUnderline, COLOR_HIGHLIGHT},
    {SummaryInk::kIcon, 0, COLOR_WINDOWTEXT},
};

Page* PageOf(HWND hwnd) { return reinterpret_cast<Page*>(GetWindowLongPtrW(hwnd, GWLP_USERDATA)); }

int Height(HWND hwnd) {
  RECT rc;
  GetClientRect(hwnd, &rc);
  return std::max(1, static_cast<int>(rc.bottom - rc.top));
}

void Layout(HWND hwnd, Page* page) {
  if (!page->task) return;
  RECT rc;
  GetClientRect(hwnd, &rc);
  page->lines = SummaryLines(*page->task, static_cast<int>(rc.right - rc.left));
  page->top = std::clamp(page->top, 0, std::max(0, static_cast<int>(page->lines.size()) - Height(hwnd)));
  InvalidateRect(hwnd, nullptr, TRUE);
}

void ScrollBy(HWND hwnd, Page* page, int delta) {
  const int last = std::max(0, static_cast<int>(page->lines.size()) - Height(hwnd));
  const int top = std::clamp(page->top + delta, 0, last);
  if (top == page->top) return;
  page->top = top;
  InvalidateRect(hwnd, nullptr, TRUE);
}

int DrawPiece(HDC hdc, const SummaryPiece& piece, int x, int y) {
  if (piece.icon) {
    for (const IconCell& cell : *piece.icon) {
      if (!cell.continuation) {
        SetTextColor(hdc, cell.foreground.value_or(GetSysColor(COLOR_WINDOWTEXT)));
        SetBkMode(hdc, cell.background ? OPAQUE : TRANSPARENT);
        if (cell.background) SetBkColor(hdc, *cell.background);
        TextOutW(hdc, x, y, &cell.glyph, 1);
      }
      ++x;
    }
    SetBkMode(hdc, TRANSPARENT);
    return x;
  }
  for (const InkLook& look : kInks) {
    if (look.ink != piece.ink) continue;
    ui::SetTextAttributes(hdc, look.attributes);
    SetTextColor(hdc, GetSysColor(look.colour));
  }
  TextOutW(hdc, x, y, piece.text.c_str(), static_cast<int>(piece.text.size()));
  ui::SetTextAttributes(hdc, 0);
  return x + ui::TextWidth(piece.text);
}

void Paint(HWND hwnd, Page* page) {
  PAINTSTRUCT ps;
  HDC hdc = BeginPaint(hwnd, &ps);
  RECT rc;
  GetClientRect(hwnd, &rc);
  FillRect(hdc, &rc, GetSysColorBrush(COLOR_WINDOW));
  SetBkMode(hdc, TRANSPARENT);
  const int rows = Height(hwnd);
  for (int y = 0; y < rows && page->top + y < static_cast<int>(page->lines.size()); ++y) {
    int x = 0;
    for (const SummaryPiece& piece : page->lines[static_cast<size_t>(page->top + y)])
      x = DrawPiece(hdc, piece, x, y);
  }
  EndPaint(hwnd, &ps);
}

bool OnKey(HWND hwnd, Page* page, UINT vk) {
  const int screen = std::max(1, Height(hwnd) - 1);
  switch (vk) {
    case VK_UP: ScrollBy(hwnd, page, -1); return true;
    case VK_DOWN: ScrollBy(hwnd, page, 1); return true;
    case VK_PRIOR:
    case VK_TVOLUMEUP: ScrollBy(hwnd, page, -screen); return true;
    case VK_NEXT:
    case VK_TVOLUMEDOWN: ScrollBy(hwnd, page, screen); return true;
    default: return false;
  }
}

LRESULT PageProc(HWND hwnd, UINT msg, WPARAM wparam, LPARAM lparam) {
  Page* page = PageOf(hwnd);
  switch (msg) {
    case WM_CREATE:
      SetWindowLongPtrW(hwnd, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(new Page));
      return 0;
    case WM_NCDESTROY:
      delete page;
      SetWindowLongPtrW(hwnd, GWLP_USERDATA, 0);
      return 0;
    case kMsgSummarySetTask:
      if (!page) return 0;
      page->task = reinterpret_cast<const SummaryTask*>(lparam);
      page->top = 0;
      Layout(hwnd, page);
      return 0;
    case kMsgSummaryTopLine:
      return page ? page->top : 0;
    case WM_SIZE:
      if (page) Layout(hwnd, page);
      return 0;
    case WM_GETDLGCODE:
      return DLGC_WANTARROWS;
    case WM_KEYDOWN:
      if (page && OnKey(hwnd, page, static_cast<UINT>(wparam))) return 0;
      break;
    case WM_PAINT:
      if (page) {
        Paint(hwnd, page);
        return 0;
      }
      break;
    default:
      break;
  }
  return DefWindowProcW(hwnd, msg, wparam, lparam);
}

}  // namespace

// A second registration on the same screen is refused and changes nothing.
void RegisterSummaryPage() {
  WNDCLASSW wc{};
  wc.lpfnWndProc = PageProc;
  wc.lpszClassName = res::kTaskSummaryPageClass;
  RegisterClassW(&wc);
}

}  // namespace velmo
