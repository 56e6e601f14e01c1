// Character classes the link scanners test: the ASCII sets of their read
// patterns, and the letter, digit, punctuation and blank tests, which answer the
// same whatever locale the process runs in (Unicode properties from ICU).
#pragma once

namespace velmo::links {

// 0-9 only, like the scanners' "%d" and digit ranges.
constexpr bool IsAsciiDigit(wchar_t c) { return c >= L'0' && c <= L'9'; }
constexpr bool IsAsciiLetter(wchar_t c) {
  return (c >= L'a' && c <= L'z') || (c >= L'A' && c <= L'Z');
}

// The characters of a host name in the read patterns: ASCII letters and
// digits, "." and "-" (an e-mail domain and a "www." host alike).
template <typename Char>
constexpr bool IsHostNameChar(Char c) {
  return IsAsciiLetter(c) || IsAsciiDigit(c) || c == '.' || c == '-';
}

// Any letter or decimal digit of any script.
bool IsNonAsciiLetterOrDigit(wchar_t c);
inline bool IsLetterOrDigit(wchar_t c) {
  return static_cast<unsigned>(c) < 0x80 ? IsAsciiDigit(c) || IsAsciiLetter(c) : IsNonAsciiLetterOrDigit(c);
}
// ASCII punctuation and symbols, and Unicode punctuation and symbols.
bool IsPunctuation(wchar_t c);
// The blanks that end a "%s" read: ASCII white space and Unicode spaces other
// than the no-break ones.
bool IsScanBlank(wchar_t c);

}  // namespace velmo::links
