#include "categories/bitmap.h"

#include <algorithm>

namespace velmo {

Bitmap FitBitmap(const Bitmap& source, int cx, int cy, COLORREF key, Rect* placement) {
  Bitmap target(cx, cy, key);
  int ox = 0, oy = 0;
  Rect placed{0, 0, cx, cy};
  if (source.width < cx || source.height < cy) {
    ox = (cx - source.width) / 2;
    oy = (cy - source.height) / 2;
    placed = {ox, oy, ox + source.width, oy + source.height};
  }
  // Whatever falls outside the target is clipped.
  for (int y = std::max(0, oy); y < std::min(cy, oy + source.height); ++y)
    for (int x = std::max(0, ox); x < std::min(cx, ox + source.width); ++x)
      target.at(x, y) = source.at(x - ox, y - oy);
  if (placement) *placement = placed;
  return target;
}

}  // namespace velmo
