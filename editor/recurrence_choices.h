// The fixed recurrence choices of the editor's "Occurs" list, each worded for
// the task's base date (its weekday, day of the month and month) and written
// into the pattern with the fields of that date.
#pragma once

#include "platform/recurrence_pattern.h"
#include "platform/wintypes.h"

namespace velmo {

constexpr int kOccursOnce = 0;
constexpr int kFixedChoices = 13;   // choices 0-12
constexpr int kCustomPattern = 13;  // the pattern is none of the fixed choices

// How a choice's text is filled in.
enum class ChoiceInserts {
  kNone,             // "Every day"
  kWeekday,          // %1 weekday name
  kWeekdayInterval,  // %1 weekday name, %2 interval
  kWeekOfMonth,      // %1 ordinal of the base date's week, %2 weekday name
  kDay,              // %1 day of month
  kDayInterval,      // %1 day of month, %2 interval
  kMonthAndDay,      // %1 month name, %2 day of month
};

struct RecurrenceChoice {
  UINT text;
  LONG type;
  LONG interval;
  ChoiceInserts inserts;
};

// Index 0 ("Occurs once") writes no pattern; its type is not used.
extern const RecurrenceChoice kRecurrenceChoices[kFixedChoices];

// The parts of a base date the choices use.
struct BaseDay {
  int weekday = 0;  // 0 Sunday .. 6 Saturday
  int day = 1;      // 1-31
  int month = 1;    // 1-12
};
BaseDay BaseDayOf(DATE date);

// The week of the month a day falls in, as a pattern's Instance: days 1-7 are
// 1, ..., days 29-31 are 5 (the last).
constexpr LONG InstanceOfDay(int day) { return (day - 1) / 7 + 1; }

}  // namespace velmo
