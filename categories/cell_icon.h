// The terminal form of an icon: two character cells. A bitmap becomes four
// blocks (two per cell, upper and lower), each drawn with a half-block
// character in the block's colour; a letter icon is its letter on the
// template's colour. The list drawing renders these cells as they are.
#pragma once

#include <array>
#include <optional>

#include "categories/bitmap.h"
#include "platform/ui/glyphs.h"

namespace velmo {

constexpr int kIconCells = 2;

struct IconCell {
  wchar_t glyph = L' ';
  std::optional<COLORREF> foreground;  // none: the terminal's own
  std::optional<COLORREF> background;  // none: transparent, the row shows through
  bool continuation = false;           // covered by the wide glyph of the cell before
  bool operator==(const IconCell&) const = default;
};

using CellIcon = std::array<IconCell, kIconCells>;

constexpr wchar_t kUpperHalfBlock = ui::Glyph(ui::kGlyphUpperHalfBlock);
constexpr wchar_t kLowerHalfBlock = ui::Glyph(ui::kGlyphLowerHalfBlock);

// Each block's colour is the average of its pixels that are not `key`; a block
// of which at most half the pixels show is transparent.
CellIcon CellsFromBitmap(const Bitmap& image, COLORREF key);

// The letter in `ink` on `paper`, in the first cell (both cells when the letter
// is wide); a character that cannot be shown becomes "?".
CellIcon CellsFromLetter(wchar_t letter, COLORREF ink, std::optional<COLORREF> paper);

}  // namespace velmo
