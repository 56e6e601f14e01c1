// One ICU collator per locale name, made on first use; wide strings are handed to
// it as UTF-16 in stack buffers so that a comparison allocates nothing for the
// texts a task list holds.
#include "platform/lstrcmp.h"

#include <unicode/ucol.h>

#include <memory>
#include <string>

#include "platform/locale.h"
#include "platform/wstr.h"

namespace velmo {
namespace {

struct CollatorCloser {
  void operator()(UCollator* c) const { ucol_close(c); }
};

struct CachedCollator {
  std::string locale_name;
  std::unique_ptr<UCollator, CollatorCloser> collator;
};

UCollator* g_scoped_collator = nullptr;

UCollator* CollatorForCurrentLocale() {
  if (g_scoped_collator) return g_scoped_collator;
  static CachedCollator cache;
  const std::string name = locale::CurrentLocaleName();
  if (!cache.collator || cache.locale_name != name) {
    UErrorCode status = U_ZERO_ERROR;
    UCollator* c = ucol_open(name.c_str(), &status);
    if (U_FAILURE(status)) {
      status = U_ZERO_ERROR;
      c = ucol_open("", &status);  // the root order
      if (U_FAILURE(status)) c = nullptr;
    }
    cache.collator.reset(c);
    cache.locale_name = name;
  }
  return cache.collator.get();
}

// UTF-16 form of a wide string; short texts stay in the inline buffer.
class Utf16Text {
 public:
  explicit Utf16Text(std::wstring_view text) {
    UChar* out = inline_;
    if (text.size() * 2 > kInline) {
      heap_.resize(text.size() * 2);
      out = heap_.data();
    }
    size_t n = 0;
    for (wchar_t wc : text) {
      auto c = static_cast<std::uint32_t>(wc);
      if (c > 0x10FFFF || (c >= 0xD800 && c <= 0xDFFF)) c = 0xFFFD;
      if (c >= 0x10000) {
        out[n++] = static_cast<UChar>(0xD800 + ((c - 0x10000) >> 10));
        out[n++] = static_cast<UChar>(0xDC00 + ((c - 0x10000) & 0x3FF));
      } else {
        out[n++] = static_cast<UChar>(c);
      }
    }
    data_ = out;
    size_ = static_cast<int32_t>(n);
  }
  const UChar* data() const { return data_; }
  int32_t size() const { return size_; }

 private:
  static constexpr size_t kInline = 256;
  UChar inline_[kInline];
  std::u16string heap_;
  const UChar* data_ = nullptr;
  int32_t size_ = 0;
};

}  // namespace

std::string CollationKey(std::wstring_view text) {
  UCollator* collator = CollatorForCurrentLocale();
  const Utf16Text u(text);
  if (!collator) return ToUtf8(text);  // code point order, as CollateText falls back to
  std::string key(static_cast<size_t>(u.size()) * 4 + 16, '\0');
  int32_t n = ucol_getSortKey(collator, u.data(), u.size(),
                              reinterpret_cast<uint8_t*>(key.data()), static_cast<int32_t>(key.size()));
  if (n > static_cast<int32_t>(key.size())) {
    key.resize(static_cast<size_t>(n));
    n = ucol_getSortKey(collator, u.data(), u.size(), reinterpret_cast<uint8_t*>(key.data()), n);
  }
  key.resize(n > 0 ? static_cast<size_t>(n - 1) : 0);  // without the terminating zero
  return key;
}

CollationScope::CollationScope() : previous_(g_scoped_collator) {
  g_scoped_collator = nullptr;
  g_scoped_collator = CollatorForCurrentLocale();
}

CollationScope::~CollationScope() { g_scoped_collator = static_cast<UCollator*>(previous_); }

int CollateText(std::wstring_view a, std::wstring_view b) {
  if (a == b) return 0;
  UCollator* collator = CollatorForCurrentLocale();
  if (!collator) return a < b ? -1 : 1;
  const Utf16Text ua(a);
  const Utf16Text ub(b);
  switch (ucol_strcoll(collator, ua.data(), ua.size(), ub.data(), ub.size())) {
    case UCOL_LESS: return -1;
    case UCOL_GREATER: return 1;
    default: return 0;
  }
}

}  // namespace velmo

int lstrcmpW(LPCWSTR a, LPCWSTR b) {
  return velmo::CollateText(a ? std::wstring_view(a) : std::wstring_view(),
                            b ? std::wstring_view(b) : std::wstring_view());
}
