// Category names: how they are compared, trimmed, written in a categories
// string and shown on screen.
#pragma once

#include <string>
#include <string_view>

namespace velmo {

// Stands for No Category (the empty name) in a categories string.
inline constexpr std::wstring_view kNoCategoryMarker = L"<NoCat>";

// Category names compare case-insensitively, character by character on their
// lower-case forms (the way _wcsicmp does). Returns <0, 0 or >0.
int CompareCategoryNames(std::wstring_view a, std::wstring_view b);

inline bool SameCategoryName(std::wstring_view a, std::wstring_view b) {
  return CompareCategoryNames(a, b) == 0;
}

// The name as it is kept: blanks of the wide space class cut off both ends, and
// "<NoCat>" (exactly, case-sensitive) read as the empty name.
std::wstring_view NormalizeCategoryName(std::wstring_view piece);

// The name as a categories string writes it: the empty name is "<NoCat>".
std::wstring_view CategoryNameForString(std::wstring_view name);

// The name as the screen shows it: the empty name is "No Category".
std::wstring CategoryNameForDisplay(std::wstring_view name);

}  // namespace velmo
