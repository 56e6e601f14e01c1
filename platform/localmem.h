// The platform's local heap: the memory that platform calls hand to the program
// (CeReadRecordProps with CEDB_ALLOWREALLOC) and that the program frees with
// LocalFree. Backed by malloc/realloc/free.
#pragma once

#include <cstddef>

#include "platform/wintypes.h"

using HLOCAL = void*;
using SIZE_T = std::size_t;

constexpr UINT LMEM_FIXED = 0x0000;
constexpr UINT LMEM_MOVEABLE = 0x0002;
constexpr UINT LMEM_ZEROINIT = 0x0040;
constexpr UINT LPTR = LMEM_FIXED | LMEM_ZEROINIT;

// Null on failure (ERROR_NOT_ENOUGH_MEMORY). A zero size gives a valid block.
HLOCAL LocalAlloc(UINT flags, SIZE_T bytes);
// Grows or shrinks a block, keeping its contents (LMEM_ZEROINIT zeroes the new
// part); a null block is allocated. Null on failure, the old block kept.
HLOCAL LocalReAlloc(HLOCAL block, SIZE_T bytes, UINT flags);
// Null on success; a null block is accepted.
HLOCAL LocalFree(HLOCAL block);
// The block's size in bytes.
SIZE_T LocalSize(HLOCAL block);
