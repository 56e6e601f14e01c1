// The image library that reads category icons, loaded on first use: it brings
// GLib and a dozen more libraries with it, which every start of the programs
// would otherwise pay for, while icons are read only when a list is drawn.
#pragma once

#include <gdk-pixbuf/gdk-pixbuf.h>

namespace velmo {

struct PixbufLibrary {
  decltype(&gdk_pixbuf_loader_new_with_type) loader_new_with_type;
  decltype(&gdk_pixbuf_loader_write) loader_write;
  decltype(&gdk_pixbuf_loader_close) loader_close;
  decltype(&gdk_pixbuf_loader_get_pixbuf) loader_get_pixbuf;
  decltype(&gdk_pixbuf_get_colorspace) get_colorspace;
  decltype(&gdk_pixbuf_get_bits_per_sample) get_bits_per_sample;
  decltype(&gdk_pixbuf_get_n_channels) get_n_channels;
  decltype(&gdk_pixbuf_get_has_alpha) get_has_alpha;
  decltype(&gdk_pixbuf_get_width) get_width;
  decltype(&gdk_pixbuf_get_height) get_height;
  decltype(&gdk_pixbuf_get_rowstride) get_rowstride;
  decltype(&gdk_pixbuf_read_pixels) read_pixels;
  decltype(&g_object_unref) object_unref;
};

// The library's functions, or null when it or one of them cannot be loaded.
const PixbufLibrary* Pixbuf();

}  // namespace velmo
