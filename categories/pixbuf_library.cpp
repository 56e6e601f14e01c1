#include "categories/pixbuf_library.h"

#include <dlfcn.h>

#include "platform/library_function.h"

namespace velmo {
namespace {

constexpr const char* kLibraryFile = "libgdk_pixbuf-2.0.so.0";

bool Load(PixbufLibrary* p) {
  void* lib = dlopen(kLibraryFile, RTLD_NOW | RTLD_LOCAL);
  if (!lib) return false;
  // g_object_unref is found through the library's own dependency on GObject.
  return FindLibraryFunction(lib, "gdk_pixbuf_loader_new_with_type", &p->loader_new_with_type) &&
         FindLibraryFunction(lib, "gdk_pixbuf_loader_write", &p->loader_write) &&
         FindLibraryFunction(lib, "gdk_pixbuf_loader_close", &p->loader_close) &&
         FindLibraryFunction(lib, "gdk_pixbuf_loader_get_pixbuf", &p->loader_get_pixbuf) &&
         FindLibraryFunction(lib, "gdk_pixbuf_get_colorspace", &p->get_colorspace) &&
         FindLibraryFunction(lib, "gdk_pixbuf_get_bits_per_sample", &p->get_bits_per_sample) &&
         FindLibraryFunction(lib, "gdk_pixbuf_get_n_channels", &p->get_n_channels) &&
         FindLibraryFunction(lib, "gdk_pixbuf_get_has_alpha", &p->get_has_alpha) &&
         FindLibraryFunction(lib, "gdk_pixbuf_get_width", &p->get_width) &&
         FindLibraryFunction(lib, "gdk_pixbuf_get_height", &p->get_height) &&
         FindLibraryFunction(lib, "gdk_pixbuf_get_rowstride", &p->get_rowstride) &&
         FindLibraryFunction(lib, "gdk_pixbuf_read_pixels", &p->read_pixels) &&
         FindLibraryFunction(lib, "g_object_unref", &p->object_unref);
}

}  // namespace

const PixbufLibrary* Pixbuf() {
  static PixbufLibrary library;
  static const bool loaded = Load(&library);
  return loaded ? &library : nullptr;
}

}  // namespace velmo
