#include "platform/ansi_codepage.h"

#include <unicode/ucnv.h>

#include <array>
#include <cstdint>
#include <cstring>

namespace velmo {
namespace {

// The 256 characters of the code page, made once from ICU's converter, so that
// decoding is one lookup per byte.
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
      if (ucnv_toUChars(converter, out, 4, &in, 1, &e) == 1 && U_SUCCESS(e) && out[0] != 0xFFFD &&
          out[0] != 0x1A)
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

void DecodeWindows1252(std::string_view bytes, wchar_t* out) {
  const auto* in = reinterpret_cast<const unsigned char*>(bytes.data());
  const size_t length = bytes.size();
  // Plain ASCII maps to itself, sixteen bytes at a time; the table (and ICU
  // behind it) is asked only for the other bytes.
  const std::array<wchar_t, 256>* table = nullptr;
  const auto lookup = [&table](unsigned char byte) {
    if (!table) table = &Page().to_wide;
    return (*table)[byte];
  };
  // Each block is widened from a local copy: the compiler cannot know that the
  // output does not overlap bytes it reads through a char pointer, and would
  // otherwise widen one byte at a time.
  constexpr size_t kBlock = 16;
  size_t i = 0;
  for (; i + kBlock <= length; i += kBlock) {
    unsigned char block[kBlock];
    std::memcpy(block, in + i, kBlock);
    std::uint64_t halves[2];
    std::memcpy(halves, block, kBlock);
    if ((halves[0] | halves[1]) & 0x8080808080808080ull) {
      for (size_t k = 0; k < kBlock; ++k) out[i + k] = block[k] < 0x80 ? block[k] : lookup(block[k]);
    } else {
      for (size_t k = 0; k < kBlock; ++k) out[i + k] = block[k];
    }
  }
  for (; i < length; ++i) out[i] = in[i] < 0x80 ? in[i] : lookup(in[i]);
}

wchar_t Windows1252HighChar(unsigned char byte) { return Page().to_wide[byte]; }

std::wstring FromWindows1252(std::string_view bytes) {
  std::wstring out(bytes.size(), L'\0');
  DecodeWindows1252(bytes, out.data());
  return out;
}

}  // namespace velmo
