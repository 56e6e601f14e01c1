#include "store/notes_text.h"

#include <cstring>

namespace velmo {
namespace {

bool StandsForNoNotes(const BYTE* bytes, DWORD size) {
  static constexpr BYTE kCrLf[] = {'\r', '\n'};
  static constexpr BYTE kZeros[] = {0, 0};
  static constexpr BYTE kCrLfZeros[] = {'\r', '\n', 0, 0};
  if (size == 0) return true;
  if (size == 2) return std::memcmp(bytes, kCrLf, 2) == 0 || std::memcmp(bytes, kZeros, 2) == 0;
  return size == 4 && std::memcmp(bytes, kCrLfZeros, 4) == 0;
}

}  // namespace

bool NotesOf(const BYTE* bytes, DWORD size, std::string_view* text) {
  *text = {};
  if (!bytes || StandsForNoNotes(bytes, size)) return false;
  const void* zero = std::memchr(bytes, 0, size);
  const size_t length = zero ? static_cast<size_t>(static_cast<const BYTE*>(zero) - bytes) : size;
  *text = std::string_view(reinterpret_cast<const char*>(bytes), length);
  return true;
}

WORD NotesStateOf(std::string_view text) {
  // Windows-1252 has one character per byte, and CR, LF and "]" are their ASCII bytes.
  if (text.size() > kLongNotesChars && text.back() == ']') return kLongNotesEndingInBracket;
  return text.find_first_not_of("\r\n") != std::string_view::npos ? kHasNotes : kNoNotes;
}

}  // namespace velmo
