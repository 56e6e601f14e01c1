// FindWebAddress: the earliest address with one of the known schemes, read up
// to the next blank (at most 511 characters); without one, the first "www."
// followed by a host name of at least three characters holding a dot.
#include <cwchar>
#include <string_view>

#include "links/scanners.h"
#include "links/text_classes.h"

namespace velmo {
namespace {

using links::IsAsciiDigit;
using links::IsAsciiLetter;
using links::IsScanBlank;

constexpr size_t kMaxAddress = 511;
constexpr size_t kMaxHost = 255;
constexpr size_t kMinHost = 3;

// Case-sensitive, as written before "://".
constexpr std::wstring_view kSchemes[] = {L"http", L"https", L"ftp", L"wsp", L"wsps", L"file", L"rtsp"};
constexpr std::wstring_view kSeparator = L"://";
constexpr std::wstring_view kWww = L"www.";
constexpr std::wstring_view kTrailingPunctuation = L".,;()!:?\"-[]{}";

bool IsHostChar(wchar_t c) { return IsAsciiLetter(c) || IsAsciiDigit(c) || c == L'.' || c == L'-'; }

// Where the scheme that ends right before this "://" starts, or null.
const wchar_t* SchemeBefore(const wchar_t* text, const wchar_t* separator) {
  const auto room = static_cast<size_t>(separator - text);
  for (std::wstring_view scheme : kSchemes)
    if (scheme.size() <= room && std::wstring_view(separator - scheme.size(), scheme.size()) == scheme)
      return separator - scheme.size();
  return nullptr;
}

// The earliest address with a known scheme. "://" occurrences cannot overlap, so
// the first one preceded by a scheme also has the earliest-starting scheme.
// (string_view's find looks for the first character with wmemchr, far quicker
// than wcsstr on text that has none.)
const wchar_t* FirstSchemeAddress(std::wstring_view text) {
  for (size_t sep = text.find(kSeparator); sep != std::wstring_view::npos;
       sep = text.find(kSeparator, sep + 1))
    if (const wchar_t* start = SchemeBefore(text.data(), text.data() + sep)) return start;
  return nullptr;
}

const wchar_t* FirstWwwAddress(std::wstring_view text) {
  const size_t at = text.find(kWww);
  if (at == std::wstring_view::npos) return nullptr;
  const wchar_t* www = text.data() + at;
  const wchar_t* host = www + kWww.size();
  size_t length = 0;
  while (length < kMaxHost && IsHostChar(host[length])) ++length;
  if (length < kMinHost || std::wstring_view(host, length).find(L'.') == std::wstring_view::npos)
    return nullptr;
  return www;
}

}  // namespace

bool FindWebAddress(const wchar_t* text, std::wstring* found) {
  if (!text) return false;
  const std::wstring_view all(text);
  const wchar_t* start = FirstSchemeAddress(all);
  if (!start) start = FirstWwwAddress(all);
  if (!start) return false;
  if (found) {
    size_t length = 0;
    while (length < kMaxAddress && start[length] && !IsScanBlank(start[length])) ++length;
    found->assign(start, length);
  }
  return true;
}

void CutTrailingPunctuation(std::wstring* address) {
  const size_t keep = address->find_last_not_of(kTrailingPunctuation);
  address->erase(keep == std::wstring::npos ? 0 : keep + 1);
}

}  // namespace velmo
