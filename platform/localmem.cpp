#include "platform/localmem.h"

#include <malloc.h>

#include <cstdlib>
#include <cstring>

#include "platform/lasterror.h"

namespace {
// A zero-byte request still gets a distinct block, as the platform's heap does.
SIZE_T AtLeastOne(SIZE_T bytes) { return bytes ? bytes : 1; }
}  // namespace

HLOCAL LocalAlloc(UINT flags, SIZE_T bytes) {
  void* block = (flags & LMEM_ZEROINIT) ? std::calloc(1, AtLeastOne(bytes))
                                        : std::malloc(AtLeastOne(bytes));
  if (!block) SetLastError(ERROR_NOT_ENOUGH_MEMORY);
  return block;
}

HLOCAL LocalReAlloc(HLOCAL block, SIZE_T bytes, UINT flags) {
  if (!block) return LocalAlloc(flags, bytes);
  SIZE_T old_size = malloc_usable_size(block);
  void* grown = std::realloc(block, AtLeastOne(bytes));
  if (!grown) {
    SetLastError(ERROR_NOT_ENOUGH_MEMORY);
    return nullptr;
  }
  if ((flags & LMEM_ZEROINIT) && bytes > old_size)
    std::memset(static_cast<char*>(grown) + old_size, 0, bytes - old_size);
  return grown;
}

HLOCAL LocalFree(HLOCAL block) {
  std::free(block);
  return nullptr;
}

SIZE_T LocalSize(HLOCAL block) { return block ? malloc_usable_size(block) : 0; }
