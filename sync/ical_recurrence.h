// A task's recurrence pattern as an iCalendar RRULE, and back.
//
// The rule written is the one the occurrences are counted by (with UNTIL for
// the end), beside an X-VELMO-PATTERN value holding the pattern's fields
// exactly; reading takes those fields while the RRULE is still the one written
// with them, and otherwise reads the RRULE itself. A rule the pattern cannot
// hold (hourly, several month days, week numbers...) reads as the nearest
// pattern of its frequency and interval and is marked custom: its RRULE line is
// left as it is until the task's recurrence is changed.
#pragma once

#include <string>

#include "platform/recurrence_pattern.h"

namespace velmo::sync {

// The RRULE value of a pattern ("FREQ=WEEKLY;INTERVAL=1;BYDAY=MO;UNTIL=20310630").
std::string RuleOfPattern(const RecurrencePattern& pattern);
// The X-VELMO-PATTERN value: the fields, then the RRULE they were written with.
std::string ExactPatternText(const RecurrencePattern& pattern);

// The pattern of an RRULE for a task whose base (start, else due) date is
// `base`, with `exact` the X-VELMO-PATTERN value (may be empty). Returns false
// when the rule cannot be held exactly (the nearest pattern is still filled in).
bool PatternOfRule(const std::string& rule, const std::string& exact, DATE base,
                   RecurrencePattern* out);

}  // namespace velmo::sync
