// A bitmap in memory (top-down rows of RGB colours) and fitting one into the
// icon size.
#pragma once

#include <vector>

#include "platform/wintypes.h"

using COLORREF = DWORD;  // 0x00BBGGRR

namespace velmo {

constexpr COLORREF MakeRgb(BYTE r, BYTE g, BYTE b) {
  return static_cast<COLORREF>(r) | (static_cast<COLORREF>(g) << 8) |
         (static_cast<COLORREF>(b) << 16);
}
constexpr BYTE RedOf(COLORREF c) { return static_cast<BYTE>(c & 0xFF); }
constexpr BYTE GreenOf(COLORREF c) { return static_cast<BYTE>((c >> 8) & 0xFF); }
constexpr BYTE BlueOf(COLORREF c) { return static_cast<BYTE>((c >> 16) & 0xFF); }

// The colour that marks the transparent pixels of a category icon.
constexpr COLORREF kIconKeyColor = MakeRgb(254, 255, 255);

struct Rect {
  int left = 0, top = 0, right = 0, bottom = 0;
  bool operator==(const Rect&) const = default;
};

struct Bitmap {
  int width = 0;
  int height = 0;
  std::vector<COLORREF> pixels;  // width * height, row by row from the top

  Bitmap() = default;
  Bitmap(int w, int h, COLORREF fill)
      : width(w), height(h), pixels(static_cast<size_t>(w) * static_cast<size_t>(h), fill) {}
  COLORREF at(int x, int y) const { return pixels[static_cast<size_t>(y) * width + x]; }
  COLORREF& at(int x, int y) { return pixels[static_cast<size_t>(y) * width + x]; }
};

// Fits `source` into a cx-by-cy bitmap. A source at least that wide and high is
// cropped to its top-left part (no scaling), and the placement is the whole
// target. A smaller one is copied whole, centred on a target filled with `key`
// (offsets (target - source) / 2), and the placement is where it landed.
Bitmap FitBitmap(const Bitmap& source, int cx, int cy, COLORREF key, Rect* placement);

}  // namespace velmo
