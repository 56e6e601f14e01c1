#include "categories/dib_file.h"

#include <gdk-pixbuf/gdk-pixbuf.h>

#include <cerrno>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>

namespace velmo {
namespace {

// A category icon is a few pixels; anything much larger is not one.
constexpr std::uintmax_t kMaxFileBytes = 16u << 20;
constexpr int kMaxSide = 4096;

struct LoaderDeleter {
  void operator()(GdkPixbufLoader* loader) const {
    gdk_pixbuf_loader_close(loader, nullptr);
    g_object_unref(loader);
  }
};

bool ReadWholeFile(const std::filesystem::path& path, std::string* bytes, DWORD* error) {
  errno = 0;
  std::ifstream in(path, std::ios::binary);
  if (!in) {
    *error = (errno == ENOENT || errno == ENOTDIR) ? ERROR_FILE_NOT_FOUND : ERROR_BAD_FORMAT;
    return false;
  }
  std::error_code ec;
  const std::uintmax_t size = std::filesystem::file_size(path, ec);
  if (ec || size > kMaxFileBytes) {
    *error = ERROR_BAD_FORMAT;
    return false;
  }
  bytes->assign(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
  return true;
}

void CopyPixels(const GdkPixbuf* pixbuf, Bitmap* out) {
  const int w = gdk_pixbuf_get_width(pixbuf);
  const int h = gdk_pixbuf_get_height(pixbuf);
  const int channels = gdk_pixbuf_get_n_channels(pixbuf);
  const bool alpha = gdk_pixbuf_get_has_alpha(pixbuf);
  const int stride = gdk_pixbuf_get_rowstride(pixbuf);
  const guchar* data = gdk_pixbuf_read_pixels(pixbuf);
  *out = Bitmap(w, h, kIconKeyColor);
  for (int y = 0; y < h; ++y) {
    const guchar* row = data + static_cast<size_t>(y) * stride;
    for (int x = 0; x < w; ++x) {
      const guchar* p = row + static_cast<size_t>(x) * channels;
      if (!(alpha && p[3] == 0)) out->at(x, y) = MakeRgb(p[0], p[1], p[2]);
    }
  }
}

}  // namespace

DWORD LoadDibFile(const std::filesystem::path& path, Bitmap* out) {
  std::string bytes;
  DWORD error = ERROR_SUCCESS;
  if (!ReadWholeFile(path, &bytes, &error)) return error;
  // Only the BMP reader: a file of another format named .bmp is a bad file.
  std::unique_ptr<GdkPixbufLoader, LoaderDeleter> loader(
      gdk_pixbuf_loader_new_with_type("bmp", nullptr));
  if (!loader) return ERROR_BAD_FORMAT;
  if (!gdk_pixbuf_loader_write(loader.get(), reinterpret_cast<const guchar*>(bytes.data()),
                               bytes.size(), nullptr) ||
      !gdk_pixbuf_loader_close(loader.get(), nullptr))
    return ERROR_BAD_FORMAT;
  const GdkPixbuf* pixbuf = gdk_pixbuf_loader_get_pixbuf(loader.get());
  if (!pixbuf || gdk_pixbuf_get_colorspace(pixbuf) != GDK_COLORSPACE_RGB ||
      gdk_pixbuf_get_bits_per_sample(pixbuf) != 8 || gdk_pixbuf_get_n_channels(pixbuf) < 3 ||
      gdk_pixbuf_get_width(pixbuf) > kMaxSide || gdk_pixbuf_get_height(pixbuf) > kMaxSide)
    return ERROR_BAD_FORMAT;
  CopyPixels(pixbuf, out);
  return ERROR_SUCCESS;
}

}  // namespace velmo
