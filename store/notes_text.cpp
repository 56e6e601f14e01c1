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

std::string_view NotesText(std::string_view stored) { return stored.substr(0, stored.find('\0')); }

bool NotesOf(const BYTE* bytes, DWORD size, std::string_view* stored) {
  *stored = {};
  if (!bytes || StandsForNoNotes(bytes, size)) return false;
  *stored = std::string_view(reinterpret_cast<const char*>(bytes), size);
  return true;
}

WORD NotesStateOf(std::string_view stored) {
  // Windows-1252 has one character per byte, and CR, LF and "]" are their ASCII bytes.
  if (stored.size() > kLongNotesChars) {
    const std::string_view text = NotesText(stored);
    if (text.size() > kLongNotesChars && text.back() == ']') return kLongNotesEndingInBracket;
  }
  for (char c : stored) {
    if (c == '\0') break;
    if (c != '\r' && c != '\n') return kHasNotes;
  }
  return kNoNotes;
}

}  // namespace velmo
