// The multi-line edit's caret: moves by character, word, row, page and to the
// ends, Shift extending the selection; and the scrolling that keeps it shown.
#include <algorithm>
#include <cwctype>

#include "platform/ui/multiline_edit.h"
#include "platform/ui/virtual_keys.h"
#include "platform/ui/window.h"

namespace velmo::ui::internal {
namespace {

bool IsBlank(wchar_t ch) { return std::iswspace(static_cast<wint_t>(ch)) != 0; }

// One character on or back; a "\r\n" is one step.
size_t CharAfter(std::wstring_view text, size_t pos) {
  if (pos >= text.size()) return text.size();
  if (text[pos] == L'\r' && pos + 1 < text.size() && text[pos + 1] == L'\n') return pos + 2;
  return pos + 1;
}
size_t CharBefore(std::wstring_view text, size_t pos) {
  if (pos == 0) return 0;
  if (text[pos - 1] == L'\n' && pos >= 2 && text[pos - 2] == L'\r') return pos - 2;
  return pos - 1;
}

// Ctrl+Right: past the word and the blanks after it. Ctrl+Left: back over
// blanks, then to the start of the word.
size_t WordAfter(std::wstring_view text, size_t pos) {
  while (pos < text.size() && !IsBlank(text[pos])) ++pos;
  while (pos < text.size() && IsBlank(text[pos])) ++pos;
  return pos;
}
size_t WordBefore(std::wstring_view text, size_t pos) {
  while (pos > 0 && IsBlank(text[pos - 1])) --pos;
  while (pos > 0 && !IsBlank(text[pos - 1])) --pos;
  return pos;
}

// The last place for the caret in a row: a row that wraps ends before its last
// character (the caret after it belongs to the next row).
size_t RowLast(std::wstring_view text, TextLayout& layout, RowPos at) {
  const size_t start = layout.RowStart(text, at), end = layout.RowEnd(text, at);
  if (at.row + 1 < layout.Rows(text, at.line).size() && end > start) return end - 1;
  return end;
}

// The position in a row nearest to a column, not past its last place.
size_t PosAtColumn(std::wstring_view text, TextLayout& layout, RowPos at, int column) {
  size_t pos = layout.RowStart(text, at);
  const size_t last = RowLast(text, layout, at);
  int col = 0;
  while (pos < last) {
    const int w = TextCellWidth(text[pos]);
    if (col + w > column) break;
    col += w;
    ++pos;
  }
  return pos;
}

// Steps a row position `count` rows on (or back, negative); stops at the ends.
RowPos StepRows(std::wstring_view text, TextLayout& layout, RowPos at, long count) {
  for (; count > 0 && layout.NextRow(text, &at); --count) {
  }
  for (; count < 0 && layout.PrevRow(text, &at); ++count) {
  }
  return at;
}

void ClampTop(std::wstring_view text, MultiLineData* d) {
  TextLayout& layout = d->layout;
  if (d->top.line >= layout.LineCount()) d->top = RowPos{layout.LineCount() - 1, 0};
  const size_t rows = layout.Rows(text, d->top.line).size();
  if (d->top.row >= rows) d->top.row = rows - 1;
}

void SetCaret(HWND hwnd, MultiLineData* d, size_t pos, bool keep_goal) {
  d->caret = pos;
  if (!(GetKeyState(VK_SHIFT) & 0x8000)) d->anchor = pos;
  if (!keep_goal) d->goal = -1;
  ScrollToCaret(hwnd, d);
}

}  // namespace

int ColumnOf(std::wstring_view text, size_t row_start, size_t pos) {
  int col = 0;
  for (size_t i = row_start; i < pos && i < text.size(); ++i) col += TextCellWidth(text[i]);
  return col;
}

void FitLayout(HWND hwnd, MultiLineData* d) {
  RECT rc;
  GetClientRect(hwnd, &rc);
  d->rows_shown = std::max<int>(1, rc.bottom - rc.top);
  d->layout.SetWidth(std::max<int>(1, rc.right - rc.left), d->wrap);
  ClampTop(MultiLineText(hwnd), d);
}

void ScrollToCaret(HWND hwnd, MultiLineData* d) {
  FitLayout(hwnd, d);
  std::wstring_view text = MultiLineText(hwnd);
  TextLayout& layout = d->layout;
  const RowPos caret_row = layout.RowOf(text, d->caret);
  if (caret_row < d->top) {
    d->top = caret_row;
  } else {
    // The highest top that still shows the caret's row at the bottom.
    const RowPos lowest_top = StepRows(text, layout, caret_row, -(d->rows_shown - 1));
    if (d->top < lowest_top) d->top = lowest_top;
  }
  if (d->wrap) {
    d->hscroll = 0;
  } else {
    const int col = ColumnOf(text, layout.RowStart(text, caret_row), d->caret);
    const int width = layout.width();
    if (col < d->hscroll) d->hscroll = std::max(0, col - width / 4);
    if (col >= d->hscroll + width) d->hscroll = col - width + 1 + width / 4;
  }
  MarkScreenDirty();
}

void ScrollRows(HWND hwnd, MultiLineData* d, long rows) {
  FitLayout(hwnd, d);
  std::wstring_view text = MultiLineText(hwnd);
  TextLayout& layout = d->layout;
  const RowPos caret_row = layout.RowOf(text, d->caret);
  if (d->goal < 0) d->goal = ColumnOf(text, layout.RowStart(text, caret_row), d->caret);
  d->top = StepRows(text, layout, d->top, rows);
  // The last page stays full.
  const size_t last_line = layout.LineCount() - 1;
  const RowPos last{last_line, layout.Rows(text, last_line).size() - 1};
  const RowPos last_top = StepRows(text, layout, last, -(d->rows_shown - 1));
  if (last_top < d->top) d->top = last_top;
  const RowPos target = StepRows(text, layout, caret_row, rows);
  SetCaret(hwnd, d, PosAtColumn(text, layout, target, d->goal), true);
}

bool CaretOnEdgeRow(HWND hwnd, MultiLineData* d, bool up) {
  FitLayout(hwnd, d);
  std::wstring_view text = MultiLineText(hwnd);
  RowPos at = d->layout.RowOf(text, d->caret);
  return up ? !d->layout.PrevRow(text, &at) : !d->layout.NextRow(text, &at);
}

bool MoveCaretByKey(HWND hwnd, MultiLineData* d, UINT vk) {
  FitLayout(hwnd, d);
  std::wstring_view text = MultiLineText(hwnd);
  TextLayout& layout = d->layout;
  const bool control = GetKeyState(VK_CONTROL) & 0x8000;
  const RowPos row = layout.RowOf(text, d->caret);
  switch (vk) {
    case VK_LEFT:
      SetCaret(hwnd, d, control ? WordBefore(text, d->caret) : CharBefore(text, d->caret), false);
      return true;
    case VK_RIGHT:
      SetCaret(hwnd, d, control ? WordAfter(text, d->caret) : CharAfter(text, d->caret), false);
      return true;
    case VK_HOME:
      SetCaret(hwnd, d, control ? 0 : layout.RowStart(text, row), false);
      return true;
    case VK_END:
      SetCaret(hwnd, d, control ? text.size() : RowLast(text, layout, row), false);
      return true;
    case VK_UP:
    case VK_DOWN: {
      if (d->goal < 0) d->goal = ColumnOf(text, layout.RowStart(text, row), d->caret);
      const RowPos target = StepRows(text, layout, row, vk == VK_UP ? -1 : 1);
      SetCaret(hwnd, d, PosAtColumn(text, layout, target, d->goal), true);
      return true;
    }
    case VK_PRIOR:
    case VK_TVOLUMEUP:
      ScrollRows(hwnd, d, -std::max(1, d->rows_shown - 1));
      return true;
    case VK_NEXT:
    case VK_TVOLUMEDOWN:
      ScrollRows(hwnd, d, std::max(1, d->rows_shown - 1));
      return true;
    default:
      return false;
  }
}

}  // namespace velmo::ui::internal
