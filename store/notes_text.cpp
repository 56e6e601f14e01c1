#include "store/notes_text.h"

#include "platform/ansi_codepage.h"

#include <cstring>
#include <string_view>

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

bool DecodeNotes(const BYTE* bytes, DWORD size, std::wstring* text) {
  text->clear();
  if (!bytes || StandsForNoNotes(bytes, size)) return false;
  const void* zero = std::memchr(bytes, 0, size);
  const size_t length = zero ? static_cast<size_t>(static_cast<const BYTE*>(zero) - bytes) : size;
  text->resize(length);
  DecodeWindows1252(std::string_view(reinterpret_cast<const char*>(bytes), length), text->data());
  return true;
}

WORD NotesStateOf(const std::wstring& text) {
  if (text.size() > kLongNotesChars && text.back() == L']') return kLongNotesEndingInBracket;
  const bool any = text.find_first_not_of(L"\r\n") != std::wstring::npos;
  return any ? kHasNotes : kNoNotes;
}

}  // namespace velmo
