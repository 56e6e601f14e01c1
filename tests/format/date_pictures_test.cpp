#include "format/date_pictures.h"

#include <gtest/gtest.h>

#include <vector>

#include "format/current_pictures.h"
#include "format/date_text.h"
#include "platform/locale.h"
#include "platform/oletime.h"
#include "platform/wstr.h"

namespace velmo::format {
namespace {

using locale::ScopedLocale;

TEST(LocaleFlags, BothFormsOfEachValue) {
  struct Case { const wchar_t* text; bool off; bool day_first; } cases[] = {
      {L"0", true, false}, {L"48", true, false}, {L"1", false, true}, {L"49", false, true},
      {L"2", false, false}, {L"50", false, false}, {L"", false, false}, {L"00", false, false},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(IsFlagOff(c.text), c.off) << ToUtf8(c.text);
    EXPECT_EQ(IsDayFirstOrder(c.text), c.day_first) << ToUtf8(c.text);
  }
}

// Every picture in declaration order, so that a mismatch names the field by place.
std::vector<std::wstring> Fields(const DatePictures& p) {
  return {p.short_date, p.short_date_long_year, p.day_month_padded, p.day_month_unpadded,
          p.day_month_locale, p.time, p.weekday_date};
}

struct DerivationCase {
  const char* name;
  LocaleDateValues values;
  ScreenTraits screen;
  DatePictures expected;
};

// Values in the order short date, century, date order, date separator, day,
// month and hour leading zeros, time format, time separator, time picture.
const DerivationCase kDerivationCases[] = {
    {"month-first, short enough to stay",
     {L"M/d/yy", L"0", L"0", L"/", L"0", L"0", L"0", L"0", L":", L"h:mm:ss tt"}, {96, false},
     {L"M/d/yy", L"M/d/yyyy", L"MM/dd", L"M/d", L"M/d", L"h:mm tt", L"ddd M/d/yy"}},
    {"year-first four-digit year, compact",
     {L"yyyy-MM-dd", L"1", L"2", L"-", L"1", L"1", L"1", L"1", L":", L"HH:mm:ss"}, {96, false},
     {L"yy-MM-dd", L"yyyy-MM-dd", L"MM-dd", L"M-d", L"MM-dd", L"HH:mm", L"ddd yyyy-MM-dd"}},
    {"year-first on a dense screen keeps the locale's",
     {L"yyyy-MM-dd", L"1", L"2", L"-", L"1", L"1", L"1", L"1", L":", L"HH:mm:ss"}, {131, false},
     {L"yyyy-MM-dd", L"yyyy-MM-dd", L"MM-dd", L"M-d", L"MM-dd", L"HH:mm", L"ddd yyyy-MM-dd"}},
    {"day-first with dots",
     {L"dd.MM.yy", L"0", L"1", L".", L"1", L"1", L"1", L"1", L":", L"HH:mm:ss"}, {96, false},
     {L"dd.MM.yy", L"dd.MM.yyyy", L"dd.MM", L"d.M", L"dd.MM", L"HH:mm", L"ddd dd.MM.yy"}},
    {"day-first four-digit year on 96 dpi",
     {L"dd/MM/yyyy", L"1", L"1", L"/", L"1", L"1", L"1", L"1", L":", L"HH:mm:ss"}, {96, false},
     {L"dd/MM/yy", L"dd/MM/yyyy", L"dd/MM", L"d/M", L"dd/MM", L"HH:mm", L"ddd dd/MM/yyyy"}},
    {"just below the dense screen",
     {L"dd/MM/yyyy", L"1", L"1", L"/", L"1", L"1", L"1", L"1", L":", L"HH:mm:ss"}, {130, false},
     {L"dd/MM/yy", L"dd/MM/yyyy", L"dd/MM", L"d/M", L"dd/MM", L"HH:mm", L"ddd dd/MM/yyyy"}},
    {"month-first four-digit year",
     {L"M/d/yyyy", L"1", L"0", L"/", L"0", L"0", L"0", L"0", L":", L"h:mm:ss tt"}, {96, false},
     {L"M/d/yy", L"M/d/yyyy", L"MM/dd", L"M/d", L"M/d", L"h:mm tt", L"ddd M/d/yyyy"}},
    {"long two-digit-year picture, year-first, marker first",
     {L"yy. M. d.", L"0", L"2", L". ", L"0", L"0", L"0", L"0", L":", L"tt h:mm:ss"}, {96, false},
     {L"yy. M. d", L"yyyy. M. d.", L"MM. dd", L"M. d", L"M. d", L"tt h:mm", L"ddd yy. M. d."}},
    {"12-hour with the marker first and leading zero",
     {L"yyyy/M/d", L"1", L"2", L"/", L"0", L"0", L"1", L"0", L":", L"tt hh:mm"}, {96, false},
     {L"yy/M/d", L"yyyy/M/d", L"MM/dd", L"M/d", L"M/d", L"tt hh:mm", L"ddd yyyy/M/d"}},
    {"the character-code forms 48 and 49",
     {L"d.M.yy", L"48", L"49", L".", L"48", L"48", L"48", L"48", L".", L"h.mm.ss tt"},
     {96, false},
     {L"d.M.yy", L"d.M.yyyy", L"dd.MM", L"d.M", L"d.M", L"h.mm tt", L"ddd d.M.yy"}},
    {"compact month token follows the picture, day token the flag",
     {L"d/M/yyyy", L"1", L"1", L"/", L"1", L"0", L"1", L"1", L":", L"HH:mm:ss"}, {96, false},
     {L"dd/M/yy", L"d/M/yyyy", L"dd/MM", L"d/M", L"dd/M", L"HH:mm", L"ddd d/M/yyyy"}},
    {"weekday already in the short date",
     {L"ddd dd/MM/yy", L"0", L"1", L"/", L"1", L"1", L"1", L"1", L":", L"HH:mm:ss"},
     {96, false},
     {L"dd/MM/yy", L"ddd dd/MM/yyyy", L"dd/MM", L"d/M", L"dd/MM", L"HH:mm", L"ddd dd/MM/yy"}},
    {"PocketPC platform type",
     {L"dd/MM/yyyy", L"1", L"1", L"/", L"1", L"1", L"1", L"1", L":", L"HH:mm:ss"}, {192, true},
     {L"dd/MM/yyyy", L"dd/MM/yyyy", L"dd/MM", L"d/M", L"dd/MM/yyyy", L"HH:mm", L"dddd dd/MM/yyyy"}},
};

TEST(DeriveDatePictures, Table) {
  for (const DerivationCase& c : kDerivationCases) {
    SCOPED_TRACE(c.name);
    const DatePictures p = DeriveDatePictures(c.values, c.screen);
    EXPECT_EQ(Fields(p), Fields(c.expected));
  }
}

TEST(DeriveDatePictures, NoPictureExceedsTheLimit) {
  LocaleDateValues v{L"", L"1", L"1", L"/", L"1", L"1", L"1", L"1", L":", L"HH:mm:ss"};
  v.short_date = L"dd/MM/yy '" + std::wstring(188, L'x') + L"'";
  ASSERT_EQ(v.short_date.size(), 199u);
  const DatePictures p = DeriveDatePictures(v, {192, false});
  EXPECT_EQ(p.weekday_date.size(), kMaxPictureLength);
  EXPECT_EQ(p.weekday_date.substr(0, 12), L"ddd dd/MM/yy");
  EXPECT_EQ(p.short_date_long_year.size(), kMaxPictureLength);
}

// The pictures of real locales, as ICU describes them, and a date shown in each.
TEST(DatePicturesOfRealLocales, DerivedAndShown) {
  struct Case { const char* locale; DatePictures expected; const wchar_t* weekday_date;
                const wchar_t* time; } cases[] = {
      {"en_US", {L"M/d/yy", L"M/d/yyyy", L"MM/dd", L"M/d", L"M/d", L"h:mm tt", L"ddd M/d/yy"},
       L"Thu 3/5/26", L"9:07 PM"},
      {"de_DE", {L"dd.MM.yy", L"dd.MM.yyyy", L"dd.MM", L"d.M", L"dd.MM", L"HH:mm", L"ddd dd.MM.yy"},
       L"Do 05.03.26", L"21:07"},
      {"fr_FR", {L"dd/MM/yy", L"dd/MM/yyyy", L"dd/MM", L"d/M", L"dd/MM", L"HH:mm", L"ddd dd/MM/yyyy"},
       L"jeu. 05/03/2026", L"21:07"},
      {"ja_JP", {L"yy/MM/dd", L"yyyy/MM/dd", L"MM/dd", L"M/d", L"MM/dd", L"H:mm", L"ddd yyyy/MM/dd"},
       L"木 2026/03/05", L"21:07"},
      {"en_GB", {L"dd/MM/yy", L"dd/MM/yyyy", L"dd/MM", L"d/M", L"dd/MM", L"HH:mm", L"ddd dd/MM/yyyy"},
       L"Thu 05/03/2026", L"21:07"},
      {"ko_KR", {L"yy. M. d", L"yyyy. M. d.", L"MM. dd", L"M. d", L"M. d", L"tt h:mm", L"ddd yy. M. d."},
       L"목 26. 3. 5.", L"오후 9:07"},
  };
  const DATE when = MakeDate(2026, 3, 5, 21, 7, 0);
  for (const Case& c : cases) {
    SCOPED_TRACE(c.locale);
    ScopedLocale locale(c.locale);
    LocaleDateValues values;
    ASSERT_EQ(ReadLocaleDateValues(GetUserDefaultLCID(), &values), S_OK);
    const DatePictures p = DeriveDatePictures(values, ScreenTraits{});
    EXPECT_EQ(Fields(p), Fields(c.expected));
    EXPECT_EQ(DateText(when, p.weekday_date), c.weekday_date);
    EXPECT_EQ(TimeText(when, p.time), c.time);
  }
}

TEST(ReadLocaleDateValues, UnknownLocaleIdentifierFails) {
  LocaleDateValues values;
  values.short_date = L"stale";
  EXPECT_EQ(ReadLocaleDateValues(0x7FFF, &values), HRESULT_FROM_WIN32(ERROR_INVALID_PARAMETER));
  EXPECT_EQ(values.short_date, L"");
  EXPECT_EQ(ReadLocaleDateValues(LOCALE_USER_DEFAULT, nullptr), E_POINTER);
}

// The program-wide pictures follow the locale and the screen when re-derived.
TEST(CurrentPictures, RederivedOnRequest) {
  const ScreenTraits saved = CurrentScreenTraits();
  {
    ScopedLocale locale("fr_FR");
    ASSERT_EQ(RefreshPictures(), S_OK);
    EXPECT_EQ(Pictures().short_date, L"dd/MM/yy");
    SetScreenTraits({192, false});
    EXPECT_EQ(Pictures().short_date, L"dd/MM/yy");  // not until asked
    ASSERT_EQ(RefreshPictures(), S_OK);
    EXPECT_EQ(Pictures().short_date, L"dd/MM/yyyy");
    ScopedLocale us("en_US");
    ASSERT_EQ(RefreshPictures(), S_OK);
    EXPECT_EQ(Pictures().time, L"h:mm tt");
  }
  SetScreenTraits(saved);
  EXPECT_EQ(RefreshPictures(), S_OK);
}

}  // namespace
}  // namespace velmo::format
