// Date and time pictures applied to a system time: the engine behind
// GetDateFormatW and GetTimeFormatW. A date picture reads only the date
// elements (d M y g), a time picture only the time elements (h H m s t); other
// letters are copied, and '...' quotes literal text ('' is a quote).
#pragma once

#include <string>
#include <string_view>

#include "platform/locale_data.h"
#include "platform/wintypes.h"

namespace velmo::locale {

// Day of the week (0 Sunday) of a Gregorian date.
int DayOfWeek(int year, int month, int day);

// The date of `time` in `picture`. Month names take their format (genitive)
// form when the picture holds a day number ("5. März", "5 марта"), their
// standalone form otherwise; day names are always the standalone (nominative) ones.
std::wstring FormatDatePicture(std::wstring_view picture, const SYSTEMTIME& time,
                               const LocaleNames& names);

// The time of `time` in `picture`. `flags` are GetTimeFormatW's TIME_* flags:
// an element they suppress goes with the literal text before it (or after it,
// when it comes first), so "h:mm:ss tt" without seconds is "h:mm tt".
std::wstring FormatTimePicture(std::wstring_view picture, const SYSTEMTIME& time,
                               const LocaleNames& names, DWORD flags);

}  // namespace velmo::locale
