// Dates as the program keeps them: variant dates (days since 30 December 1899,
// the fraction the time of day) converted from and to system times and the
// database's FILETIMEs (100-ns ticks since 1 January 1601). No time-zone
// conversion happens anywhere: a date is shown as it is stored.
#pragma once

#include "platform/wintypes.h"

// The platform's marker for an absent task date: 1 January 4501, 00:00.
constexpr DATE kNoDate = 949998.0;

// Both return FALSE for values outside the platform's range.
BOOL SystemTimeToVariantTime(const SYSTEMTIME* st, DATE* out);
BOOL VariantTimeToSystemTime(DATE date, SYSTEMTIME* out);
BOOL FileTimeToSystemTime(const FILETIME* ft, SYSTEMTIME* out);
BOOL SystemTimeToFileTime(const SYSTEMTIME* st, FILETIME* out);

namespace velmo {

// FILETIME -> variant date and back, through system times (millisecond precision
// is dropped the way the platform's variant conversion drops it).
bool FileTimeToDate(const FILETIME& ft, DATE* out);
bool DateToFileTime(DATE date, FILETIME* out);

DATE MakeDate(int year, int month, int day, int hour = 0, int minute = 0, int second = 0);

// Whole-day part of a date, truncated toward zero.
inline long WholeDay(DATE d) { return static_cast<long>(d); }

constexpr std::uint64_t FileTimeTicks(const FILETIME& ft) {
  return (static_cast<std::uint64_t>(ft.dwHighDateTime) << 32) | ft.dwLowDateTime;
}

}  // namespace velmo
