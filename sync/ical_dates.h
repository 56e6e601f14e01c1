// Task dates (local variant dates, no time zone) as iCalendar times: a date
// without a time of day is a DATE value, any other a floating date-time; a
// zoned or UTC time read from a file is turned into local time.
#pragma once

#include <libical/ical.h>

#include <ctime>

#include "platform/oletime.h"

namespace velmo::sync {

// kNoDate gives a null time.
icaltimetype IcalTimeOf(DATE date);
// The local date as a UTC date-time (COMPLETED, LAST-MODIFIED are UTC).
icaltimetype IcalUtcOf(DATE date);
icaltimetype IcalUtcNow();
// kNoDate for a null or unreadable time.
DATE DateOfIcal(const icaltimetype& time);
// Seconds since the epoch of a local date, for comparing change times.
std::time_t EpochOfDate(DATE date);

}  // namespace velmo::sync
