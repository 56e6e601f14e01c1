#include "platform/locale.h"

#include <gtest/gtest.h>
#include <stdlib.h>
#include <unicode/locid.h>
#include <unicode/smpdtfmt.h>

#include <iterator>
#include <memory>
#include <optional>

#include "platform/clock.h"
#include "platform/lasterror.h"
#include "platform/oletime.h"
#include "platform/wstr.h"

namespace velmo::locale {
namespace {

std::wstring Info(LCTYPE type, LCID lcid = LOCALE_USER_DEFAULT) {
  wchar_t buffer[200] = {};
  return GetLocaleInfoW(lcid, type, buffer, 200) > 0 ? buffer : L"<failed>";
}

std::wstring Formatted(decltype(&GetDateFormatW) format, const SYSTEMTIME& t,
                       const wchar_t* picture, DWORD flags) {
  wchar_t buffer[200] = {};
  return format(LOCALE_USER_DEFAULT, flags, &t, picture, buffer, 200) > 0 ? buffer : L"<failed>";
}
std::wstring Date(const SYSTEMTIME& t, const wchar_t* picture, DWORD flags = 0) {
  return Formatted(GetDateFormatW, t, picture, flags);
}
std::wstring Time(const SYSTEMTIME& t, const wchar_t* picture, DWORD flags = 0) {
  return Formatted(GetTimeFormatW, t, picture, flags);
}

SYSTEMTIME At(int y, int mo, int d, int h = 0, int mi = 0, int s = 0) {
  return SYSTEMTIME{static_cast<WORD>(y), static_cast<WORD>(mo), 0, static_cast<WORD>(d),
                    static_cast<WORD>(h), static_cast<WORD>(mi), static_cast<WORD>(s), 0};
}

// The values the program derives its pictures from, for locales of each kind:
// month-first, day-first with leading zeros, four-digit years, year-first,
// 12-hour with the marker first.
TEST(LocaleInfo, ValuesOfRealLocales) {
  // Each locale's values in the order of kTypes, then its identifier.
  constexpr LCTYPE kTypes[] = {LOCALE_SSHORTDATE, LOCALE_ICENTURY,  LOCALE_IDATE, LOCALE_SDATE,
                               LOCALE_IDAYLZERO,  LOCALE_IMONLZERO, LOCALE_ITLZERO, LOCALE_ITIME,
                               LOCALE_STIME,      LOCALE_STIMEFORMAT};
  struct Case { const char* locale; const wchar_t* values[10]; LCID lcid; } cases[] = {
      {"en_US", {L"M/d/yy", L"0", L"0", L"/", L"0", L"0", L"0", L"0", L":", L"h:mm:ss tt"}, 0x409},
      {"de_DE", {L"dd.MM.yy", L"0", L"1", L".", L"1", L"1", L"1", L"1", L":", L"HH:mm:ss"}, 0x407},
      {"fr_FR", {L"dd/MM/yyyy", L"1", L"1", L"/", L"1", L"1", L"1", L"1", L":", L"HH:mm:ss"}, 0x40C},
      {"ja_JP", {L"yyyy/MM/dd", L"1", L"2", L"/", L"1", L"1", L"0", L"1", L":", L"H:mm:ss"}, 0x411},
      {"en_GB", {L"dd/MM/yyyy", L"1", L"1", L"/", L"1", L"1", L"1", L"1", L":", L"HH:mm:ss"}, 0x809},
      {"ko_KR", {L"yy. M. d.", L"0", L"2", L". ", L"0", L"0", L"0", L"0", L":", L"tt h:mm:ss"}, 0x412},
      {"fi_FI", {L"d.M.yyyy", L"1", L"1", L".", L"0", L"0", L"0", L"1", L".", L"H.mm.ss"}, 0x40B},
  };
  for (const Case& c : cases) {
    ScopedLocale locale(c.locale);
    SCOPED_TRACE(c.locale);
    EXPECT_EQ(GetUserDefaultLCID(), c.lcid);
    for (size_t i = 0; i < std::size(kTypes); ++i)
      EXPECT_EQ(Info(kTypes[i]), c.values[i]) << "type " << kTypes[i];
  }
}

TEST(LocaleInfo, NamesMarkersAndFirstDay) {
  struct Case { const char* locale; LCTYPE type; const wchar_t* value; } const cases[] = {
      {"de_DE", LOCALE_SDAYNAME1, L"Montag"},          {"de_DE", LOCALE_SDAYNAME1 + 6, L"Sonntag"},
      {"de_DE", LOCALE_SMONTHNAME1 + 2, L"März"},      {"de_DE", LOCALE_SABBREVMONTHNAME1 + 11, L"Dez"},
      {"de_DE", LOCALE_IFIRSTDAYOFWEEK, L"0"},         {"de_DE", LOCALE_SNAME, L"de-DE"},
      {"en_US", LOCALE_S1159, L"AM"},                  {"en_US", LOCALE_S2359, L"PM"},
      {"en_US", LOCALE_IFIRSTDAYOFWEEK, L"6"},         {"en_US", LOCALE_ITIMEMARKPOSN, L"0"},
      {"ko_KR", LOCALE_ITIMEMARKPOSN, L"1"},           {"ko_KR", LOCALE_S1159, L"오전"},
  };
  for (const Case& c : cases) {
    ScopedLocale locale(c.locale);
    EXPECT_EQ(Info(c.type), c.value) << c.locale << " type " << c.type;
  }
  // Another locale by its identifier, whatever the program's locale is.
  ScopedLocale us("en_US");
  EXPECT_EQ(Info(LOCALE_SSHORTDATE, 0x407), L"dd.MM.yy");
}

TEST(LocaleInfo, BufferSizesAndErrors) {
  ScopedLocale locale("en_US");
  EXPECT_EQ(GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SSHORTDATE, nullptr, 0), 7);
  wchar_t small[6];
  SetLastError(0);
  EXPECT_EQ(GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SSHORTDATE, small, 6), 0);
  EXPECT_EQ(GetLastError(), ERROR_INSUFFICIENT_BUFFER);
  wchar_t exact[7];
  EXPECT_EQ(GetLocaleInfoW(LOCALE_USER_DEFAULT | 0, LOCALE_SSHORTDATE | LOCALE_NOUSEROVERRIDE,
                           exact, 7), 7);
  EXPECT_STREQ(exact, L"M/d/yy");
  EXPECT_EQ(GetLocaleInfoW(LOCALE_USER_DEFAULT, 9999, exact, 7), 0);
  EXPECT_EQ(GetLastError(), ERROR_INVALID_FLAGS);
  EXPECT_EQ(GetLocaleInfoW(0x7FFF, LOCALE_SSHORTDATE, exact, 7), 0);
  EXPECT_EQ(GetLastError(), ERROR_INVALID_PARAMETER);
  EXPECT_EQ(GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SSHORTDATE, nullptr, 7), 0);
  EXPECT_EQ(GetLastError(), ERROR_INVALID_PARAMETER);
}

