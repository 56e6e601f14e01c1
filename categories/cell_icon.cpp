#include "categories/cell_icon.h"

#include <unicode/uchar.h>

namespace velmo {
namespace {

std::optional<COLORREF> BlockColour(const Bitmap& image, COLORREF key, int x0, int y0, int x1,
                                    int y1) {
  unsigned long r = 0, g = 0, b = 0, shown = 0, total = 0;
  for (int y = y0; y < y1; ++y)
    for (int x = x0; x < x1; ++x, ++total) {
      const COLORREF c = image.at(x, y);
      if (c == key) continue;
      r += RedOf(c), g += GreenOf(c), b += BlueOf(c), ++shown;
    }
  if (shown == 0 || shown * 2 <= total) return std::nullopt;
  return MakeRgb(static_cast<BYTE>(r / shown), static_cast<BYTE>(g / shown),
                 static_cast<BYTE>(b / shown));
}

IconCell HalfBlocks(std::optional<COLORREF> upper, std::optional<COLORREF> lower) {
  if (upper) return {kUpperHalfBlock, upper, lower};
  if (lower) return {kLowerHalfBlock, lower, std::nullopt};
  return {};
}

bool IsWide(UChar32 c) {
  const auto width =
      static_cast<UEastAsianWidth>(u_getIntPropertyValue(c, UCHAR_EAST_ASIAN_WIDTH));
  return width == U_EA_WIDE || width == U_EA_FULLWIDTH;
}

bool IsShowable(UChar32 c) {
  return c >= 0x20 && c <= 0x10FFFF && u_isprint(c) && !(c >= 0xD800 && c <= 0xDFFF) &&
         u_getCombiningClass(c) == 0 && u_charType(c) != U_NON_SPACING_MARK &&
         u_charType(c) != U_ENCLOSING_MARK && u_charType(c) != U_FORMAT_CHAR;
}

}  // namespace

CellIcon CellsFromBitmap(const Bitmap& image, COLORREF key) {
  CellIcon cells{};
  if (image.width < kIconCells || image.height < 2) return cells;
  const int mid_y = image.height / 2;
  for (int i = 0; i < kIconCells; ++i) {
    const int x0 = image.width * i / kIconCells;
    const int x1 = image.width * (i + 1) / kIconCells;
    cells[static_cast<size_t>(i)] = HalfBlocks(BlockColour(image, key, x0, 0, x1, mid_y),
                                               BlockColour(image, key, x0, mid_y, x1, image.height));
  }
  return cells;
}

CellIcon CellsFromLetter(wchar_t letter, COLORREF ink, std::optional<COLORREF> paper) {
  const auto c = static_cast<UChar32>(letter);
  const bool showable = IsShowable(c);
  CellIcon cells{};
  cells[0] = {showable ? letter : L'?', ink, paper};
  cells[1] = {L' ', std::nullopt, paper};
  if (showable && IsWide(c)) cells[1].continuation = true;
  return cells;
}

}  // namespace velmo
