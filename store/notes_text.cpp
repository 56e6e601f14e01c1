#include "store/notes_text.h"

#include <unicode/ucnv.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

namespace velmo {
namespace {

using CodePage = std::array<wchar_t, 256>;

// The code page as a table made once by ICU's converter, so that decoding is
// one lookup per byte. A byte the converter cannot map keeps its Latin-1 value.
const CodePage& Windows1252() {
  static const CodePage table = [] {
    CodePage t;
    for (int b = 0; b < 256; ++b) t[b] = static_cast<wchar_t>(b);
    UErrorCode error = U_ZERO_ERROR;
    UConverter* converter = ucnv_open("windows-1252", &error);
    if (U_FAILURE(error)) return t;
    for (int b = 0; b < 256; ++b) {
      const char in = static_cast<char>(b);
      UChar out[4];
      error = U_ZERO_ERROR;
      ucnv_reset(converter);
      const int32_t n = ucnv_toUChars(converter, out, 4, &in, 1, &error);
      if (U_SUCCESS(error) && n == 1 && out[0] != 0xFFFD && out[0] != 0x1A) t[b] = out[0];
    }
    ucnv_close(converter);
    return t;
  }();
  return table;
}

bool StandsForNoNotes(const BYTE* bytes, DWORD size) {
  static constexpr BYTE kCrLf[] = {'\r', '\n'};
  static constexpr BYTE kZeros[] = {0, 0};
  static constexpr BYTE kCrLfZeros[] = {'\r', '\n', 0, 0};
  if (size == 0) return true;
  if (size == 2) return std::memcmp(bytes, kCrLf, 2) == 0 || std::memcmp(bytes, kZeros, 2) == 0;
  return size == 4 && std::memcmp(bytes, kCrLfZeros, 4) == 0;
}

}  // namespace

bool DecodeNotes(const BYTE* bytes, DWORD size, std::wstring* text) {
  text->clear();
  if (!bytes || StandsForNoNotes(bytes, size)) return false;
  const void* zero = std::memchr(bytes, 0, size);
  const size_t length = zero ? static_cast<size_t>(static_cast<const BYTE*>(zero) - bytes) : size;
  const CodePage& page = Windows1252();
  text->resize(length);
  wchar_t* out = text->data();
  size_t i = 0;
  // Eight bytes at a time while they are plain ASCII, which maps to itself.
  for (; i + 8 <= length; i += 8) {
    std::uint64_t block;
    std::memcpy(&block, bytes + i, 8);
    if (block & 0x8080808080808080ull) {
      for (size_t k = i; k < i + 8; ++k) out[k] = page[bytes[k]];
    } else {
      for (size_t k = i; k < i + 8; ++k) out[k] = bytes[k];
    }
  }
  for (; i < length; ++i) out[i] = page[bytes[i]];
  return true;
}

WORD NotesStateOf(const std::wstring& text) {
  if (text.size() > kLongNotesChars && text.back() == L']') return kLongNotesEndingInBracket;
  const bool any = text.find_first_not_of(L"\r\n") != std::wstring::npos;
  return any ? kHasNotes : kNoNotes;
}

}  // namespace velmo
