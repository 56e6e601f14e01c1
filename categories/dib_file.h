// Loading a device-independent bitmap (.bmp) file, with gdk-pixbuf's BMP
// reader: 1, 4, 8, 16, 24 and 32 bits per pixel, palettes, RLE, bottom-up and
// top-down rows.
#pragma once

#include <filesystem>

#include "categories/bitmap.h"

namespace velmo {

// Returns ERROR_SUCCESS with the pixels in *out, ERROR_FILE_NOT_FOUND when there
// is no such file, or ERROR_BAD_FORMAT for anything else (unreadable, not a
// bitmap, damaged, too large). Fully transparent pixels of a bitmap with alpha
// become the icon key colour.
DWORD LoadDibFile(const std::filesystem::path& path, Bitmap* out);

}  // namespace velmo
