#include "editor/recurrence_writer.h"

#include <gtest/gtest.h>

#include <tuple>

#include "editor/recurrence_choices.h"

namespace velmo {
namespace {

TEST(WriteRecurrenceChoice, FieldsOfEachChoice) {
  const DATE base = MakeDate(2026, 1, 30);  // Friday the 30th
  const LONG friday = WeekdayBit(5);
  struct Case { int choice; LONG type, interval, mask, day, instance, month; } cases[] = {
      {1, kRecursDaily, 1, 0, 0, 0, 0},          {2, kRecursWeekly, 1, friday, 0, 0, 0},
      {5, kRecursWeekly, 4, friday, 0, 0, 0},    {6, kRecursMonthNth, 1, friday, 0, 5, 0},
      {7, kRecursMonthly, 1, 0, 30, 0, 0},       {11, kRecursMonthly, 6, 0, 30, 0, 0},
      {12, kRecursYearly, 1, 0, 30, 0, 1},
  };
  for (const Case& c : cases) {
    RecurrencePattern p = {kRecursYearNth, 0, 0, FALSE, 9, 127, 9, 9, 9, 9};  // stale fields
    ASSERT_TRUE(WriteRecurrenceChoice(c.choice, base, kNoDate, &p));
    EXPECT_EQ(std::tuple(p.RecurrenceType, p.Interval, p.DayOfWeekMask, p.DayOfMonth, p.Instance,
                         p.MonthOfYear),
              std::tuple(c.type, c.interval, c.mask, c.day, c.instance, c.month)) << c.choice;
    EXPECT_EQ(p.PatternStartDate, base);
    EXPECT_TRUE(p.NoEndDate);
  }
}

TEST(WriteRecurrenceChoice, CustomKeepsTheFieldsOnceWritesNothing) {
  const DATE base = MakeDate(2026, 1, 30);
  const DATE end = MakeDate(2026, 6, 30);
  RecurrencePattern custom = {kRecursYearNth, 0, 0, TRUE, 1, WeekdayBit(1), 0, 2, 9, 12};
  ASSERT_TRUE(WriteRecurrenceChoice(kCustomPattern, base, end, &custom));
  EXPECT_EQ(custom.RecurrenceType, kRecursYearNth);
  EXPECT_EQ(custom.DayOfWeekMask, WeekdayBit(1));
  EXPECT_EQ(custom.Instance, 2);
  EXPECT_EQ(custom.MonthOfYear, 9);
  EXPECT_EQ(custom.PatternStartDate, base);
  EXPECT_FALSE(custom.NoEndDate);
  EXPECT_EQ(custom.PatternEndDate, end);

  RecurrencePattern untouched;
  untouched.Interval = 7;
  for (int choice : {kOccursOnce, -1, kCustomPattern + 1})
    EXPECT_FALSE(WriteRecurrenceChoice(choice, base, end, &untouched)) << choice;
  EXPECT_EQ(untouched.Interval, 7);
  EXPECT_EQ(untouched.PatternStartDate, kNoDate);
}

TEST(RecurrenceWriter, BaseDateOccurrencesAndRecursAgain) {
  const DATE start = MakeDate(2026, 2, 1), due = MakeDate(2026, 2, 5), today = MakeDate(2026, 1, 1);
  EXPECT_EQ(RecurrenceBaseDate(start, due, today), start);
  EXPECT_EQ(RecurrenceBaseDate(kNoDate, due, today), due);
  EXPECT_EQ(RecurrenceBaseDate(kNoDate, kNoDate, today), today);

  struct Case { bool recurring; LONG occurrences; bool again; LONG count; } cases[] = {
      {true, kUnlimitedOccurrences, true, 0}, {true, 0, false, 0}, {true, 1, false, 1},
      {true, 2, true, 2},                     {true, 1000, true, 1000}, {false, kUnlimitedOccurrences, false, 0},
      {true, -7, false, 0},
  };
  for (const Case& c : cases) {
    RecurrencePattern p;
    p.Occurrences = c.occurrences;
    EXPECT_EQ(RecursAgain(c.recurring, p), c.again) << c.occurrences;
    EXPECT_EQ(OccurrenceCount(p), c.count) << c.occurrences;
  }
}

}  // namespace
}  // namespace velmo
