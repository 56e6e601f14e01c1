#include "platform/wstr.h"

#include <unicode/unistr.h>
#include <unicode/utf8.h>
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

void AppendUtf8(std::wstring_view text, std::string* out) {
  out->reserve(out->size() + text.size());
  for (wchar_t wide : text) {
    auto c = static_cast<UChar32>(wide);
    if (c >= 0 && c < 0x80) {
      out->push_back(static_cast<char>(c));
      continue;
    }
    if (c < 0 || c > 0x10FFFF || U_IS_SURROGATE(c)) c = 0xFFFD;
    char bytes[U8_MAX_LENGTH];
    int32_t length = 0;
    U8_APPEND_UNSAFE(bytes, length, c);
    out->append(bytes, static_cast<size_t>(length));
  }
}

std::string ToUtf8(std::wstring_view text) {
  std::string out;
  AppendUtf8(text, &out);
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
