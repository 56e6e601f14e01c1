// ICU (CLDR) date and time patterns read as the platform's pictures: the
// pattern letters converted to picture letters, and the facts the platform's
// locale values report (separators, order, leading zeros, 12/24 hours).
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace velmo::locale {

// One element of an ICU pattern: a field (letter repeated `count` times) or,
// when `letter` is 0, literal text with its quoting removed.
struct PatternToken {
  wchar_t letter = 0;
  int count = 0;
  std::wstring text;
};

// Splits an ICU pattern ('...' quotes literal text, '' is a quote; every ASCII
// letter outside quotes is a field). An unterminated quote runs to the end.
// No-break spaces in literal text become plain blanks.
std::vector<PatternToken> ParseIcuPattern(std::wstring_view pattern);

// The platform picture for an ICU pattern: y -> yyyy (yy stays), M/L -> M..MMMM,
// E/c/e -> ddd/dddd, a/b/B -> tt, K -> h, k -> H; fields the pictures cannot
// show (time zones, quarters, fractions of seconds) are dropped with the
// literal text that joins them to the rest. Literal text holding ASCII
// letters or quotes is quoted.
std::wstring IcuPatternToPicture(std::wstring_view pattern);

// What a short date pattern says about the locale.
struct DatePatternFacts {
  std::wstring separator;  // the text between the first two fields
  int order = 0;           // 0 month-day-year, 1 day-month-year, 2 year-month-day
  bool four_digit_year = false;
  bool day_leading_zero = false;
  bool month_leading_zero = false;
};
DatePatternFacts AnalyseDatePattern(std::wstring_view pattern);

// What a time pattern says about the locale.
struct TimePatternFacts {
  std::wstring separator;  // the text between the hour and the minutes
  bool hours_24 = true;
  bool hour_leading_zero = false;
  bool marker_first = false;  // the AM/PM marker comes before the hour
};
TimePatternFacts AnalyseTimePattern(std::wstring_view pattern);

}  // namespace velmo::locale
