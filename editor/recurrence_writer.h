// Writing an "Occurs" choice into a task's recurrence pattern, and the values
// read back from it.
#pragma once

#include "platform/recurrence_pattern.h"

namespace velmo {

// The date a recurrence is worded and written for: the start date if set, else
// the due date if set, else `otherwise` (today when writing, the pattern's
// start date when reading).
DATE RecurrenceBaseDate(DATE start, DATE due, DATE otherwise);

// Writes choice 1-12 (its type and fields for the base date) or 13 (the
// pattern's own fields kept), then the base date as the pattern's start and
// the end: end = kNoDate means no end. Returns false, writing nothing, for
// choice 0 ("Occurs once": the caller clears the pattern) and for a choice out
// of range.
bool WriteRecurrenceChoice(int choice, DATE base, DATE end, RecurrencePattern* pattern);

// The occurrence count the commit checks: Occurrences, 0 when negative (no limit).
LONG OccurrenceCount(const RecurrencePattern& pattern);

// Whether completing the task leaves occurrences to come: it recurs and its
// pattern has no limit or at least two occurrences.
bool RecursAgain(bool recurring, const RecurrencePattern& pattern);

}  // namespace velmo
