#include "list/collation_key_cache.h"

#include <unordered_map>

#include "platform/locale.h"
#include "platform/lstrcmp.h"
#include "store/task.h"

namespace velmo {
namespace {

constexpr size_t kMaxKeys = 4 * kMaxTasks;

struct KeyCache {
  std::string locale_name;
  std::unordered_map<std::wstring, std::string> keys;
};

KeyCache& Cache() {
  static KeyCache cache;
  return cache;
}

}  // namespace

void PrepareCollationKeyCache() {
  KeyCache& cache = Cache();
  std::string name = locale::CurrentLocaleName();
  if (name != cache.locale_name || cache.keys.size() > kMaxKeys) {
    cache.keys.clear();
    cache.locale_name = std::move(name);
  }
}

void ForgetCollationKeys() { Cache().keys.clear(); }

const std::string& CachedCollationKey(std::wstring_view text) {
  auto& keys = Cache().keys;
  auto it = keys.find(std::wstring(text));
  if (it == keys.end()) it = keys.emplace(std::wstring(text), CollationKey(text)).first;
  return it->second;
}

}  // namespace velmo
