#include "categories/category_image_list.h"

namespace velmo {

CategoryImageList::CategoryImageList(int cx, int cy) : cx_(cx), cy_(cy) {
  images_.reserve(kInitialCapacity);
}

const CategoryImage* CategoryImageList::Get(int index) const {
  if (index < 0 || index >= count()) return nullptr;
  return &images_[static_cast<size_t>(index)];
}

int CategoryImageList::AddMasked(CategoryImage image) {
  if (image.pixels.width != cx_ || image.pixels.height != cy_) return -1;
  images_.push_back(std::move(image));
  return count() - 1;
}

}  // namespace velmo
