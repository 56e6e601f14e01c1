#include <gtest/gtest.h>

#include "platform/locale_icu_pattern.h"
#include "platform/wstr.h"

namespace velmo::locale {
namespace {

TEST(IcuPatternToPicture, ConvertsLettersAndKeepsLiterals) {
  struct Case { const wchar_t* icu; const wchar_t* picture; } cases[] = {
      {L"M/d/yy", L"M/d/yy"},
      {L"dd.MM.y", L"dd.MM.yyyy"},
      {L"y/MM/dd", L"yyyy/MM/dd"},
      {L"yyy-MM-dd", L"yyyy-MM-dd"},
      {L"yy. M. d.", L"yy. M. d."},
      {L"EEEE, MMMM d, y", L"dddd, MMMM d, yyyy"},
      {L"cccc d. MMMM y", L"dddd d. MMMM yyyy"},
      {L"E d LLL", L"ddd d MMM"},
      {L"a h:mm", L"tt h:mm"},
      {L"Bh:mm:ss", L"tth:mm:ss"},
      {L"K:mm a", L"h:mm tt"},
      {L"kk:mm", L"HH:mm"},
      {L"d 'de' MMM 'de' y", L"d 'de' MMM 'de' yyyy"},
      {L"d.MM.yy 'г'.", L"d.MM.yy г."},
      {L"y年M月d日", L"yyyy年M月d日"},
      {L"h 'o''clock' a", L"h 'o''clock' tt"},
      {L"H''mm", L"H''mm"},
      {L"h:mm:ss a zzzz", L"h:mm:ss tt"},
      {L"HH:mm:ss.SSS", L"HH:mm:ss"},
      {L"zzzz HH:mm", L"HH:mm"},
      {L"G y", L"gg yyyy"},
      {L"'unterminated", L"'unterminated'"},
  };
  for (const Case& c : cases)
    EXPECT_EQ(IcuPatternToPicture(c.icu), c.picture) << ToUtf8(c.icu);
}

TEST(AnalyseDatePattern, OrderSeparatorAndZeros) {
  struct Case { const wchar_t* icu; int order; const wchar_t* separator;
                bool four_digit_year, day_zero, month_zero; } cases[] = {
      {L"M/d/yy", 0, L"/", false, false, false},       {L"dd.MM.yy", 1, L".", false, true, true},
      {L"dd/MM/y", 1, L"/", true, true, true},         {L"y/MM/dd", 2, L"/", true, true, true},
      {L"yy. M. d.", 2, L". ", false, false, false},   {L"d.MM.yy 'г'.", 1, L".", false, false, true},
      {L"y-MM-dd", 2, L"-", true, true, true},         {L"MMM d, y", 0, L" ", true, false, true},
  };
  for (const Case& c : cases) {
    const DatePatternFacts facts = AnalyseDatePattern(c.icu);
    EXPECT_EQ(facts.order, c.order) << ToUtf8(c.icu);
    EXPECT_EQ(facts.separator, c.separator) << ToUtf8(c.icu);
    EXPECT_EQ(facts.four_digit_year, c.four_digit_year) << ToUtf8(c.icu);
    EXPECT_EQ(facts.day_leading_zero, c.day_zero) << ToUtf8(c.icu);
    EXPECT_EQ(facts.month_leading_zero, c.month_zero) << ToUtf8(c.icu);
  }
}

TEST(AnalyseTimePattern, HoursSeparatorAndMarker) {
  struct Case { const wchar_t* icu; const wchar_t* separator; bool hours_24, hour_zero,
                marker_first; } cases[] = {
      {L"h:mm a", L":", false, false, false},     {L"HH:mm", L":", true, true, false},
      {L"H.mm", L".", true, false, false},        {L"a h:mm", L":", false, false, true},
      {L"Bh:mm", L":", false, false, true},       {L"KK:mm a", L":", false, true, false},
      {L"H 'h' mm", L" h ", true, false, false},
  };
  for (const Case& c : cases) {
    const TimePatternFacts facts = AnalyseTimePattern(c.icu);
    EXPECT_EQ(facts.separator, c.separator) << ToUtf8(c.icu);
    EXPECT_EQ(facts.hours_24, c.hours_24) << ToUtf8(c.icu);
    EXPECT_EQ(facts.hour_leading_zero, c.hour_zero) << ToUtf8(c.icu);
    EXPECT_EQ(facts.marker_first, c.marker_first) << ToUtf8(c.icu);
  }
}

}  // namespace
}  // namespace velmo::locale
