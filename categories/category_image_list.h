// The category image list: one image per loaded or drawn category icon, by
// index, each in pixels (icon size, masked by a key colour) and in its terminal
// form.
#pragma once

#include <vector>

#include "categories/bitmap.h"
#include "categories/cell_icon.h"

namespace velmo {

// The small-icon width and height of the list.
constexpr int kSmallIconSize = 16;

struct CategoryImage {
  Bitmap pixels;      // the icon size; key-coloured pixels are transparent
  COLORREF key = kIconKeyColor;
  CellIcon cells{};   // what the terminal list draws
  wchar_t letter = 0;  // a drawn letter icon's letter, 0 for a loaded bitmap
  Rect letter_box;     // where the letter is centred
};

class CategoryImageList {
 public:
  CategoryImageList(int cx, int cy);
  int cx() const { return cx_; }
  int cy() const { return cy_; }
  int count() const { return static_cast<int>(images_.size()); }
  // nullptr for an index out of range.
  const CategoryImage* Get(int index) const;
  // Returns the new image's index, or -1 when it is not of the list's size.
  int AddMasked(CategoryImage image);

 private:
  static constexpr size_t kInitialCapacity = 10;
  int cx_;
  int cy_;
  std::vector<CategoryImage> images_;
};

}  // namespace velmo
