// Occurrences of recurrence patterns, counted by the iCalendar rules made of them.
#include "platform/oletime.h"
#include "platform/poom_recurrence.h"
#include "tests/support/recurrence_pattern_builder.h"

#include <gtest/gtest.h>

namespace velmo::testing {
namespace {

using namespace velmo::poom;

// NextOccurrenceAfter(after) should be `next`.
struct CountCase { const char* name; RecurrencePattern pattern; LONG count; DATE after; DATE next; };

TEST(PoomRecurrenceTest, OccurrencesAreCountedAndFound) {
  const DATE jan1 = MakeDate(2025, 1, 1);  // a Wednesday
  const CountCase cases[] = {
      {"every day for a week", Pattern(kRecursDaily, 1, 0, 0, 0, 0, jan1, MakeDate(2025, 1, 7)), 7,
       jan1, MakeDate(2025, 1, 2)},
      {"every weekday", Pattern(kRecursDaily, 0, kMondayToFriday, 0, 0, 0, jan1, MakeDate(2025, 1, 12)),
       8, MakeDate(2025, 1, 3), MakeDate(2025, 1, 6)},
      {"every second Monday and Thursday",
       Pattern(kRecursWeekly, 2, WeekdayBit(1) | WeekdayBit(4), 0, 0, 0, jan1, MakeDate(2025, 1, 31)),
       5, jan1, MakeDate(2025, 1, 2)},
      {"weeks after completion count minutes",
       Pattern(kRecursWeekly, 2 * kMinutesPerWeek, WeekdayBit(3), 0, 0, 0, jan1, MakeDate(2025, 2, 28)),
       5, jan1, MakeDate(2025, 1, 15)},
      {"day 31 falls on the last day",
       Pattern(kRecursMonthly, 1, 0, 31, 0, 0, MakeDate(2025, 1, 31), MakeDate(2025, 6, 30)), 6,
       MakeDate(2025, 1, 31), MakeDate(2025, 2, 28)},
      {"last Friday every 3 months",
       Pattern(kRecursMonthNth, 3, WeekdayBit(5), 0, kLastInstance, 0, jan1, MakeDate(2025, 12, 31)),
       4, jan1, MakeDate(2025, 1, 31)},
      {"second Tuesday", Pattern(kRecursMonthNth, 1, WeekdayBit(2), 0, 2, 0, jan1, MakeDate(2025, 3, 31)),
       3, MakeDate(2025, 1, 14), MakeDate(2025, 2, 11)},
      {"29 February", Pattern(kRecursYearly, 1, 0, 29, 0, 2, MakeDate(2024, 2, 29), MakeDate(2030, 1, 1)),
       6, MakeDate(2024, 2, 29), MakeDate(2025, 2, 28)},
      {"first Sunday of May", Pattern(kRecursYearNth, 1, WeekdayBit(0), 0, 1, 5, jan1, MakeDate(2027, 1, 1)),
       2, jan1, MakeDate(2025, 5, 4)},
      {"no end", Pattern(kRecursDaily, 1, 0, 0, 0, 0, jan1, kNoDate), kUnlimitedOccurrences, jan1,
       MakeDate(2025, 1, 2)},
      {"end before start", Pattern(kRecursDaily, 1, 0, 0, 0, 0, jan1, MakeDate(2024, 12, 1)), 0, jan1,
       kNoDate},
      {"unknown type", Pattern(4, 1, 0, 0, 0, 0, jan1, MakeDate(2025, 2, 1)), 0, jan1, kNoDate},
      {"month-nth without a day", Pattern(kRecursMonthNth, 1, 0, 0, 1, 0, jan1, MakeDate(2025, 2, 1)),
       0, jan1, kNoDate},
  };
  for (const CountCase& c : cases) {
    EXPECT_EQ(CountOccurrences(c.pattern), c.count) << c.name << ": " << RecurrenceRule(c.pattern);
    EXPECT_EQ(NextOccurrenceAfter(c.pattern, c.after), c.next) << c.name;
  }
}

TEST(PoomRecurrenceTest, CountingStopsAtItsLimit) {
  const RecurrencePattern daily =
      Pattern(kRecursDaily, 1, 0, 0, 0, 0, MakeDate(1900, 1, 1), MakeDate(4500, 12, 31));
  EXPECT_EQ(CountOccurrences(daily), kMaxCountedOccurrences);
  EXPECT_EQ(NthOccurrence(daily, 3), MakeDate(1900, 1, 3));
}

}  // namespace
}  // namespace velmo::testing
