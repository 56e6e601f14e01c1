// What the link scanners read: wide text, or the bytes of the device's ANSI code
// page (Windows-1252) as task notes are stored, read in place without a
// conversion first. Each scanner is written once for both; the letter, digit,
// punctuation and blank tests see a byte as the character the code page gives
// it, and the ASCII tests compare it as it is (no byte of 0x80 or above stands
// for an ASCII character).
#pragma once

#include <cstring>
#include <cwchar>
#include <string>
#include <string_view>
#include <type_traits>

#include "platform/ansi_codepage.h"

namespace velmo::links {

inline wchar_t CharOf(wchar_t c) { return c; }
inline wchar_t CharOf(char byte) { return Windows1252Char(static_cast<unsigned char>(byte)); }

// The first c in a NUL-terminated text, or null.
inline const wchar_t* FindChar(const wchar_t* text, wchar_t c) { return std::wcschr(text, c); }
inline const char* FindChar(const char* text, char c) { return std::strchr(text, c); }

// An ASCII literal in both widths.
struct Literal {
  std::string_view narrow;
  std::wstring_view wide;
};
template <typename Char>
std::basic_string_view<Char> In(const Literal& literal) {
  if constexpr (std::is_same_v<Char, char>)
    return literal.narrow;
  else
    return literal.wide;
}

// Whether c is one of the ASCII characters of `set`.
template <typename Char>
bool IsOneOf(Char c, std::string_view set) {
  const auto value = static_cast<std::make_unsigned_t<Char>>(c);
  return value < 0x80 && set.find(static_cast<char>(value)) != std::string_view::npos;
}

template <typename Char>
std::wstring Widen(std::basic_string_view<Char> text) {
  std::wstring out;
  out.reserve(text.size());
  for (Char c : text) out.push_back(CharOf(c));
  return out;
}

}  // namespace velmo::links
