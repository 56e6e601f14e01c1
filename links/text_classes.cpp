#include "links/text_classes.h"

#include <unicode/uchar.h>

#include <cstdint>

namespace velmo::links {
namespace {

constexpr std::uint32_t kMaxCodePoint = 0x10FFFF;

// Values outside Unicode (possible in a wide string built from raw data) have
// no class.
bool IsCodePoint(wchar_t c) { return static_cast<std::uint32_t>(c) <= kMaxCodePoint; }
bool IsAscii(wchar_t c) { return static_cast<std::uint32_t>(c) < 0x80; }

}  // namespace

bool IsNonAsciiLetterOrDigit(wchar_t c) { return IsCodePoint(c) && u_isalnum(static_cast<UChar32>(c)); }

bool IsPunctuation(wchar_t c) {
  if (IsAscii(c)) return c > L' ' && c < 0x7F && !IsAsciiDigit(c) && !IsAsciiLetter(c);
  if (!IsCodePoint(c)) return false;
  return (U_GET_GC_MASK(static_cast<UChar32>(c)) & (U_GC_P_MASK | U_GC_S_MASK)) != 0;
}

bool IsScanBlank(wchar_t c) {
  if (IsAscii(c)) return c == L' ' || (c >= L'\t' && c <= L'\r');
  return IsCodePoint(c) && u_isWhitespace(static_cast<UChar32>(c));
}

}  // namespace velmo::links
