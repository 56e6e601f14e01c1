// The locale's long weekday and month names, as the date picture elements
// "dddd" and "MMMM" show them, for the recurrence texts.
#pragma once

#include <string>

namespace velmo {

// weekday 0 (Sunday) .. 6; an empty string for any other value.
std::wstring LongWeekdayName(int weekday);
// month 1 .. 12; an empty string for any other value.
std::wstring LongMonthName(int month);

}  // namespace velmo
