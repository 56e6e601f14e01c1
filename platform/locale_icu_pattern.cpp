#include "platform/locale_icu_pattern.h"

#include <algorithm>

namespace velmo::locale {
namespace {

bool IsAsciiLetter(wchar_t c) { return (c >= L'a' && c <= L'z') || (c >= L'A' && c <= L'Z'); }

// ICU field letter -> picture by repeat count (1, 2, 3, 4, 5 and more).
// Letters absent from the table, and null entries, have no picture form.
struct FieldMapping {
  wchar_t icu;
  const wchar_t* picture[5];
};
constexpr FieldMapping kFieldMappings[] = {
    {L'G', {L"gg", L"gg", L"gg", L"gg", L"gg"}},
    {L'y', {L"yyyy", L"yy", L"yyyy", L"yyyy", L"yyyy"}},
    {L'Y', {L"yyyy", L"yy", L"yyyy", L"yyyy", L"yyyy"}},
    {L'u', {L"yyyy", L"yyyy", L"yyyy", L"yyyy", L"yyyy"}},
    {L'r', {L"yyyy", L"yyyy", L"yyyy", L"yyyy", L"yyyy"}},
    {L'M', {L"M", L"MM", L"MMM", L"MMMM", L"MMM"}},
    {L'L', {L"M", L"MM", L"MMM", L"MMMM", L"MMM"}},
    {L'd', {L"d", L"dd", L"dd", L"dd", L"dd"}},
    {L'E', {L"ddd", L"ddd", L"ddd", L"dddd", L"ddd"}},
    {L'c', {L"ddd", L"ddd", L"ddd", L"dddd", L"ddd"}},
    {L'e', {L"ddd", L"ddd", L"ddd", L"dddd", L"ddd"}},
    {L'a', {L"tt", L"tt", L"tt", L"tt", L"tt"}},
    {L'b', {L"tt", L"tt", L"tt", L"tt", L"tt"}},
    {L'B', {L"tt", L"tt", L"tt", L"tt", L"tt"}},
    {L'h', {L"h", L"hh", L"hh", L"hh", L"hh"}},
    {L'K', {L"h", L"hh", L"hh", L"hh", L"hh"}},
    {L'H', {L"H", L"HH", L"HH", L"HH", L"HH"}},
    {L'k', {L"H", L"HH", L"HH", L"HH", L"HH"}},
    {L'm', {L"m", L"mm", L"mm", L"mm", L"mm"}},
    {L's', {L"s", L"ss", L"ss", L"ss", L"ss"}},
};

const wchar_t* PictureFor(const PatternToken& field) {
  for (const FieldMapping& m : kFieldMappings) {
    if (m.icu == field.letter) return m.picture[std::min(field.count, 5) - 1];
  }
  return nullptr;
}

bool IsYear(wchar_t c) { return c == L'y' || c == L'Y' || c == L'u' || c == L'r'; }
bool IsMonth(wchar_t c) { return c == L'M' || c == L'L'; }
bool IsHour(wchar_t c) { return c == L'h' || c == L'H' || c == L'K' || c == L'k'; }
bool IsMarker(wchar_t c) { return c == L'a' || c == L'b' || c == L'B'; }

// CLDR writes no-break spaces (U+00A0, U+202F) where the platform's pictures
// have blanks; on a terminal, which never wraps a date, a blank is what users
// expect to see and to type.
wchar_t PlainSpace(wchar_t c) { return c == L'\u00A0' || c == L'\u202F' ? L' ' : c; }

void AppendLiteral(std::vector<PatternToken>& tokens, wchar_t c) {
  if (tokens.empty() || tokens.back().letter != 0) tokens.push_back({});
  tokens.back().text += PlainSpace(c);
}

bool NeedsQuotes(wchar_t c) { return IsAsciiLetter(c) || c == L'\''; }

// Literal text as a picture shows it: runs of ASCII letters (which a picture
// would read as elements) are quoted; a quote is written ''.
std::wstring QuoteLiteral(const std::wstring& text) {
  std::wstring out;
  for (size_t i = 0; i < text.size();) {
    if (!NeedsQuotes(text[i])) {
      out += text[i++];
      continue;
    }
    size_t end = i;
    while (end < text.size() && NeedsQuotes(text[end])) ++end;
    std::wstring run;
    bool letters = false;
    for (; i < end; ++i) {
      run += text[i] == L'\'' ? L"''" : std::wstring(1, text[i]);
      letters |= IsAsciiLetter(text[i]);
    }
    out += letters ? L"'" + run + L"'" : run;
  }
  return out;
}

// The literal text between the first field matching `first` and the next field.
template <typename Pred>
std::wstring TextAfterField(const std::vector<PatternToken>& tokens, Pred first) {
  std::wstring text;
  bool seen = false;
  for (const PatternToken& t : tokens) {
    if (t.letter == 0) {
      if (seen) text += t.text;
    } else if (seen) {
      return text;
    } else if (first(t.letter)) {
      seen = true;
    }
  }
  return std::wstring();
}

}  // namespace

std::vector<PatternToken> ParseIcuPattern(std::wstring_view pattern) {
  std::vector<PatternToken> tokens;
  for (size_t i = 0; i < pattern.size(); ++i) {
    const wchar_t c = pattern[i];
    if (c == L'\'') {
      if (i + 1 < pattern.size() && pattern[i + 1] == L'\'') {
        AppendLiteral(tokens, L'\'');
        ++i;
        continue;
      }
      // Quoted text up to the closing quote; '' inside is a quote.
      for (++i; i < pattern.size(); ++i) {
        if (pattern[i] != L'\'') {
          AppendLiteral(tokens, pattern[i]);
        } else if (i + 1 < pattern.size() && pattern[i + 1] == L'\'') {
          AppendLiteral(tokens, L'\'');
          ++i;
        } else {
          break;
        }
      }
      continue;
    }
    if (!IsAsciiLetter(c)) {
      AppendLiteral(tokens, c);
      continue;
    }
    int count = 1;
    while (i + 1 < pattern.size() && pattern[i + 1] == c) {
      ++count;
      ++i;
    }
    tokens.push_back({c, count, {}});
  }
  return tokens;
}

std::wstring IcuPatternToPicture(std::wstring_view pattern) {
  std::vector<PatternToken> tokens = ParseIcuPattern(pattern);
  // Drop the fields without a picture form with the literal text that joins
  // them to the rest ("h:mm:ss a zzzz" -> "h:mm:ss a", "HH:mm:ss.SSS" -> "HH:mm:ss").
  for (size_t i = 0; i < tokens.size();) {
    if (tokens[i].letter == 0 || PictureFor(tokens[i])) {
      ++i;
      continue;
    }
    size_t first = i, last = i + 1;
    if (i >= 2 && tokens[i - 1].letter == 0) {
      first = i - 1;
    } else if (i == 0 || (i == 1 && tokens[0].letter == 0)) {
      if (last < tokens.size() && tokens[last].letter == 0) ++last;
    }
    tokens.erase(tokens.begin() + static_cast<std::ptrdiff_t>(first),
                 tokens.begin() + static_cast<std::ptrdiff_t>(last));
    i = first;
  }
  std::wstring picture;
  for (size_t i = 0; i < tokens.size(); ++i) {
    if (tokens[i].letter != 0) {
      picture += PictureFor(tokens[i]);
      continue;
    }
    // Neighbouring literals (left when a field between them was dropped) are one.
    std::wstring text = tokens[i].text;
    while (i + 1 < tokens.size() && tokens[i + 1].letter == 0) text += tokens[++i].text;
    picture += QuoteLiteral(text);
  }
  return picture;
}

DatePatternFacts AnalyseDatePattern(std::wstring_view pattern) {
  const std::vector<PatternToken> tokens = ParseIcuPattern(pattern);
  DatePatternFacts facts;
  int year_at = -1, month_at = -1, day_at = -1;
  for (size_t i = 0; i < tokens.size(); ++i) {
    const PatternToken& t = tokens[i];
    const int at = static_cast<int>(i);
    if (IsYear(t.letter) && year_at < 0) {
      year_at = at;
      facts.four_digit_year = t.count != 2;
    } else if (IsMonth(t.letter) && month_at < 0) {
      month_at = at;
      facts.month_leading_zero = t.count >= 2;
    } else if (t.letter == L'd' && day_at < 0) {
      day_at = at;
      facts.day_leading_zero = t.count >= 2;
    }
  }
  const auto before = [](int a, int b) { return a >= 0 && (b < 0 || a < b); };
  if (before(year_at, month_at) && before(year_at, day_at)) {
    facts.order = 2;
  } else if (before(day_at, month_at)) {
    facts.order = 1;
  } else {
    facts.order = 0;
  }
  facts.separator = TextAfterField(tokens, [](wchar_t c) {
    return IsYear(c) || IsMonth(c) || c == L'd';
  });
  return facts;
}

TimePatternFacts AnalyseTimePattern(std::wstring_view pattern) {
  const std::vector<PatternToken> tokens = ParseIcuPattern(pattern);
  TimePatternFacts facts;
  bool hour_seen = false;
  for (const PatternToken& t : tokens) {
    if (IsHour(t.letter) && !hour_seen) {
      hour_seen = true;
      facts.hours_24 = t.letter == L'H' || t.letter == L'k';
      facts.hour_leading_zero = t.count >= 2;
    } else if (IsMarker(t.letter) && !hour_seen) {
      facts.marker_first = true;
    }
  }
  facts.separator = TextAfterField(tokens, IsHour);
  return facts;
}

}  // namespace velmo::locale
