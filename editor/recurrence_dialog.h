// The recurrence dialog: a custom pattern for a task, of any type (daily,
// weekly on a set of days, monthly on a day, monthly on the nth weekday, yearly
// on a date, yearly on the nth weekday of a month), its interval, and its end (no
// end, an end date, or a number of occurrences).
#pragma once

#include "platform/recurrence_pattern.h"
#include "platform/ui/types.h"

namespace velmo {

// Edits *pattern for a task whose base date is `base`; true when the user chose
// Done (the pattern then holds the new fields), false on Cancel.
bool EditRecurrencePattern(HWND owner, DATE base, RecurrencePattern* pattern);

}  // namespace velmo
