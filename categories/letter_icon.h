// The icon drawn for a category without a bitmap file: its first letter in
// navy on a small tile.
#pragma once

#include <string_view>

#include "categories/category_image_list.h"

namespace velmo {

constexpr COLORREF kLetterInk = MakeRgb(0, 0, 128);

// The tile behind the letter: a light square with a grey rim, corners
// transparent (in the icon key colour).
Bitmap LetterIconTemplate();

// The tile fitted centred into cx-by-cy with the name's first character centred
// on it. `name` must not be empty.
CategoryImage DrawLetterIcon(std::wstring_view name, int cx, int cy);

}  // namespace velmo