TEST(DateFormat, PictureElements) {
  ScopedLocale locale("en_US");
  const SYSTEMTIME thursday = At(2026, 3, 5, 21, 7, 9);
  const SYSTEMTIME year_2009 = At(2009, 11, 22);
  struct Case { const SYSTEMTIME* t; const wchar_t* picture; const wchar_t* text; } cases[] = {
      {&thursday, L"d dd ddd dddd", L"5 05 Thu Thursday"},
      {&thursday, L"M MM MMM MMMM", L"3 03 Mar March"},
      {&year_2009, L"y yy yyy yyyy", L"9 09 2009 2009"},
      {&year_2009, L"dd/MM/yyyy gg", L"22/11/2009 AD"},
      {&thursday, L"'Week of' d", L"Week of 5"},
      {&thursday, L"d 'o''clock' ''", L"5 o'clock '"},
      {&thursday, L"d 'open to the end", L"5 open to the end"},
      {&thursday, L"hh:mm tt d", L"hh:mm tt 5"},  // time elements are not a date's
      {&thursday, L"", L""},
  };
  for (const Case& c : cases) EXPECT_EQ(Date(*c.t, c.picture), c.text) << ToUtf8(c.picture);
}

TEST(DateFormat, LocaleStylesAndMonthForms) {
  const SYSTEMTIME t = At(2026, 3, 5);
  ScopedLocale locale("ru_RU");
  EXPECT_EQ(Date(t, L"d MMMM"), L"5 марта");
  EXPECT_EQ(Date(t, L"MMMM yyyy"), L"март 2026");
  EXPECT_EQ(Date(t, nullptr, DATE_SHORTDATE), L"05.03.2026");
  EXPECT_EQ(Date(t, nullptr), L"05.03.2026");
  EXPECT_EQ(Date(t, nullptr, DATE_LONGDATE), L"четверг, 5 марта 2026 г.");
  EXPECT_EQ(Date(t, nullptr, DATE_YEARMONTH), L"март 2026 г.");
}

