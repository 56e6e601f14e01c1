#include "platform/wstr.h"

#include <unicode/unistr.h>
#include <unicode/ustring.h>

#include <vector>

namespace velmo {
namespace {
static_assert(sizeof(wchar_t) == sizeof(UChar32), "wide strings hold UTF-32 on Linux");

icu::UnicodeString FromWide(std::wstring_view text) {
  // fromUTF32 replaces unpaired surrogates and out-of-range values with U+FFFD.
  return icu::UnicodeString::fromUTF32(reinterpret_cast<const UChar32*>(text.data()),
                                       static_cast<int32_t>(text.size()));
}

std::wstring ToWide(const icu::UnicodeString& text) {
  UErrorCode status = U_ZERO_ERROR;
  std::wstring out(static_cast<size_t>(text.countChar32()), L'\0');
  int32_t written = text.toUTF32(reinterpret_cast<UChar32*>(out.data()),
                                 static_cast<int32_t>(out.size()), status);
  out.resize(static_cast<size_t>(written));
  return out;
}
}  // namespace

std::string ToUtf8(std::wstring_view text) {
  std::string out;
  FromWide(text).toUTF8String(out);
  return out;
}

std::wstring FromUtf8(std::string_view text) {
  return ToWide(icu::UnicodeString::fromUTF8(
      icu::StringPiece(text.data(), static_cast<int32_t>(text.size()))));
}

std::u16string ToUtf16(std::wstring_view text) {
  icu::UnicodeString u = FromWide(text);
  return std::u16string(u.getBuffer(), static_cast<size_t>(u.length()));
}

std::wstring FromUtf16(std::u16string_view text) {
  return ToWide(icu::UnicodeString(text.data(), static_cast<int32_t>(text.size())));
}

}  // namespace velmo
