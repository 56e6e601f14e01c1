// Recurrence in words: the texts of the "Occurs" choices for a base date, and
// any pattern matched back to a choice or described (the editor and the task
// summary show them).
#pragma once

#include <string>

#include "platform/recurrence_pattern.h"

namespace velmo {

// 127 "day", 62 "weekday", 65 "weekend day"; any other mask the names of its
// weekdays from Sunday on: "Monday", "Monday and Friday", "Monday, Tuesday and
// Friday". Bits above Saturday are ignored.
std::wstring DayMaskWords(LONG mask);

// "1st", "2nd", "3rd", "4th" for instance 1-4, "Last" for 5; empty otherwise.
std::wstring InstanceWord(LONG instance);

// The text of choice 0-12 for the base date; "Custom pattern" for 13.
std::wstring RecurrenceChoiceText(int choice, DATE base);

struct RecurrenceMatch {
  int choice;          // 0-12, or kCustomPattern
  std::wstring words;  // empty only for a pattern of an unknown type
};

// The choice that describes the pattern (null: the task does not recur), and
// the pattern in words. The base date is the task's start date, else its due
// date, else the pattern's start date; a matched choice is worded for the
// pattern's start date.
RecurrenceMatch MatchRecurrence(const RecurrencePattern* pattern, DATE base);

// "5 occur." for a count, "No End" for 0.
std::wstring OccurrencesText(LONG count);

// "Every day until 31.12.2026 (12 occurrences)", the singular for exactly one.
std::wstring RecurrenceUntilText(const std::wstring& words, const std::wstring& until, LONG count);

}  // namespace velmo
