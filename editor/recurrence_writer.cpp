#include "editor/recurrence_writer.h"

#include "editor/recurrence_choices.h"

namespace velmo {

DATE RecurrenceBaseDate(DATE start, DATE due, DATE otherwise) {
  if (start != kNoDate) return start;
  if (due != kNoDate) return due;
  return otherwise;
}

bool WriteRecurrenceChoice(int choice, DATE base, DATE end, RecurrencePattern* pattern) {
  if (choice <= kOccursOnce || choice > kCustomPattern) return false;
  if (choice != kCustomPattern) {
    const RecurrenceChoice& c = kRecurrenceChoices[choice];
    const BaseDay b = BaseDayOf(base);
    const bool weekly = c.type == kRecursWeekly || c.type == kRecursMonthNth;
    const bool by_day = c.type == kRecursMonthly || c.type == kRecursYearly;
    pattern->RecurrenceType = c.type;
    pattern->Interval = c.interval;
    pattern->DayOfWeekMask = weekly ? WeekdayBit(b.weekday) : 0;
    pattern->Instance = c.type == kRecursMonthNth ? InstanceOfDay(b.day) : 0;
    pattern->DayOfMonth = by_day ? b.day : 0;
    pattern->MonthOfYear = c.type == kRecursYearly ? b.month : 0;
  }
  pattern->PatternStartDate = base;
  pattern->NoEndDate = end == kNoDate ? TRUE : FALSE;
  if (end != kNoDate) pattern->PatternEndDate = end;
  return true;
}

LONG OccurrenceCount(const RecurrencePattern& pattern) {
  return pattern.Occurrences < 0 ? 0 : pattern.Occurrences;
}

bool RecursAgain(bool recurring, const RecurrencePattern& pattern) {
  return recurring && (pattern.Occurrences == kUnlimitedOccurrences || pattern.Occurrences >= 2);
}

}  // namespace velmo
