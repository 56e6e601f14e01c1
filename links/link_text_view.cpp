#include "links/link_text_view.h"

#include <algorithm>
#include <vector>

#include "platform/ui/colours.h"
#include "platform/ui/gdi.h"
#include "platform/ui/screen.h"
#include "platform/ui/virtual_keys.h"
#include "platform/ui/window.h"
#include "res/dialogs_links.h"

namespace velmo {
namespace {

struct Row {
  size_t start;
  size_t length;
};

struct View {
  std::wstring text;
  std::vector<LinkSpan> links;
  std::vector<Row> rows;
  int chosen = -1;  // index into links
  int top = 0;
};

View* ViewOf(HWND hwnd) { return reinterpret_cast<View*>(GetWindowLongPtrW(hwnd, GWLP_USERDATA)); }

RECT Client(HWND hwnd) {
  RECT rc;
  GetClientRect(hwnd, &rc);
  return rc;
}
int Width(HWND hwnd) { return std::max(1, static_cast<int>(Client(hwnd).right - Client(hwnd).left)); }
int Height(HWND hwnd) { return std::max(1, static_cast<int>(Client(hwnd).bottom - Client(hwnd).top)); }

// Rows of at most `width` characters; a line break always ends one.
void Layout(HWND hwnd, View* view) {
  const size_t width = static_cast<size_t>(Width(hwnd));
  view->rows.clear();
  size_t start = 0;
  while (start <= view->text.size()) {
    size_t end = view->text.find(L'\n', start);
    if (end == std::wstring::npos) end = view->text.size();
    size_t at = start;
    do {
      const size_t length = std::min(width, end - at);
      view->rows.push_back({at, length});
      at += length;
    } while (at < end);
    start = end + 1;
  }
}

int RowOf(const View* view, size_t offset) {
  for (size_t r = view->rows.size(); r-- > 0;)
    if (view->rows[r].start <= offset) return static_cast<int>(r);
  return 0;
}

void Reveal(HWND hwnd, View* view) {
  if (view->chosen < 0) return;
  const int row = RowOf(view, view->links[static_cast<size_t>(view->chosen)].start);
  if (row < view->top) view->top = row;
  if (row >= view->top + Height(hwnd)) view->top = row - Height(hwnd) + 1;
}

void ScrollBy(HWND hwnd, View* view, int delta) {
  const int last = std::max(0, static_cast<int>(view->rows.size()) - Height(hwnd));
  view->top = std::clamp(view->top + delta, 0, last);
}

// The next or previous link; at either end the text scrolls instead.
void Step(HWND hwnd, View* view, int delta) {
  const int next = view->chosen + delta;
  if (next >= 0 && next < static_cast<int>(view->links.size())) {
    view->chosen = next;
    Reveal(hwnd, view);
  } else {
    ScrollBy(hwnd, view, delta);
  }
  InvalidateRect(hwnd, nullptr, TRUE);
}

void DrawRun(HDC hdc, const std::wstring& text, size_t from, size_t to, int x, int y, BYTE attributes,
             int colour) {
  if (to <= from) return;
  ui::SetTextAttributes(hdc, attributes);
  SetTextColor(hdc, GetSysColor(colour));
  TextOutW(hdc, x, y, text.c_str() + from, static_cast<int>(to - from));
}

void Paint(HWND hwnd, View* view) {
  PAINTSTRUCT ps;
  HDC hdc = BeginPaint(hwnd, &ps);
  RECT rc = Client(hwnd);
  FillRect(hdc, &rc, GetSysColorBrush(COLOR_WINDOW));
  SetBkMode(hdc, TRANSPARENT);
  const int height = Height(hwnd);
  for (int y = 0; y < height && view->top + y < static_cast<int>(view->rows.size()); ++y) {
    const Row& row = view->rows[static_cast<size_t>(view->top + y)];
    const size_t end = row.start + row.length;
    DrawRun(hdc, view->text, row.start, end, 0, y, 0, COLOR_WINDOWTEXT);
    for (size_t i = 0; i < view->links.size(); ++i) {
      const LinkSpan& link = view->links[i];
      const size_t from = std::max(row.start, link.start);
      const size_t to = std::min(end, link.start + link.length);
      const bool chosen = static_cast<int>(i) == view->chosen;
      DrawRun(hdc, view->text, from, to, static_cast<int>(from - row.start), y,
              chosen ? ui::kAttrUnderline | ui::kAttrReverse : ui::kAttrUnderline,
              COLOR_HIGHLIGHT);
    }
  }
  ui::SetTextAttributes(hdc, 0);
  EndPaint(hwnd, &ps);
}

void Finish(HWND hwnd, View* view) {
  view->text.erase(std::remove(view->text.begin(), view->text.end(), L'\r'), view->text.end());
  view->links = FindLinkSpans(view->text);
  view->chosen = view->links.empty() ? -1 : 0;
  view->top = 0;
  Layout(hwnd, view);
  InvalidateRect(hwnd, nullptr, TRUE);
}

LRESULT ViewProc(HWND hwnd, UINT msg, WPARAM wparam, LPARAM lparam) {
  View* view = ViewOf(hwnd);
  switch (msg) {
    case WM_CREATE:
      SetWindowLongPtrW(hwnd, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(new View));
      return 0;
    case WM_NCDESTROY:
      delete view;
      SetWindowLongPtrW(hwnd, GWLP_USERDATA, 0);
      return 0;
    case kTextViewBegin:
      if (view) *view = View{};
      return 0;
    case kTextViewAdd:
      if (view && lparam) view->text += reinterpret_cast<const wchar_t*>(lparam);
      return 0;
    case kTextViewBreak:
      if (view) view->text += L'\n';
      return 0;
    case kTextViewEnd:
      if (view) Finish(hwnd, view);
      return 0;
    case kTextViewChosenLink: {
      auto* out = reinterpret_cast<ChosenLink*>(lparam);
      if (!view || !out || view->chosen < 0) return FALSE;
      const LinkSpan& link = view->links[static_cast<size_t>(view->chosen)];
      *out = ChosenLink{link.kind, view->text.substr(link.start, link.length)};
      return TRUE;
    }
    case WM_SIZE:
      if (view) {
        Layout(hwnd, view);
        Reveal(hwnd, view);
      }
      return 0;
    case WM_GETDLGCODE:
      return DLGC_WANTARROWS;
    case WM_KEYDOWN:
      if (!view) break;
      switch (wparam) {
        case VK_UP: Step(hwnd, view, -1); return 0;
        case VK_DOWN: Step(hwnd, view, 1); return 0;
        case VK_PRIOR:
        case VK_TVOLUMEUP: ScrollBy(hwnd, view, -Height(hwnd)); InvalidateRect(hwnd, nullptr, TRUE); return 0;
        case VK_NEXT:
        case VK_TVOLUMEDOWN: ScrollBy(hwnd, view, Height(hwnd)); InvalidateRect(hwnd, nullptr, TRUE); return 0;
        default: break;
      }
      break;
    case WM_PAINT:
      if (view) {
        Paint(hwnd, view);
        return 0;
      }
      break;
    default:
      break;
  }
  return DefWindowProcW(hwnd, msg, wparam, lparam);
}

}  // namespace

void RegisterLinkTextView() {
  WNDCLASSW wc{};
  wc.lpfnWndProc = ViewProc;
  wc.lpszClassName = res::kLinkTextViewClass;
  RegisterClassW(&wc);
}

}  // namespace velmo
