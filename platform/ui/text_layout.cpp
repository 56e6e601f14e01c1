// The line index and the rows of a multi-line text.
#include "platform/ui/text_layout.h"

#include <algorithm>

#include "platform/ui/screen.h"

namespace velmo::ui::internal {

int TextCellWidth(wchar_t ch) {
  if (ch < 0x20 || ch == 0x7F) return 1;
  return CellWidth(ch);
}

namespace {

// Greedy: a row takes words while they fit; spaces may hang past the edge, so a
// row breaks after its last space, or inside a word too long for any row. A
// row's end depends only on the text from its start: wrapping can start again
// at any row. Returns the next row's start, or the line's size.
size_t NextRowStart(std::wstring_view line, int width, size_t row_start) {
  size_t after_space = row_start;
  int col = 0;
  for (size_t i = row_start; i < line.size(); ++i) {
    const int w = TextCellWidth(line[i]);
    if (line[i] == L' ') {
      col += w;
      after_space = i + 1;
      continue;
    }
    if (col + w > width && i > row_start) return after_space > row_start ? after_space : i;
    col += w;
  }
  return line.size();
}

// Wraps the line again from row `keep` of `rows` on, after its text changed in
// [changed_from, changed_to) by `delta` characters: once a new row starts after
// the change where an old row started, the old rows after it hold, moved.
void Rewrap(std::wstring_view line, int width, size_t keep, size_t changed_to, long delta,
            std::vector<uint32_t>* rows) {
  const std::vector<uint32_t> old(rows->begin() + static_cast<std::ptrdiff_t>(keep) + 1, rows->end());
  rows->resize(keep + 1);
  for (size_t start = rows->back();;) {
    const size_t next = NextRowStart(line, width, start);
    if (next >= line.size()) return;
    if (next >= changed_to) {
      const auto same = std::lower_bound(old.begin(), old.end(), static_cast<uint32_t>(next - delta));
      if (same != old.end() && *same == next - delta) {
        for (auto it = same; it != old.end(); ++it) rows->push_back(static_cast<uint32_t>(*it + delta));
        return;
      }
    }
    rows->push_back(static_cast<uint32_t>(next));
    start = next;
  }
}

}  // namespace

std::vector<uint32_t> WrapLine(std::wstring_view line, int width, bool wrap) {
  std::vector<uint32_t> rows{0};
  if (!wrap || width <= 0) return rows;
  for (size_t start = 0;;) {
    start = NextRowStart(line, width, start);
    if (start >= line.size()) return rows;
    rows.push_back(static_cast<uint32_t>(start));
  }
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
  // The line the change starts in is wrapped again; its new lines too. A change
  // inside one line keeps the rows before it and, once they meet again, after it.
  std::vector<uint32_t>& rows = rows_[at - 1];
  if (gone == 0 && added.empty() && !rows.empty() && wrap_ && width_ > 0) {
    const size_t start = starts_[at - 1];
    const size_t offset = from - start;
    size_t keep = static_cast<size_t>(std::upper_bound(rows.begin(), rows.end(), offset) - rows.begin()) - 1;
    // A row's end is decided by a character of the row after it (or, after a
    // double-width character, the one after that).
    keep = keep > 2 ? keep - 2 : 0;
    Rewrap(text.substr(start, LineEnd(text, at - 1) - start), width_, keep, offset + inserted,
           static_cast<long>(inserted) - static_cast<long>(removed), &rows);
    return;
  }
  rows.clear();
  auto row_at = rows_.begin() + static_cast<std::ptrdiff_t>(at);
  row_at = rows_.erase(row_at, row_at + static_cast<std::ptrdiff_t>(gone));
  rows_.insert(row_at, added.size(), {});
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
