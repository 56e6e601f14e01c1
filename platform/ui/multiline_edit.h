// The multi-line edit (WC_EDITW with ES_MULTILINE), shared among its files:
// the procedure (multiline_edit.cpp), the caret and scrolling
// (multiline_caret.cpp) and the drawing (multiline_paint.cpp). The text is the
// window's text; the layout keeps its line index and rows.
#pragma once

#include <string>
#include <string_view>

#include "platform/ui/text_layout.h"
#include "platform/ui/types.h"
#include "platform/ui/ui_internal.h"

namespace velmo::ui::internal {

struct MultiLineData : ControlData {
  size_t anchor = 0;  // the selection runs from the anchor to the caret
  size_t caret = 0;
  size_t limit = 30000;
  TextLayout layout;
  RowPos top;        // the first row shown
  int hscroll = 0;   // columns scrolled sideways (word wrap off)
  int goal = -1;     // the column Up and Down keep to; -1: the caret's own
  int rows_shown = 1;
  bool wrap = true;
  bool modified = false;
};

LRESULT MultiLineEditProc(HWND hwnd, UINT msg, WPARAM wparam, LPARAM lparam);

MultiLineData* MultiLineOf(HWND hwnd);
std::wstring_view MultiLineText(HWND hwnd);

// Brings the layout to the window's size and the word-wrap setting.
void FitLayout(HWND hwnd, MultiLineData* d);
// Scrolls so that the caret's row is shown (and, without word wrap, its column).
void ScrollToCaret(HWND hwnd, MultiLineData* d);
// A key that moves the caret (extending the selection with Shift); false for
// other keys.
bool MoveCaretByKey(HWND hwnd, MultiLineData* d, UINT vk);
// Scrolls the view by `rows` (negative: up), taking the caret along.
void ScrollRows(HWND hwnd, MultiLineData* d, long rows);
// Whether Up (or Down) would leave the first (or last) row: the dialog takes it then.
bool CaretOnEdgeRow(HWND hwnd, MultiLineData* d, bool up);
// Columns from a row's start to a position in it.
int ColumnOf(std::wstring_view text, size_t row_start, size_t pos);

void PaintMultiLine(HWND hwnd);

}  // namespace velmo::ui::internal
