// The occurrences of a recurrence pattern, worked out by libical from an
// iCalendar rule made of the pattern's fields. Occurrences are whole days.
#pragma once

#include <string>

#include "platform/recurrence_pattern.h"

namespace velmo::poom {

// Counting stops here: a pattern with more occurrences reports this many.
constexpr LONG kMaxCountedOccurrences = 100000;

// The iCalendar rule of the pattern (without its start), e.g.
// "FREQ=WEEKLY;INTERVAL=2;BYDAY=MO,TH;UNTIL=20250630". Empty for a pattern that
// cannot recur (unknown type).
std::string RecurrenceRule(const RecurrencePattern& pattern);

// The number of occurrences from the pattern's start to its end date (that day
// included), counting stopped at `limit`; -1 when it has no end; 0 when it
// cannot recur.
LONG CountOccurrences(const RecurrencePattern& pattern, LONG limit = kMaxCountedOccurrences);

// The day of the n-th occurrence (n from 1), kNoDate when there are fewer.
DATE NthOccurrence(const RecurrencePattern& pattern, LONG n);

// The day of the first occurrence on a later day than `after`, kNoDate when none.
DATE NextOccurrenceAfter(const RecurrencePattern& pattern, DATE after);

}  // namespace velmo::poom
