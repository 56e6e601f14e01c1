#include "categories/dib_file.h"

#include <cerrno>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>

#include "categories/pixbuf_library.h"

namespace velmo {
namespace {

// A category icon is a few pixels; anything much larger is not one.
constexpr std::uintmax_t kMaxFileBytes = 16u << 20;
constexpr int kMaxSide = 4096;

struct LoaderDeleter {
  const PixbufLibrary* lib;
  void operator()(GdkPixbufLoader* loader) const {
    lib->loader_close(loader, nullptr);
    lib->object_unref(loader);
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

void CopyPixels(const PixbufLibrary& lib, const GdkPixbuf* pixbuf, Bitmap* out) {
  const int w = lib.get_width(pixbuf);
  const int h = lib.get_height(pixbuf);
  const int channels = lib.get_n_channels(pixbuf);
  const bool alpha = lib.get_has_alpha(pixbuf);
  const int stride = lib.get_rowstride(pixbuf);
  const guchar* data = lib.read_pixels(pixbuf);
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
  const PixbufLibrary* lib = Pixbuf();
  if (!lib) return ERROR_BAD_FORMAT;
  // Only the BMP reader: a file of another format named .bmp is a bad file.
  std::unique_ptr<GdkPixbufLoader, LoaderDeleter> loader(lib->loader_new_with_type("bmp", nullptr),
                                                         LoaderDeleter{lib});
  if (!loader) return ERROR_BAD_FORMAT;
  if (!lib->loader_write(loader.get(), reinterpret_cast<const guchar*>(bytes.data()), bytes.size(),
                         nullptr) ||
      !lib->loader_close(loader.get(), nullptr))
    return ERROR_BAD_FORMAT;
  const GdkPixbuf* pixbuf = lib->loader_get_pixbuf(loader.get());
  if (!pixbuf || lib->get_colorspace(pixbuf) != GDK_COLORSPACE_RGB ||
      lib->get_bits_per_sample(pixbuf) != 8 || lib->get_n_channels(pixbuf) < 3 ||
      lib->get_width(pixbuf) > kMaxSide || lib->get_height(pixbuf) > kMaxSide)
    return ERROR_BAD_FORMAT;
  CopyPixels(*lib, pixbuf, out);
  return ERROR_SUCCESS;
}

}  // namespace velmo
