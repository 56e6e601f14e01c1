#include <gtest/gtest.h>

#include <vector>

#include "platform/clock.h"
#include "platform/oletime.h"
#include "platform/wstr.h"
#include "res/strings.h"

namespace velmo {
namespace {

TEST(OleTime, NoDateIsFirstOfJanuary4501) {
  SYSTEMTIME st;
  ASSERT_TRUE(VariantTimeToSystemTime(kNoDate, &st));
  EXPECT_EQ(st.wYear, 4501);
  EXPECT_EQ(st.wMonth, 1);
  EXPECT_EQ(st.wDay, 1);
  EXPECT_EQ(MakeDate(4501, 1, 1), kNoDate);
}

TEST(OleTime, FileTimeRoundTripKeepsTheSecond) {
  struct Case { int y, mo, d, h, mi, s; } cases[] = {
      {1899, 12, 30, 0, 0, 0}, {2000, 2, 29, 23, 59, 59}, {2026, 11, 21, 8, 0, 0},
      {1601, 1, 1, 0, 0, 1}, {4501, 1, 1, 0, 0, 0}, {1970, 1, 1, 12, 30, 15}};
  for (const Case& c : cases) {
    const DATE date = MakeDate(c.y, c.mo, c.d, c.h, c.mi, c.s);
    FILETIME ft;
    ASSERT_TRUE(DateToFileTime(date, &ft)) << c.y;
    DATE back = 0;
    ASSERT_TRUE(FileTimeToDate(ft, &back));
    EXPECT_NEAR(back, date, 1e-9) << c.y << "-" << c.mo << "-" << c.d;
  }
  // 1601-01-01 00:00:01 is ten million ticks.
  FILETIME ft;
  ASSERT_TRUE(DateToFileTime(MakeDate(1601, 1, 1, 0, 0, 1), &ft));
  EXPECT_EQ(FileTimeTicks(ft), 10000000u);
}

// The store's direct conversion must give exactly what the platform's two
// steps give, on both sides of 1899, at the ends of the range and in between.
TEST(OleTime, FileTimeToDateMatchesTheConversionThroughASystemTime) {
  std::uint64_t ticks[] = {0, 1, 9999999, 10000000, 864000000000ULL - 1, 94353120000000000ULL,
                           94353120000000000ULL - 1, 133500000000000000ULL, 2650467743999999999ULL,
                           2650467744000000000ULL, 0x7FFFFFFFFFFFFFFFULL, 0x8000000000000000ULL};
  std::uint64_t step = 0x9E3779B97F4A7C15ULL;
  std::vector<std::uint64_t> all(std::begin(ticks), std::end(ticks));
  for (int i = 0; i < 2000; ++i) all.push_back((step = step * 6364136223846793005ULL + 1) % 2650467744000000000ULL);
  for (std::uint64_t t : all) {
    const FILETIME ft{static_cast<DWORD>(t), static_cast<DWORD>(t >> 32)};
    SYSTEMTIME st;
    DATE two_steps = 0;
    const bool expected = FileTimeToSystemTime(&ft, &st) && SystemTimeToVariantTime(&st, &two_steps);
    DATE direct = 0;
    ASSERT_EQ(FileTimeToDate(ft, &direct), expected) << t;
    if (expected) {
      ASSERT_EQ(direct, two_steps) << t;
    }
  }
}

TEST(OleTime, WeekdayAndInvalidDates) {
  SYSTEMTIME st;
  ASSERT_TRUE(VariantTimeToSystemTime(MakeDate(2026, 11, 21), &st));
  EXPECT_EQ(st.wDayOfWeek, 6);  // a Saturday
  SYSTEMTIME bad{2025, 2, 0, 29, 0, 0, 0, 0};
  DATE d;
  EXPECT_FALSE(SystemTimeToVariantTime(&bad, &d));
  EXPECT_EQ(WholeDay(MakeDate(2026, 1, 1, 23, 59)), WholeDay(MakeDate(2026, 1, 1)));
}

TEST(Clock, ScopedClockPinsAndRestores) {
  const DATE pinned = MakeDate(2030, 6, 15, 10, 20, 30);
  {
    ScopedClock clock(pinned);
    EXPECT_EQ(NowAsDate(), pinned);
  }
  EXPECT_NE(NowAsDate(), pinned);
}

TEST(WideStrings, RoundTripAndInvalidInput) {
  const std::wstring text = L"Caf\u00e9 \u20ac \U0001F600";
  EXPECT_EQ(FromUtf8(ToUtf8(text)), text);
  EXPECT_EQ(FromUtf16(ToUtf16(text)), text);
  EXPECT_EQ(FromUtf8("\xff\xfe" "a"), L"\uFFFD\uFFFDa");
  // Values no UTF-8 can hold become U+FFFD; a noncharacter is still a character.
  const struct { wchar_t wide; std::string utf8; } kCases[] = {
      {static_cast<wchar_t>(0xD800), "\xEF\xBF\xBD"}, {static_cast<wchar_t>(0xDFFF), "\xEF\xBF\xBD"},
      {static_cast<wchar_t>(0x110000), "\xEF\xBF\xBD"}, {static_cast<wchar_t>(-1), "\xEF\xBF\xBD"},
      {static_cast<wchar_t>(0xFFFE), "\xEF\xBF\xBE"}, {static_cast<wchar_t>(0x10FFFF), "\xF4\x8F\xBF\xBF"},
      {static_cast<wchar_t>(0x7FF), "\xDF\xBF"}, {L'\0', std::string(1, '\0')},
  };
  for (const auto& c : kCases)
    EXPECT_EQ(ToUtf8(std::wstring(1, c.wide)), c.utf8) << static_cast<long>(c.wide);
  std::string appended = "a";
  AppendUtf8(L"\u00e9b", &appended);
  EXPECT_EQ(appended, "a\xC3\xA9" "b");
}

TEST(StringTable, FormatsInsertsAndLoadsByNumber) {
  EXPECT_STREQ(res::String(121), L"Velmo ToDo List");
  EXPECT_EQ(res::String(99999), nullptr);
  EXPECT_EQ(res::Format(L"%2 before %1, 100%%, %3", {L"a", L"b"}), L"b before a, 100%, %3");
  wchar_t buf[6];
  EXPECT_EQ(LoadStringW(nullptr, 121, buf, 6), 5);
  EXPECT_STREQ(buf, L"Velmo");
  EXPECT_EQ(res::DuplicateStringIds(), std::vector<UINT>{}) << "a number used twice";
}

}  // namespace
}  // namespace velmo
