#include "categories/letter_icon.h"

namespace velmo {
namespace {

constexpr int kTileSize = 12;
constexpr COLORREF kTilePaper = MakeRgb(255, 255, 255);
constexpr COLORREF kTileRim = MakeRgb(160, 160, 160);

}  // namespace

Bitmap LetterIconTemplate() {
  Bitmap tile(kTileSize, kTileSize, kTilePaper);
  const int last = kTileSize - 1;
  for (int i = 0; i < kTileSize; ++i) {
    tile.at(i, 0) = tile.at(i, last) = tile.at(0, i) = tile.at(last, i) = kTileRim;
  }
  tile.at(0, 0) = tile.at(last, 0) = tile.at(0, last) = tile.at(last, last) = kIconKeyColor;
  return tile;
}

CategoryImage DrawLetterIcon(std::wstring_view name, int cx, int cy) {
  CategoryImage icon;
  icon.pixels = FitBitmap(LetterIconTemplate(), cx, cy, kIconKeyColor, &icon.letter_box);
  icon.key = kIconKeyColor;
  icon.letter = name.front();
  icon.cells = CellsFromLetter(icon.letter, kLetterInk, kTilePaper);
  return icon;
}

}  // namespace velmo
