// Drawing the multi-line edit: only the rows shown are laid out and drawn; the
// selection in the highlight colours (its line breaks as one highlighted cell);
// the caret where the focused edit's caret is.
#include <algorithm>

#include "platform/ui/gdi.h"
#include "platform/ui/multiline_edit.h"
#include "platform/ui/window.h"

namespace velmo::ui::internal {
namespace {

struct RowPainter {
  HDC hdc;
  int width;
  int hscroll;
  size_t sel_from;
  size_t sel_to;

  void Cell(int x, int y, wchar_t ch, bool selected) const {
    SetTextColor(hdc, GetSysColor(selected ? COLOR_HIGHLIGHTTEXT : COLOR_WINDOWTEXT));
    SetBkColor(hdc, GetSysColor(selected ? COLOR_HIGHLIGHT : COLOR_WINDOW));
    DrawCells(hdc, x, y, std::wstring_view(&ch, 1));
  }

  // Draws text[from, to) on row y; `line_end` is the end of the line's text
  // when this row is its last, else npos.
  void Row(std::wstring_view text, size_t from, size_t to, int y, size_t line_end) const {
    int col = 0;
    for (size_t i = from; i < to; ++i) {
      const int w = TextCellWidth(text[i]);
      const int x = col - hscroll;
      col += w;
      if (x < 0) continue;
      if (x + w > width) return;
      const wchar_t ch = text[i] < 0x20 || text[i] == 0x7F ? L' ' : text[i];
      Cell(x, y, ch, i >= sel_from && i < sel_to);
    }
    const int x = col - hscroll;
    const bool break_selected = line_end < text.size() && line_end >= sel_from && line_end < sel_to;
    if (break_selected && x >= 0 && x < width) Cell(x, y, L' ', true);
  }
};

}  // namespace

void PaintMultiLine(HWND hwnd) {
  PAINTSTRUCT ps;
  HDC hdc = BeginPaint(hwnd, &ps);
  MultiLineData* d = MultiLineOf(hwnd);
  RECT rc;
  GetClientRect(hwnd, &rc);
  FillRect(hdc, &rc, GetSysColorBrush(COLOR_WINDOW));
  if (d && rc.right > 0 && rc.bottom > 0) {
    FitLayout(hwnd, d);
    std::wstring_view text = MultiLineText(hwnd);
    TextLayout& layout = d->layout;
    const bool focused = GetFocus() == hwnd;
    RowPainter painter{hdc, rc.right, d->hscroll, 0, 0};
    if (focused) {
      painter.sel_from = std::min(d->anchor, d->caret);
      painter.sel_to = std::max(d->anchor, d->caret);
    }
    SetBkMode(hdc, OPAQUE);
    const RowPos caret_row = layout.RowOf(text, d->caret);
    bool caret_shown = false;
    RowPos at = d->top;
    for (int y = 0; y < rc.bottom; ++y) {
      const size_t start = layout.RowStart(text, at), end = layout.RowEnd(text, at);
      const bool last_row = at.row + 1 == layout.Rows(text, at.line).size();
      painter.Row(text, start, end, y, last_row ? end : std::wstring_view::npos);
      if (focused && at == caret_row) {
        const int x = ColumnOf(text, start, d->caret) - d->hscroll;
        SetCaretPos(std::clamp(x, 0, static_cast<int>(rc.right) - 1), y);
        caret_shown = true;
      }
      if (!layout.NextRow(text, &at)) break;
    }
    // A caret scrolled out of view is parked on the first row's first cell.
    if (focused && !caret_shown) SetCaretPos(0, 0);
  }
  EndPaint(hwnd, &ps);
}

}  // namespace velmo::ui::internal