TEST(DateFormat, FlagsDatesAndBuffers) {
  ScopedLocale locale("en_US");
  const SYSTEMTIME t = At(2026, 3, 5);
  wchar_t buffer[20];
  SetLastError(0);
  EXPECT_EQ(GetDateFormatW(0, DATE_SHORTDATE, &t, L"d", buffer, 20), 0);
  EXPECT_EQ(GetLastError(), ERROR_INVALID_FLAGS);
  EXPECT_EQ(GetDateFormatW(0, DATE_SHORTDATE | DATE_LONGDATE, &t, nullptr, buffer, 20), 0);
  EXPECT_EQ(GetLastError(), ERROR_INVALID_FLAGS);
  for (const SYSTEMTIME& bad : {At(2026, 2, 29), At(2026, 13, 1), At(2026, 4, 31), At(99, 1, 1)}) {
    SetLastError(0);
    EXPECT_EQ(GetDateFormatW(0, 0, &bad, L"d", buffer, 20), 0) << bad.wMonth << "/" << bad.wDay;
    EXPECT_EQ(GetLastError(), ERROR_INVALID_PARAMETER);
  }
  EXPECT_EQ(GetDateFormatW(0, 0, &t, L"dddd", nullptr, 0), 9);
  EXPECT_EQ(GetDateFormatW(0, 0, &t, L"dddd", buffer, 8), 0);
  EXPECT_EQ(GetLastError(), ERROR_INSUFFICIENT_BUFFER);
  EXPECT_EQ(GetDateFormatW(0, 0, &t, L"dddd", buffer, 9), 9);
  EXPECT_STREQ(buffer, L"Thursday");
  // Without a time the clock's date is shown; the weekday field of a time is ignored.
  ScopedClock clock(MakeDate(2024, 2, 29, 12));
  EXPECT_EQ(GetDateFormatW(0, 0, nullptr, L"ddd d/M/yyyy", buffer, 20), 14);
  EXPECT_STREQ(buffer, L"Thu 29/2/2024");
  SYSTEMTIME wrong_weekday = At(2026, 3, 5);
  wrong_weekday.wDayOfWeek = 1;
  EXPECT_EQ(Date(wrong_weekday, L"ddd"), L"Thu");
}

