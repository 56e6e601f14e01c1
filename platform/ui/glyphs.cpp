// The glyph table: each glyph's UTF-8 form and its ASCII stand-in.
#include "platform/ui/glyphs.h"

#include <unicode/normalizer2.h>
#include <unicode/unistr.h>

#include <algorithm>
#include <iterator>
#include <unordered_map>

namespace velmo::ui {
namespace {

// A letter's base letter when its decomposition starts with ASCII (é -> e, Å -> A).
char BaseLetter(wchar_t ch) {
  UErrorCode status = U_ZERO_ERROR;
  const icu::Normalizer2* nfkd = icu::Normalizer2::getNFKDInstance(status);
  if (U_FAILURE(status)) return '?';
  icu::UnicodeString decomposed;
  if (!nfkd->getDecomposition(static_cast<UChar32>(ch), decomposed) || decomposed.isEmpty())
    return '?';
  UChar32 first = decomposed.char32At(0);
  return first >= 0x20 && first < 0x7F ? static_cast<char>(first) : '?';
}

}  // namespace

char AsciiStandIn(wchar_t ch) {
  if (ch >= 0 && ch < 0x80) return static_cast<char>(ch);
  auto row = std::find_if(std::begin(kGlyphs), std::end(kGlyphs),
                          [ch](const GlyphRow& g) { return g.forms.utf8 == ch; });
  if (row != std::end(kGlyphs)) return row->forms.ascii;
  // Each text character is looked up once; a screen redraws the same few.
  static std::unordered_map<wchar_t, char> letters;
  auto [it, added] = letters.try_emplace(ch, '?');
  if (added) it->second = BaseLetter(ch);
  return it->second;
}

}  // namespace velmo::ui
