// Linguistic string comparison under the platform's names: the order of the
// program's locale (ICU collation, tertiary strength), so "apple" < "Banana"
// and a lower-case letter comes just before its capital.
#pragma once

#include <string>
#include <string_view>

#include "platform/wintypes.h"

// <0, 0 or >0. A null pointer counts as the empty string.
int lstrcmpW(LPCWSTR a, LPCWSTR b);

namespace velmo {

// The same for counted strings (embedded zeros are compared too).
int CollateText(std::wstring_view a, std::wstring_view b);

// The collation key of a text: two keys compare (as byte strings) the way
// CollateText compares their texts, equal exactly when it finds them equal.
std::string CollationKey(std::wstring_view text);

// While one lives, comparisons use the collator of the locale in force when it
// was made, looked up once: a sort makes one for its thousands of comparisons.
class CollationScope {
 public:
  CollationScope();
  ~CollationScope();
  CollationScope(const CollationScope&) = delete;
  CollationScope& operator=(const CollationScope&) = delete;

 private:
  void* previous_;
};

}  // namespace velmo
