// The recurrence dialog's fields as plain values: read from a pattern, written
// back into one, and described the way the dialog shows the result as it is
// being made ("Every Monday until 30.06.2026 (12 occurrences)", "Next ...").
#pragma once

#include <string>

#include "platform/recurrence_pattern.h"

namespace velmo {

// The pattern types in the order of the dialog's "Repeats" list.
constexpr LONG kFormTypes[] = {kRecursDaily,    kRecursWeekly, kRecursMonthly,
                               kRecursMonthNth, kRecursYearly, kRecursYearNth};
constexpr int kFormTypeCount = 6;

// The fields a type uses; the dialog enables only these.
enum FormField : unsigned {
  kFieldInterval = 1,
  kFieldDays = 2,
  kFieldDayOfMonth = 4,
  kFieldInstance = 8,
  kFieldMonth = 16,
};
unsigned FieldsOfType(int type_index);

enum class FormEnd { kNone = 0, kDate = 1, kCount = 2 };

constexpr LONG kMaxFormInterval = 99;
constexpr LONG kMaxFormOccurrences = 999;

struct RecurrenceForm {
  int type = 0;          // index into kFormTypes
  LONG interval = 1;     // days, weeks, months or years
  LONG day_mask = 0;     // weekly, month-nth, year-nth
  LONG day_of_month = 1;  // monthly, yearly
  LONG instance = 1;     // 1-4, 5 the last week
  LONG month = 1;        // 1-12
  FormEnd end = FormEnd::kNone;
  DATE end_date = kNoDate;
  LONG occurrences = 1;
  bool operator==(const RecurrenceForm&) const = default;
};

// The form for a pattern of a task whose base date is `base`: fields the
// pattern's type does not use take the base date's weekday, day and month, so
// that switching the type offers the task's own day. A daily pattern of
// weekdays is the weekly pattern of those days; a yearly interval in months
// is counted in years; a pattern with an end is shown with its end date and
// the occurrences up to it.
RecurrenceForm FormFromPattern(const RecurrencePattern& pattern, DATE base);

// The pattern the form describes, starting on `base`. Values out of range are
// brought within it (an interval of 1-99, no weekday: the base's); a number of
// occurrences ends the pattern on the day of the last one. False when the form
// cannot be written: an end date before the base, or occurrences that never come.
bool PatternFromForm(const RecurrenceForm& form, DATE base, RecurrencePattern* pattern);

struct FormDescription {
  std::wstring pattern;  // "%1 effective %2", or "%1 until %2 (%3 occurrences)"
  std::wstring next;     // "Next %1" from today on, empty when none is to come
};
// The words the dialog shows under the fields; empty texts when the form
// cannot be written.
FormDescription DescribeForm(const RecurrenceForm& form, DATE base, DATE today);

}  // namespace velmo
