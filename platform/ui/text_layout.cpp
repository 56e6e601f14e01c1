// The line index and the rows of a multi-line text.
#include "platform/ui/text_layout.h"

#include <algorithm>

#include "platform/ui/screen.h"

namespace velmo::ui::internal {

int TextCellWidth(wchar_t ch) {
  if (ch < 0x20 || ch == 0x7F) return 1;
  return CellWidth(ch);
}

// Greedy: a row takes words while they fit; spaces may hang past the edge, so a
// row breaks after its last space, or inside a word too long for any row.
std::vector<uint32_t> WrapLine(std::wstring_view line, int width, bool wrap) {
  std::vector<uint32_t> rows{0};
  if (!wrap || width <= 0) return rows;
  size_t row_start = 0, after_space = 0;
  int col = 0;
  for (size_t i = 0; i < line.size(); ++i) {
    const int w = TextCellWidth(line[i]);
    if (line[i] == L' ') {
      col += w;
      after_space = i + 1;
      continue;
    }
    if (col + w > width && i > row_start) {
      row_start = after_space > row_start ? after_space : i;
      rows.push_back(static_cast<uint32_t>(row_start));
      col = 0;
      for (size_t j = row_start; j < i; ++j) col += TextCellWidth(line[j]);
      if (col + w > width && i > row_start) {
        row_start = i;
        rows.push_back(static_cast<uint32_t>(i));
        col = 0;
      }
      after_space = row_start;
    }
    col += w;
  }
  return rows;
}

void TextLayout::Reset(std::wstring_view text) {
  starts_.assign(1, 0);
  for (size_t p = 0; p < text.size(); ++p) {
    if (text[p] == L'\n') starts_.push_back(p + 1);
  }
  rows_.assign(starts_.size(), {});
}

void TextLayout::Replaced(std::wstring_view text, size_t from, size_t removed, size_t inserted) {
  // The line starts after a '\n' of the old span go; those after it move.
  auto first = std::upper_bound(starts_.begin(), starts_.end(), from);
  auto last = std::upper_bound(first, starts_.end(), from + removed);
  const size_t at = static_cast<size_t>(first - starts_.begin());
  const size_t gone = static_cast<size_t>(last - first);
  starts_.erase(first, last);
  for (size_t i = at; i < starts_.size(); ++i) starts_[i] = starts_[i] - removed + inserted;
  std::vector<size_t> added;
  for (size_t p = from; p < from + inserted && p < text.size(); ++p) {
    if (text[p] == L'\n') added.push_back(p + 1);
  }
  starts_.insert(starts_.begin() + static_cast<std::ptrdiff_t>(at), added.begin(), added.end());
  // The line the change starts in is wrapped again; its new lines too.
  auto row_at = rows_.begin() + static_cast<std::ptrdiff_t>(at);
  row_at = rows_.erase(row_at, row_at + static_cast<std::ptrdiff_t>(gone));
  rows_.insert(row_at, added.size(), {});
  rows_[at - 1].clear();
}

void TextLayout::SetWidth(int width, bool wrap) {
  if (width == width_ && wrap == wrap_) return;
  width_ = width;
  wrap_ = wrap;
  for (auto& rows : rows_) rows.clear();
}

size_t TextLayout::LineEnd(std::wstring_view text, size_t line) const {
  if (line + 1 >= starts_.size()) return text.size();
  size_t end = starts_[line + 1] - 1;  // the '\n'
  if (end > starts_[line] && text[end - 1] == L'\r') --end;
  return end;
}

size_t TextLayout::LineFromChar(size_t pos) const {
  return static_cast<size_t>(std::upper_bound(starts_.begin(), starts_.end(), pos) -
                             starts_.begin()) - 1;
}

const std::vector<uint32_t>& TextLayout::Rows(std::wstring_view text, size_t line) {
  std::vector<uint32_t>& rows = rows_[line];
  if (rows.empty()) {
    const size_t start = starts_[line];
    rows = WrapLine(text.substr(start, LineEnd(text, line) - start), width_, wrap_);
  }
  return rows;
}

size_t TextLayout::RowStart(std::wstring_view text, RowPos at) {
  return starts_[at.line] + Rows(text, at.line)[at.row];
}

size_t TextLayout::RowEnd(std::wstring_view text, RowPos at) {
  const auto& rows = Rows(text, at.line);
  if (at.row + 1 < rows.size()) return starts_[at.line] + rows[at.row + 1];
  return LineEnd(text, at.line);
}

RowPos TextLayout::RowOf(std::wstring_view text, size_t pos) {
  RowPos at;
  at.line = LineFromChar(pos);
  const auto& rows = Rows(text, at.line);
  const size_t offset = pos - starts_[at.line];
  at.row = static_cast<size_t>(std::upper_bound(rows.begin(), rows.end(), offset) - rows.begin()) - 1;
  return at;
}

bool TextLayout::NextRow(std::wstring_view text, RowPos* at) {
  if (at->row + 1 < Rows(text, at->line).size()) {
    ++at->row;
    return true;
  }
  if (at->line + 1 >= starts_.size()) return false;
  *at = RowPos{at->line + 1, 0};
  return true;
}

bool TextLayout::PrevRow(std::wstring_view text, RowPos* at) {
  if (at->row > 0) {
    --at->row;
    return true;
  }
  if (at->line == 0) return false;
  --at->line;
  at->row = Rows(text, at->line).size() - 1;
  return true;
}

size_t TextLayout::RowsBefore(std::wstring_view text, RowPos at) {
  size_t count = at.row;
  for (size_t line = 0; line < at.line; ++line) count += Rows(text, line).size();
  return count;
}

size_t TextLayout::RowCount(std::wstring_view text) {
  return RowsBefore(text, RowPos{starts_.size() - 1, Rows(text, starts_.size() - 1).size()});
}

RowPos TextLayout::RowAt(std::wstring_view text, size_t index) {
  for (size_t line = 0; line < starts_.size(); ++line) {
    const size_t rows = Rows(text, line).size();
    if (index < rows) return RowPos{line, index};
    if (line + 1 == starts_.size()) return RowPos{line, rows - 1};
    index -= rows;
  }
  return RowPos{};
}

}  // namespace velmo::ui::internal
