#include "editor/recurrence_words.h"

#include <gtest/gtest.h>

#include "editor/day_names.h"
#include "editor/recurrence_choices.h"
#include "editor/recurrence_writer.h"
#include "platform/locale.h"
#include "tests/support/recurrence_pattern_builder.h"

namespace velmo {
namespace {

using testing::Pattern;

class RecurrenceWords : public ::testing::Test {
 protected:
  locale::ScopedLocale locale_{"en_US"};
};

TEST_F(RecurrenceWords, TheThirteenChoicesForABaseDate) {
  const wchar_t* const expected[] = {
      L"Occurs once",
      L"Every day",
      L"Every Thursday",
      L"Every 2 weeks on Thursday",
      L"Every 3 weeks on Thursday",
      L"Every 4 weeks on Thursday",
      L"Last Thursday of every month",
      L"Day 29 of every month",
      L"Day 29 of every 2 months",
      L"Day 29 of every 3 months",
      L"Day 29 of every 4 months",
      L"Day 29 of every 6 months",
      L"Every January 29",
      L"Custom pattern",
  };
  const DATE base = MakeDate(2026, 1, 29, 17, 45);
  for (int choice = 0; choice <= kCustomPattern; ++choice)
    EXPECT_EQ(RecurrenceChoiceText(choice, base), expected[choice]) << choice;
}

// The week of the month: days 29-31 are the last week, and written as instance 5.
TEST_F(RecurrenceWords, WeekOfTheMonthInWordsAndInThePattern) {
  struct Case { int month, day; const wchar_t* text; LONG instance; LONG mask; } cases[] = {
      {1, 1, L"1st Thursday of every month", 1, WeekdayBit(4)},
      {1, 7, L"1st Wednesday of every month", 1, WeekdayBit(3)},
      {1, 8, L"2nd Thursday of every month", 2, WeekdayBit(4)},
      {1, 22, L"4th Thursday of every month", 4, WeekdayBit(4)},
      {1, 28, L"4th Wednesday of every month", 4, WeekdayBit(3)},
      {1, 29, L"Last Thursday of every month", 5, WeekdayBit(4)},
      {1, 30, L"Last Friday of every month", 5, WeekdayBit(5)},
      {1, 31, L"Last Saturday of every month", 5, WeekdayBit(6)},
      {3, 29, L"Last Sunday of every month", 5, WeekdayBit(0)},
  };
  for (const Case& c : cases) {
    const DATE base = MakeDate(2026, c.month, c.day);
    EXPECT_EQ(RecurrenceChoiceText(6, base), c.text) << c.day;
    RecurrencePattern p;
    ASSERT_TRUE(WriteRecurrenceChoice(6, base, kNoDate, &p));
    EXPECT_EQ(p.RecurrenceType, kRecursMonthNth);
    EXPECT_EQ(p.Instance, c.instance) << c.day;
    EXPECT_EQ(p.DayOfWeekMask, c.mask) << c.day;
    EXPECT_EQ(p.Interval, 1);
  }
}

// Every fixed choice written for a base date is matched back to itself, with
// the same words.
TEST_F(RecurrenceWords, WrittenChoicesMatchBack) {
  for (const DATE base : {MakeDate(2026, 1, 29), MakeDate(2024, 2, 29), MakeDate(2026, 12, 31),
                          MakeDate(2026, 3, 15)}) {
    for (int choice = 1; choice < kFixedChoices; ++choice) {
      RecurrencePattern p;
      ASSERT_TRUE(WriteRecurrenceChoice(choice, base, kNoDate, &p));
      const RecurrenceMatch match = MatchRecurrence(&p, base);
      EXPECT_EQ(match.choice, choice) << "base " << base;
      EXPECT_EQ(match.words, RecurrenceChoiceText(choice, base)) << choice;
    }
  }
  const RecurrenceMatch once = MatchRecurrence(nullptr, MakeDate(2026, 1, 29));
  EXPECT_EQ(once.choice, kOccursOnce);
  EXPECT_EQ(once.words, L"Occurs once");
}

TEST_F(RecurrenceWords, PatternsThatAreNoChoiceInWords) {
  const LONG thursday = WeekdayBit(4);
  const LONG mon_fri = WeekdayBit(1) | WeekdayBit(5);
  const LONG mon_wed_fri = mon_fri | WeekdayBit(3);
  struct Case { RecurrencePattern p; const wchar_t* words; } cases[] = {
      {Pattern(kRecursDaily, 3), L"Every 3 days"},
      {Pattern(kRecursDaily, 0, kMondayToFriday), L"Every weekday"},
      {Pattern(kRecursDaily, 2, kMondayToFriday), L"Every 2 days"},
      {Pattern(kRecursWeekly, 5, thursday), L"Every 5 weeks on Thursday"},
      {Pattern(kRecursWeekly, 1, mon_fri), L"Every week on Monday and Friday"},
      {Pattern(kRecursWeekly, 2, mon_wed_fri), L"Every 2 weeks on Monday, Wednesday and Friday"},
      {Pattern(kRecursWeekly, 1, kAllDays), L"Every week on day"},
      {Pattern(kRecursWeekly, 3, kSaturdayAndSunday), L"Every 3 weeks on weekend day"},
      {Pattern(kRecursWeekly, 2 * kMinutesPerWeek, kMondayToFriday), L"Due 2 week(s) after this task is completed"},
      {Pattern(kRecursMonthly, 5, 0, 15), L"Day 15 of every 5 months"},
      {Pattern(kRecursMonthly, 12, 0, 31), L"Day 31 of every 12 months"},
      {Pattern(kRecursMonthNth, 1, kMondayToFriday, 0, 2), L"2nd weekday of every month"},
      {Pattern(kRecursMonthNth, 3, WeekdayBit(5), 0, 5), L"Last Friday of every 3 months"},
      {Pattern(kRecursYearNth, 1, WeekdayBit(1), 0, 1, 9), L"1st Monday of September"},
      {Pattern(kRecursYearNth, 1, WeekdayBit(0), 0, 5, 3), L"Last Sunday of March"},
      {Pattern(4, 1), L""},  // a type the editor does not know
  };
  const DATE thursday_base = MakeDate(2026, 1, 29);
  for (const Case& c : cases) {
    RecurrencePattern p = c.p;
    p.PatternStartDate = thursday_base;
    const RecurrenceMatch match = MatchRecurrence(&p, thursday_base);
    EXPECT_EQ(match.choice, kCustomPattern) << ::testing::PrintToString(std::wstring(c.words));
    EXPECT_EQ(match.words, c.words);
  }
}

// A matched choice is worded for the pattern's start, the match itself
// follows the task's base date.
TEST_F(RecurrenceWords, MatchedChoiceWordedForThePatternStart) {
  const RecurrencePattern monthly = Pattern(kRecursMonthly, 1, 0, 15, 0, 0, MakeDate(2026, 3, 15));
  EXPECT_EQ(MatchRecurrence(&monthly, MakeDate(2026, 3, 20)).words, L"Day 15 of every month");

  // Every second Sunday from 15 March.
  const RecurrencePattern weekly = Pattern(kRecursWeekly, 2, WeekdayBit(0), 0, 0, 0, MakeDate(2026, 3, 15));
  EXPECT_EQ(MatchRecurrence(&weekly, MakeDate(2026, 3, 15)).choice, 3);
  EXPECT_EQ(MatchRecurrence(&weekly, MakeDate(2026, 3, 16)).choice, kCustomPattern);
}

TEST_F(RecurrenceWords, DayMasks) {
  struct Case { LONG mask; const wchar_t* words; } cases[] = {
      {kAllDays, L"day"},                    {kMondayToFriday, L"weekday"},
      {kSaturdayAndSunday, L"weekend day"},  {WeekdayBit(1), L"Monday"},
      {WeekdayBit(0) | WeekdayBit(1), L"Sunday and Monday"},
      {WeekdayBit(1) | WeekdayBit(2) | WeekdayBit(5), L"Monday, Tuesday and Friday"},
      {kAllDays & ~WeekdayBit(3), L"Sunday, Monday, Tuesday, Thursday, Friday and Saturday"},
      {0, L""},
      {128 | WeekdayBit(2), L"Tuesday"},
  };
  for (const Case& c : cases) EXPECT_EQ(DayMaskWords(c.mask), c.words) << c.mask;
  EXPECT_EQ(InstanceWord(0), L"");
  EXPECT_EQ(InstanceWord(6), L"");
}

TEST_F(RecurrenceWords, EndOfRecurrence) {
  EXPECT_EQ(OccurrencesText(12), L"12 occur.");
  EXPECT_EQ(OccurrencesText(0), L"No End");
  EXPECT_EQ(RecurrenceUntilText(L"Every day", L"31.12.2026", 1), L"Every day until 31.12.2026 (1 occurrence)");
  EXPECT_EQ(RecurrenceUntilText(L"Every day", L"31.12.2026", 2), L"Every day until 31.12.2026 (2 occurrences)");
}

TEST(DayNames, FollowTheLocale) {
  locale::ScopedLocale german("de_DE");
  EXPECT_EQ(LongWeekdayName(4), L"Donnerstag");
  EXPECT_EQ(LongMonthName(3), L"März");
  EXPECT_EQ(LongWeekdayName(7), L"");
  EXPECT_EQ(LongMonthName(0), L"");
}

}  // namespace
}  // namespace velmo
