#include "links/task_links.h"

#include <cstdint>
#include <cstring>
#include <string_view>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

#include "links/scanners.h"

namespace velmo {
namespace {

// What a subject could hold, from counts the compiler keeps in vector
// registers: a number needs seven digits, an e-mail address an "@", a web
// address the ":" of "://" or the three "w" of "www.". Each subject is scanned
// only for what it could hold; one pass over a few dozen characters costs less
// than the scanners' searches, most of which would find nothing.
struct Possible {
  bool number = false;
  bool mail = false;
  bool web = false;
};

struct Counts {
  unsigned digits = 0;
  unsigned at_signs = 0;
  unsigned colons = 0;
  unsigned ws = 0;

  void Add(wchar_t c) {
    digits += static_cast<unsigned>(c - L'0') < 10u;
    at_signs += c == L'@';
    colons += c == L':';
    ws += c == L'w';
  }
};

#if defined(__SSE2__)
// Four characters at a time; every wide character is below 0x110000, so the
// signed comparisons of SSE2 serve.
static_assert(sizeof(wchar_t) == 4);
size_t AddBlocks(std::wstring_view text, Counts* counts) {
  const __m128i zero_char = _mm_set1_epi32(L'0' - 1);
  const __m128i past_nine = _mm_set1_epi32(L'9' + 1);
  const __m128i at = _mm_set1_epi32(L'@');
  const __m128i colon = _mm_set1_epi32(L':');
  const __m128i w = _mm_set1_epi32(L'w');
  __m128i digits = _mm_setzero_si128();
  __m128i signs = _mm_setzero_si128();
  __m128i ws = _mm_setzero_si128();
  size_t i = 0;
  for (; i + 4 <= text.size(); i += 4) {
    __m128i c;
    std::memcpy(&c, text.data() + i, sizeof c);
    // Each comparison gives -1 where it holds: subtracting counts it.
    digits = _mm_sub_epi32(digits, _mm_and_si128(_mm_cmpgt_epi32(c, zero_char), _mm_cmplt_epi32(c, past_nine)));
    const __m128i at_bit = _mm_srli_epi32(_mm_cmpeq_epi32(c, at), 31);
    const __m128i colon_bit = _mm_slli_epi32(_mm_srli_epi32(_mm_cmpeq_epi32(c, colon), 31), 1);
    signs = _mm_or_si128(signs, _mm_or_si128(at_bit, colon_bit));
    ws = _mm_sub_epi32(ws, _mm_cmpeq_epi32(c, w));
  }
  alignas(16) std::int32_t lanes[3][4];
  _mm_store_si128(reinterpret_cast<__m128i*>(lanes[0]), digits);
  _mm_store_si128(reinterpret_cast<__m128i*>(lanes[1]), signs);
  _mm_store_si128(reinterpret_cast<__m128i*>(lanes[2]), ws);
  for (int k = 0; k < 4; ++k) {
    counts->digits += static_cast<unsigned>(lanes[0][k]);
    counts->at_signs += lanes[1][k] & 1;
    counts->colons += (lanes[1][k] >> 1) & 1;
    counts->ws += static_cast<unsigned>(lanes[2][k]);
  }
  return i;
}
#else
size_t AddBlocks(std::wstring_view, Counts*) { return 0; }
#endif

Possible PossibleLinks(std::wstring_view text) {
  constexpr unsigned kDigitsOfANumber = 7;
  constexpr unsigned kWsOfWww = 3;
  Counts counts;
  for (size_t i = AddBlocks(text, &counts); i < text.size(); ++i) counts.Add(text[i]);
  return {counts.digits >= kDigitsOfANumber, counts.at_signs > 0,
          counts.colons > 0 || counts.ws >= kWsOfWww};
}

}  // namespace

void FillTaskLinks(Task& task, const char* ansi_notes) {
  const wchar_t* subject = task.subject.c_str();
  const Possible in_subject = PossibleLinks(task.subject);
  task.phone_number.clear();
  if (in_subject.number) task.phone_number = FindPhoneNumber(subject);
  if (task.phone_number.empty() && ansi_notes) task.phone_number = FindPhoneNumber(ansi_notes);
  const bool web = (ansi_notes && FindWebAddress(ansi_notes, nullptr)) ||
                   (in_subject.web && FindWebAddress(subject, nullptr));
  const bool mail = (ansi_notes && FindEmail(ansi_notes, nullptr)) ||
                    (in_subject.mail && FindEmail(subject, nullptr));
  task.web_link_count = web ? 1 : 0;
  task.mail_link_count = mail ? 1 : 0;
}

}  // namespace velmo
