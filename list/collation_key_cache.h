// Collation keys of the texts the list has been sorted by, kept from one sort to
// the next: the list is sorted again after every change, nearly always over the
// same subjects, and making a key costs far more than finding it.
#pragma once

#include <string>
#include <string_view>

namespace velmo {

// Called as a sort begins: forgets every key when the locale changed or the
// cache has grown past a few full task tables.
void PrepareCollationKeyCache();

// Forgets every key, as if no sort had run.
void ForgetCollationKeys();

// The key of `text` (platform/lstrcmp.h CollationKey); valid until the next
// PrepareCollationKeyCache.
const std::string& CachedCollationKey(std::wstring_view text);

}  // namespace velmo
