#include "platform/ansi_codepage.h"

#include <unicode/ucnv.h>

#include <array>


namespace velmo {
namespace {

// The 256 characters of the code page, made once from ICU's converter.
struct CodePage {
  std::array<wchar_t, 256> to_wide{};

  CodePage() {
    UErrorCode error = U_ZERO_ERROR;
    UConverter* converter = ucnv_open("windows-1252", &error);
    for (int byte = 0; byte < 256; ++byte) {
      to_wide[byte] = static_cast<wchar_t>(byte);  // Latin-1 where ICU cannot say
      if (!converter) continue;
      const char in = static_cast<char>(byte);
      UChar out[4];
      UErrorCode e = U_ZERO_ERROR;
      ucnv_reset(converter);
      if (ucnv_toUChars(converter, out, 4, &in, 1, &e) == 1 && U_SUCCESS(e) && out[0] != 0xFFFD)
        to_wide[byte] = out[0];
    }
    ucnv_close(converter);
  }

  int ByteOf(wchar_t c) const {
    if (c < 0x80 || (c >= 0xA0 && c <= 0xFF)) return static_cast<int>(c);
    for (int byte = 0x80; byte < 0xA0; ++byte)
      if (to_wide[byte] == c) return byte;
    return -1;
  }
};

const CodePage& Page() {
  static const CodePage page;
  return page;
}

}  // namespace

std::string ToWindows1252(std::wstring_view text) {
  const CodePage& page = Page();
  std::string out;
  out.reserve(text.size());
  for (wchar_t c : text) {
    const int byte = page.ByteOf(c);
    out.push_back(byte < 0 ? '?' : static_cast<char>(byte));
  }
  return out;
}

std::wstring FromWindows1252(std::string_view bytes) {
  const CodePage& page = Page();
  std::wstring out;
  out.reserve(bytes.size());
  for (char b : bytes) out.push_back(page.to_wide[static_cast<unsigned char>(b)]);
  return out;
}

}  // namespace velmo
