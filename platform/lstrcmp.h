// Linguistic string comparison under the platform's names: the order of the
// program's locale (ICU collation, tertiary strength), so "apple" < "Banana"
// and a lower-case letter comes just before its capital.
#pragma once

#include <string_view>

#include "platform/wintypes.h"

// <0, 0 or >0. A null pointer counts as the empty string.
int lstrcmpW(LPCWSTR a, LPCWSTR b);

namespace velmo {

// The same for counted strings (embedded zeros are compared too).
int CollateText(std::wstring_view a, std::wstring_view b);

}  // namespace velmo
