// A recurrence pattern from its fields, for tests of the editor and the object
// model: it runs from start to end, without an end when end is kNoDate.
#pragma once

#include "platform/recurrence_pattern.h"

namespace velmo::testing {

inline RecurrencePattern Pattern(LONG type, LONG interval, LONG mask = 0, LONG day = 0,
                                 LONG instance = 0, LONG month = 0, DATE start = kNoDate,
                                 DATE end = kNoDate) {
  RecurrencePattern p;
  p.RecurrenceType = type;
  p.Interval = interval;
  p.DayOfWeekMask = mask;
  p.DayOfMonth = day;
  p.Instance = instance;
  p.MonthOfYear = month;
  p.PatternStartDate = start;
  p.PatternEndDate = end;
  p.NoEndDate = end == kNoDate ? TRUE : FALSE;
  return p;
}

}  // namespace velmo::testing
