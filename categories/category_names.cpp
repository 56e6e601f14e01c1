#include "categories/category_names.h"

#include <unicode/uchar.h>

#include "categories/category_strings.h"
#include "res/strings.h"

namespace velmo {
namespace {

// Wide characters hold code points; anything outside Unicode is left as it is.
// Most names are ASCII, which needs no table.
UChar32 LowerCase(wchar_t c) {
  const auto cp = static_cast<UChar32>(c);
  if (cp >= 0 && cp < 0x80) return cp >= 'A' && cp <= 'Z' ? cp + ('a' - 'A') : cp;
  return cp >= 0 && cp <= 0x10FFFF ? u_tolower(cp) : cp;
}

bool IsSpace(wchar_t c) {
  const auto cp = static_cast<UChar32>(c);
  return cp >= 0 && cp <= 0x10FFFF && u_isspace(cp);
}

}  // namespace

int CompareCategoryNames(std::wstring_view a, std::wstring_view b) {
  const size_t n = a.size() < b.size() ? a.size() : b.size();
  for (size_t i = 0; i < n; ++i) {
    const auto la = static_cast<std::uint32_t>(LowerCase(a[i]));
    const auto lb = static_cast<std::uint32_t>(LowerCase(b[i]));
    if (la != lb) return la < lb ? -1 : 1;
  }
  return a.size() == b.size() ? 0 : (a.size() < b.size() ? -1 : 1);
}

std::wstring_view NormalizeCategoryName(std::wstring_view piece) {
  while (!piece.empty() && IsSpace(piece.front())) piece.remove_prefix(1);
  while (!piece.empty() && IsSpace(piece.back())) piece.remove_suffix(1);
  if (piece == kNoCategoryMarker) return {};
  return piece;
}

std::wstring_view CategoryNameForString(std::wstring_view name) {
  return name.empty() ? kNoCategoryMarker : name;
}

std::wstring CategoryNameForDisplay(std::wstring_view name) {
  return name.empty() ? res::Text(kIdsNoCategory) : std::wstring(name);
}

}  // namespace velmo
