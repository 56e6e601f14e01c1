// The fields of a task's recurrence pattern as plain values: what the editor
// reads from the object model's IRecurrencePattern, matches to a choice or puts
// into words, and writes back.
#pragma once

#include "platform/oletime.h"
#include "platform/wintypes.h"

namespace velmo {

// RecurrenceType values.
enum RecurrenceKind : LONG {
  kRecursDaily = 0,
  kRecursWeekly = 1,
  kRecursMonthly = 2,
  kRecursMonthNth = 3,
  kRecursYearly = 5,
  kRecursYearNth = 6,
};

// DayOfWeekMask: bit n is weekday n (0 Sunday .. 6 Saturday).
constexpr LONG kAllDays = 127;
constexpr LONG kMondayToFriday = 62;
constexpr LONG kSaturdayAndSunday = 65;
constexpr LONG WeekdayBit(int weekday) { return LONG{1} << weekday; }

// Instance 1-4 is the first to fourth week of the month, 5 the last.
constexpr LONG kLastInstance = 5;

// Occurrences of a pattern without limit.
constexpr LONG kUnlimitedOccurrences = -1;

// A weekly interval this large counts minutes, not weeks: the task recurs that
// long after it is completed.
constexpr LONG kMinutesPerWeek = 10080;

struct RecurrencePattern {
  LONG RecurrenceType = kRecursDaily;
  DATE PatternStartDate = kNoDate;
  DATE PatternEndDate = kNoDate;
  BOOL NoEndDate = TRUE;
  LONG Interval = 1;  // 0: none to read (a daily pattern of weekdays)
  LONG DayOfWeekMask = 0;
  LONG DayOfMonth = 0;
  LONG Instance = 0;
  LONG MonthOfYear = 0;  // 1-12
  LONG Occurrences = kUnlimitedOccurrences;
};

}  // namespace velmo
