// Day arithmetic on system times for the date picker and the month calendar.
// Internal to the window system. Dates run from 1601 to 4500 (the year before
// the platform's marker for "no date").
#pragma once

#include "platform/wintypes.h"

namespace velmo::ui::internal {

constexpr int kFirstYear = 1601;
constexpr int kLastYear = 4500;

int DaysInMonth(int year, int month);
// True for a real day of the supported years with a valid time of day.
bool IsValidDay(const SYSTEMTIME& st);
// The same day with its weekday filled in (0 Sunday .. 6 Saturday).
SYSTEMTIME WithWeekday(SYSTEMTIME st);
// Moves by days or by months (the day kept, or the month's last day), keeping
// the time of day; false when the result leaves the supported years.
bool AddDays(SYSTEMTIME* st, int days);
bool AddMonths(SYSTEMTIME* st, int months);
// Today at midnight.
SYSTEMTIME Today();

}  // namespace velmo::ui::internal
