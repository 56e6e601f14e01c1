#include "categories/pixbuf_library.h"

#include <dlfcn.h>

namespace velmo {
namespace {

constexpr const char* kLibraryFile = "libgdk_pixbuf-2.0.so.0";

template <typename Function>
bool Find(void* library, const char* name, Function* out) {
  *out = reinterpret_cast<Function>(dlsym(library, name));
  return *out != nullptr;
}

bool Load(PixbufLibrary* p) {
  void* lib = dlopen(kLibraryFile, RTLD_NOW | RTLD_LOCAL);
  // g_object_unref is found through the library's own dependency on GObject.
  return lib && Find(lib, "gdk_pixbuf_loader_new_with_type", &p->loader_new_with_type) &&
         Find(lib, "gdk_pixbuf_loader_write", &p->loader_write) &&
         Find(lib, "gdk_pixbuf_loader_close", &p->loader_close) &&
         Find(lib, "gdk_pixbuf_loader_get_pixbuf", &p->loader_get_pixbuf) &&
         Find(lib, "gdk_pixbuf_get_colorspace", &p->get_colorspace) &&
         Find(lib, "gdk_pixbuf_get_bits_per_sample", &p->get_bits_per_sample) &&
         Find(lib, "gdk_pixbuf_get_n_channels", &p->get_n_channels) &&
         Find(lib, "gdk_pixbuf_get_has_alpha", &p->get_has_alpha) &&
         Find(lib, "gdk_pixbuf_get_width", &p->get_width) &&
         Find(lib, "gdk_pixbuf_get_height", &p->get_height) &&
         Find(lib, "gdk_pixbuf_get_rowstride", &p->get_rowstride) &&
         Find(lib, "gdk_pixbuf_read_pixels", &p->read_pixels) &&
         Find(lib, "g_object_unref", &p->object_unref);
}

}  // namespace

const PixbufLibrary* Pixbuf() {
  static PixbufLibrary library;
  static const bool loaded = Load(&library);
  return loaded ? &library : nullptr;
}

}  // namespace velmo
