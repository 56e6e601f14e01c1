// FindWebAddress: the earliest address with one of the known schemes, read up
// to the next blank (at most 511 characters); without one, the first "www."
// followed by a host name of at least three characters holding a dot.
#include <cstring>
#include <string_view>

#include "links/scan_text.h"
#include "links/scanners.h"
#include "links/text_classes.h"

namespace velmo {
namespace {

using links::In;
using links::Literal;

constexpr size_t kMaxAddress = 511;
constexpr size_t kMaxHost = 255;
constexpr size_t kMinHost = 3;

// Case-sensitive, as written before "://".
constexpr Literal kSchemes[] = {{"http", L"http"}, {"https", L"https"}, {"ftp", L"ftp"},
                                {"wsp", L"wsp"},   {"wsps", L"wsps"},   {"file", L"file"},
                                {"rtsp", L"rtsp"}};
constexpr Literal kSeparator{"://", L"://"};
constexpr Literal kWww{"www.", L"www."};
constexpr std::wstring_view kTrailingPunctuation = L".,;()!:?\"-[]{}";

// Where the first occurrence of an ASCII literal at or after `from` starts, or
// npos. Notes can be long: on their bytes the C library's vector search for the
// whole literal is far quicker than a search for its first character ("w" is
// frequent). The texts end in a NUL, so the C search stops where the view does.
size_t Find(std::wstring_view text, const Literal& literal, size_t from) {
  return text.find(literal.wide, from);
}
size_t Find(std::string_view text, const Literal& literal, size_t from) {
  const char* at = std::strstr(text.data() + from, literal.narrow.data());
  return at ? static_cast<size_t>(at - text.data()) : std::string_view::npos;
}

// Where the scheme that ends right before this "://" starts, or null.
template <typename Char>
const Char* SchemeBefore(const Char* text, const Char* separator) {
  const auto room = static_cast<size_t>(separator - text);
  for (const Literal& literal : kSchemes) {
    const std::basic_string_view<Char> scheme = In<Char>(literal);
    if (scheme.size() <= room && std::basic_string_view<Char>(separator - scheme.size(), scheme.size()) == scheme)
      return separator - scheme.size();
  }
  return nullptr;
}

// The earliest address with a known scheme. "://" occurrences cannot overlap, so
// the first one preceded by a scheme also has the earliest-starting scheme.
// (A wide text is searched with string_view's find, which looks for the first
// character with wmemchr, far quicker than wcsstr on text that has none.)
template <typename Char>
const Char* FirstSchemeAddress(std::basic_string_view<Char> text) {
  for (size_t sep = Find(text, kSeparator, 0); sep != text.npos; sep = Find(text, kSeparator, sep + 1))
    if (const Char* start = SchemeBefore(text.data(), text.data() + sep)) return start;
  return nullptr;
}

template <typename Char>
const Char* FirstWwwAddress(std::basic_string_view<Char> text) {
  const size_t at = Find(text, kWww, 0);
  if (at == text.npos) return nullptr;
  const Char* www = text.data() + at;
  const Char* host = www + kWww.narrow.size();
  size_t length = 0;
  while (length < kMaxHost && links::IsHostNameChar(host[length])) ++length;
  if (length < kMinHost || std::basic_string_view<Char>(host, length).find(Char('.')) == text.npos)
    return nullptr;
  return www;
}

template <typename Char>
bool FindWebAddressIn(const Char* text, std::wstring* found) {
  if (!text) return false;
  const std::basic_string_view<Char> all(text);
  const Char* start = FirstSchemeAddress(all);
  if (!start) start = FirstWwwAddress(all);
  if (!start) return false;
  if (found) {
    size_t length = 0;
    while (length < kMaxAddress && start[length] && !links::IsScanBlank(links::CharOf(start[length])))
      ++length;
    *found = links::Widen(std::basic_string_view<Char>(start, length));
  }
  return true;
}

}  // namespace

bool FindWebAddress(const wchar_t* text, std::wstring* found) { return FindWebAddressIn(text, found); }
bool FindWebAddress(const char* ansi_text, std::wstring* found) { return FindWebAddressIn(ansi_text, found); }

void CutTrailingPunctuation(std::wstring* address) {
  const size_t keep = address->find_last_not_of(kTrailingPunctuation);
  address->erase(keep == std::wstring::npos ? 0 : keep + 1);
}

}  // namespace velmo
