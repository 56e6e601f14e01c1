// A date as the weekday-and-date picture shows it, or, asked for relative day
// words, as "Yesterday, %1", "Today, %1" or "Tomorrow, %1" around that text.
#pragma once

#include <string>

#include "platform/wintypes.h"

namespace velmo::format {

// The text of `date`; with `relative`, yesterday, today and tomorrow (by the
// local clock) are named, and any other day starts with a capital. Empty when
// the date cannot be shown.
std::wstring RelativeDateText(DATE date, bool relative);

// The same into a buffer of `cch` characters. E_INVALIDARG for a date that
// cannot be shown or a missing buffer, the insufficient-buffer HRESULT when the
// text and its terminator do not fit (the buffer then holds an empty string).
HRESULT FormatRelativeDate(DATE date, wchar_t* out, int cch, bool relative);

}  // namespace velmo::format
