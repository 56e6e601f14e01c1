// A function of a library loaded on first use with dlopen (the bitmap reader,
// the session bus), looked up by name with its type.
#pragma once

#include <dlfcn.h>

namespace velmo {

// False, with *out null, when the library has no function of that name.
template <typename Function>
bool FindLibraryFunction(void* library, const char* name, Function* out) {
  *out = reinterpret_cast<Function>(dlsym(library, name));
  return *out != nullptr;
}

}  // namespace velmo