TEST(TimeFormat, PictureElementsAndFlags) {
  ScopedLocale locale("en_US");
  const SYSTEMTIME night = At(2026, 3, 5, 0, 5, 9);
  const SYSTEMTIME afternoon = At(2026, 3, 5, 13, 45, 30);
  struct Case { const SYSTEMTIME* t; const wchar_t* picture; DWORD flags; const wchar_t* text; }
  cases[] = {
      {&night, L"h hh H HH m mm s ss t tt", 0, L"12 12 0 00 5 05 9 09 A AM"},
      {&afternoon, L"h hh H HH m mm s ss t tt", 0, L"1 01 13 13 45 45 30 30 P PM"},
      {&afternoon, L"h:mm:ss tt", TIME_NOSECONDS, L"1:45 PM"},
      {&afternoon, L"h:mm:ss tt", TIME_NOMINUTESORSECONDS, L"1 PM"},
      {&afternoon, L"hh:mm tt", TIME_NOTIMEMARKER, L"01:45"},
      {&afternoon, L"tt hh:mm", TIME_NOTIMEMARKER, L"01:45"},
      {&afternoon, L"hh:mm", TIME_FORCE24HOURFORMAT, L"13:45"},
      {&afternoon, nullptr, 0, L"1:45:30 PM"},
      {&afternoon, nullptr, TIME_NOSECONDS, L"1:45 PM"},
      {&afternoon, L"'at' H 'h' dd", 0, L"at 13 h dd"},  // date elements are not a time's
  };
  for (const Case& c : cases)
    EXPECT_EQ(Time(*c.t, c.picture, c.flags), c.text) << (c.picture ? ToUtf8(c.picture) : "null");
  ScopedLocale korean("ko_KR");
  EXPECT_EQ(Time(afternoon, nullptr), L"오후 1:45:30");
  EXPECT_EQ(Time(afternoon, nullptr, TIME_NOTIMEMARKER), L"1:45:30");
}

TEST(TimeFormat, RefusesBadTimesAndFlags) {
  wchar_t buffer[20];
  struct Case { SYSTEMTIME t; DWORD flags; int size; DWORD error; } const cases[] = {
      {At(2026, 3, 5, 24, 0, 0), 0, 20, ERROR_INVALID_PARAMETER},
      {At(2026, 3, 5, 10, 60, 0), 0, 20, ERROR_INVALID_PARAMETER},
      {At(2026, 3, 5, 10, 0, 0), DATE_YEARMONTH << 4, 20, ERROR_INVALID_FLAGS},
      {At(2026, 3, 5, 10, 0, 0), 0, -1, ERROR_INVALID_PARAMETER},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(GetTimeFormatW(0, c.flags, &c.t, L"HH:mm", buffer, c.size), 0) << c.t.wHour;
    EXPECT_EQ(GetLastError(), c.error);
  }
}

// The pictures, applied by the platform's formatter, show what ICU itself shows
// with the pattern they come from.
TEST(DateFormat, AgreesWithIcuForRealLocales) {
  const char* locales[] = {"en_US", "de_DE", "fr_FR", "ja_JP", "en_GB", "ko_KR", "ru_RU",
                           "es_ES", "pt_BR", "sv_SE", "hu_HU"};
  const SYSTEMTIME t = At(2026, 3, 5, 21, 7, 9);
  constexpr double kUnixEpoch = 25569.0;  // 1 January 1970 as a variant date
  const UDate when =
      (MakeDate(2026, 3, 5) - kUnixEpoch) * 86400000.0 + (21 * 3600 + 7 * 60 + 9) * 1000.0;
  for (const char* name : locales) {
    SCOPED_TRACE(name);
    ScopedLocale locale(name);
    icu::Locale icu_locale((std::string(name) + "@calendar=gregorian;numbers=latn").c_str());
    struct Style { bool date; icu::DateFormat::EStyle style; DWORD flags; } styles[] = {
        {true, icu::DateFormat::kShort, DATE_SHORTDATE},
        {true, icu::DateFormat::kFull, DATE_LONGDATE},
        {false, icu::DateFormat::kMedium, 0}};
    for (const Style& s : styles) {
      std::unique_ptr<icu::DateFormat> format(
          s.date ? icu::DateFormat::createDateInstance(s.style, icu_locale)
                 : icu::DateFormat::createTimeInstance(s.style, icu_locale));
      ASSERT_NE(format, nullptr);
      format->setTimeZone(*icu::TimeZone::getGMT());
      icu::UnicodeString expected;
      format->format(when, expected);
      std::string expected_utf8;
      expected.findAndReplace(u"\u202F", u" ").findAndReplace(u"\u00A0", u" ");
      expected.toUTF8String(expected_utf8);
      EXPECT_EQ(ToUtf8(s.date ? Date(t, nullptr, s.flags) : Time(t, nullptr)), expected_utf8);
    }
  }
}

