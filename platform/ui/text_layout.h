// The layout of a multi-line text: where each line starts (a line ends at "\n",
// so "\r\n" and a lone "\n" both break), and how each line falls into rows of a
// given width (at spaces when wrapping, one row per line when not). The index
// is kept up to date on every replacement; a line is wrapped only when asked
// for, and again only after it changed, so that a keystroke in a text of a
// megabyte costs the work of its own line.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace velmo::ui::internal {

// A row on the screen: the row-th row of the line-th line.
struct RowPos {
  size_t line = 0;
  size_t row = 0;
  auto operator<=>(const RowPos&) const = default;
};

// Columns a character of the text takes: control characters (a tab, a lone
// carriage return) one, shown as a space.
int TextCellWidth(wchar_t ch);

class TextLayout {
 public:
  // Starts over on a whole new text.
  void Reset(std::wstring_view text);
  // After text[from, from + removed) became text[from, from + inserted) of `text`
  // (the text as it is now).
  void Replaced(std::wstring_view text, size_t from, size_t removed, size_t inserted);
  // Rows `width` columns wide, broken at spaces when `wrap`; forgets every row.
  void SetWidth(int width, bool wrap);
  int width() const { return width_; }
  bool wrap() const { return wrap_; }

  size_t LineCount() const { return starts_.size(); }
  size_t LineStart(size_t line) const { return starts_[line]; }
  // The end of a line's text, before its line break.
  size_t LineEnd(std::wstring_view text, size_t line) const;
  size_t LineFromChar(size_t pos) const;

  // The rows of a line: where each starts, from the line's start (the first is 0).
  const std::vector<uint32_t>& Rows(std::wstring_view text, size_t line);
  size_t RowStart(std::wstring_view text, RowPos at);
  // Where the row's text ends: the next row's start, or the line's end.
  size_t RowEnd(std::wstring_view text, RowPos at);
  // The row a position is shown on; a position where a wrapped row ends is shown
  // at the start of the next.
  RowPos RowOf(std::wstring_view text, size_t pos);
  // One row on or back; false at the last or first row.
  bool NextRow(std::wstring_view text, RowPos* at);
  bool PrevRow(std::wstring_view text, RowPos* at);
  // The rows of the text before a row, and in all (the whole text is wrapped).
  size_t RowsBefore(std::wstring_view text, RowPos at);
  size_t RowCount(std::wstring_view text);
  // The row with that number from the top of the text (clamped to the last).
  RowPos RowAt(std::wstring_view text, size_t index);

 private:
  std::vector<size_t> starts_{0};
  // Per line its row starts; empty until the line is wrapped.
  std::vector<std::vector<uint32_t>> rows_{1};
  int width_ = 1;
  bool wrap_ = true;
};

// The starts of the rows of one line of text, `width` columns wide (at least
// one character a row); without `wrap` the whole line is one row.
std::vector<uint32_t> WrapLine(std::wstring_view line, int width, bool wrap);

}  // namespace velmo::ui::internal
