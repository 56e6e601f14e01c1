// Arbitrary bytes as an exported registry file: the reader reads or refuses
// them and never crashes; what it reads, written out again, reads back the same.
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "cli/reg_text.h"

namespace {

bool Same(const std::vector<velmo::registry::RawKey>& a, const std::vector<velmo::registry::RawKey>& b) {
  if (a.size() != b.size()) return false;
  for (size_t k = 0; k < a.size(); ++k) {
    if (a[k].path != b[k].path || a[k].values.size() != b[k].values.size()) return false;
    for (size_t v = 0; v < a[k].values.size(); ++v) {
      const velmo::registry::RawValue &x = a[k].values[v], &y = b[k].values[v];
      if (x.name != y.name || x.type != y.type || x.bytes != y.bytes) return false;
    }
  }
  return true;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  std::vector<velmo::registry::RawKey> keys, again;
  std::vector<velmo::cli::RegTextError> errors;
  if (!velmo::cli::ParseRegText(text, &keys, &errors)) return 0;
  if (!velmo::cli::ParseRegText(velmo::cli::FormatRegText(keys), &again, &errors) || !Same(keys, again))
    __builtin_trap();
  return 0;
}