void SetOrUnset(const char* name, const char* value) {
  value ? setenv(name, value, 1) : unsetenv(name);
}

// The environment names the locale: LC_ALL, then LC_TIME, then LANG, the first
// that is set and not empty; the override of a test comes before all of them.
class LocaleEnvironment : public ::testing::Test {
 protected:
  void SetUp() override {
    for (const char* name : kVariables) {
      const char* value = getenv(name);
      saved_.push_back(value ? std::optional<std::string>(value) : std::nullopt);
      unsetenv(name);
    }
  }
  void TearDown() override {
    for (size_t i = 0; i < saved_.size(); ++i)
      SetOrUnset(kVariables[i], saved_[i] ? saved_[i]->c_str() : nullptr);
  }
  static constexpr const char* kVariables[] = {"LC_ALL", "LC_TIME", "LANG"};
  std::vector<std::optional<std::string>> saved_;
};

TEST_F(LocaleEnvironment, FirstNonEmptyVariableWins) {
  struct Case { const char* values[3]; const char* expected; } cases[] = {
      {{nullptr, nullptr, nullptr}, "en_US"},
      {{nullptr, nullptr, "de_DE.UTF-8"}, "de_DE"},
      {{nullptr, "fr_FR.UTF-8", "de_DE.UTF-8"}, "fr_FR"},
      {{"ja_JP.UTF-8", "fr_FR.UTF-8", "de_DE.UTF-8"}, "ja_JP"},
      {{"", "", "en_GB.UTF-8"}, "en_GB"},           {{"C", "fr_FR.UTF-8", nullptr}, "en_US"},
      {{"POSIX", nullptr, nullptr}, "en_US"},       {{"C.UTF-8", nullptr, nullptr}, "en_US"},
      {{"de_DE@euro", nullptr, nullptr}, "de_DE"},
      {{"sr_RS.UTF-8@latin", nullptr, nullptr}, "sr_Latn_RS"},
  };
  for (const Case& c : cases) {
    for (size_t i = 0; i < 3; ++i) SetOrUnset(kVariables[i], c.values[i]);
    EXPECT_EQ(CurrentLocaleName(), c.expected) << c.expected;
  }
  setenv("LC_ALL", "de_DE.UTF-8", 1);
  {
    ScopedLocale outer("fr_FR");
    {
      ScopedLocale inner("ko_KR");
      EXPECT_EQ(CurrentLocaleName(), "ko_KR");
    }
    EXPECT_EQ(CurrentLocaleName(), "fr_FR");
  }
  EXPECT_EQ(CurrentLocaleName(), "de_DE");
  EXPECT_EQ(Info(LOCALE_SSHORTDATE), L"dd.MM.yy");
}

TEST_F(LocaleEnvironment, UnknownLocaleReadsAsUnitedStatesEnglish) {
  setenv("LANG", "xx_YY.UTF-8", 1);
  EXPECT_EQ(Info(LOCALE_SSHORTDATE), L"M/d/yy");
  EXPECT_EQ(Info(LOCALE_STIMEFORMAT), L"h:mm:ss tt");
  EXPECT_EQ(GetUserDefaultLCID(), 0x409u);
}

}  // namespace
}  // namespace velmo::locale
