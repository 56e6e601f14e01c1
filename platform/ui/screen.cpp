// The cell grid shared by every screen backend, and character widths.
#include "platform/ui/screen.h"

#include <clocale>
#include <cstring>
#include <cwchar>
#include <langinfo.h>

#include "platform/ui/glyphs.h"

namespace velmo::ui {
namespace {

// wcwidth answers by the character type of the locale; without a UTF-8 one every
// non-ASCII character would count as unprintable. Switch the character type (and
// nothing else) to C.UTF-8 once when the process has none.
bool EnsureUtf8CharacterType() {
  const char* codeset = nl_langinfo(CODESET);
  if (codeset && std::strcmp(codeset, "UTF-8") == 0) return true;
  return std::setlocale(LC_CTYPE, "C.UTF-8") != nullptr;
}

}  // namespace

int CellWidth(wchar_t ch) {
  static const bool utf8 = EnsureUtf8CharacterType();
  if (ch < 0x7F) return ch < 0x20 ? 0 : 1;
  int w = utf8 ? wcwidth(ch) : 1;
  if (w < 0) return 1;  // unprintable: shown as one replacement cell
  return w > 2 ? 2 : w;
}

int TextWidth(std::wstring_view text) {
  int total = 0;
  for (wchar_t ch : text) total += CellWidth(ch);
  return total;
}

void Screen::ResizeGrid(int width, int height) {
  width_ = width < 0 ? 0 : width;
  height_ = height < 0 ? 0 : height;
  cells_.assign(static_cast<size_t>(width_) * height_, Cell{});
  if (cursor_.x >= width_ || cursor_.y >= height_) cursor_visible_ = false;
}

int Screen::PutChar(int x, int y, wchar_t ch, COLORREF fg, COLORREF bg, std::uint8_t attrs) {
  if (y < 0 || y >= height_ || x < 0 || x >= width_) return 0;
  int w = CellWidth(ch);
  if (w == 0) return 0;
  if (w == 2 && x + 1 >= width_) {
    ch = L' ';
    w = 1;
  }
  if (ascii_ && (ch < 0 || ch >= 0x80)) {
    wchar_t stand_in = static_cast<wchar_t>(AsciiStandIn(ch));
    // A double-width character keeps its two columns, so the layout stays.
    for (int i = 0; i < w; ++i) PutChar(x + i, y, stand_in, fg, bg, attrs);
    return w;
  }
  Cell* row = &cells_[static_cast<size_t>(y) * width_];
  // Blank the halves of double-width characters that this write cuts in two.
  if (row[x].ch == 0 && x > 0) row[x - 1].ch = L' ';
  int end = x + w;
  if (end < width_ && row[end].ch == 0) row[end].ch = L' ';
  row[x] = Cell{ch, fg, bg, attrs};
  if (w == 2) row[x + 1] = Cell{0, fg, bg, attrs};
  return w;
}

void Screen::Fill(int left, int top, int right, int bottom, const Cell& cell) {
  if (left < 0) left = 0;
  if (top < 0) top = 0;
  if (right > width_) right = width_;
  if (bottom > height_) bottom = height_;
  for (int y = top; y < bottom; ++y) {
    for (int x = left; x < right; ++x) PutChar(x, y, cell.ch, cell.fg, cell.bg, cell.attrs);
  }
}

void Screen::SetCursor(int x, int y) {
  cursor_ = POINT{x, y};
  cursor_visible_ = x >= 0 && y >= 0 && x < width_ && y < height_;
}

}  // namespace velmo::ui
