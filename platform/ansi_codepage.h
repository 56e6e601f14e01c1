// The device's ANSI code page, Windows-1252, in which task notes are stored.
#pragma once

#include <string>
#include <string_view>

namespace velmo {

// Characters the code page lacks become "?". Never fails.
std::string ToWindows1252(std::wstring_view text);
// Every byte has a meaning (the five unassigned ones map to the C1 controls).
std::wstring FromWindows1252(std::string_view bytes);

}  // namespace velmo
