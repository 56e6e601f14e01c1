// Locale information and date and time formatting by picture, under the
// platform's names. The values come from ICU (CLDR) for the locale named by
// LC_ALL, LC_TIME or LANG (the first that is set and not empty; "C" and "POSIX"
// are en_US); ScopedLocale pins another locale for tests.
//
// Buffers follow the platform: the return value counts the characters written
// with the terminator; a size of 0 asks for the size needed; a buffer too small
// fails with ERROR_INSUFFICIENT_BUFFER.
#pragma once

#include <optional>
#include <string>

#include "platform/wintypes.h"

using LCID = DWORD;
using LCTYPE = DWORD;

constexpr LCID LOCALE_NEUTRAL = 0x0000;
constexpr LCID LOCALE_USER_DEFAULT = 0x0400;
constexpr LCID LOCALE_SYSTEM_DEFAULT = 0x0800;
constexpr LCID LOCALE_CUSTOM_DEFAULT = 0x0C00;

constexpr DWORD ERROR_INVALID_FLAGS = 1004;

// Locale information the program reads.
constexpr LCTYPE LOCALE_SDATE = 29;          // date separator
constexpr LCTYPE LOCALE_STIME = 30;          // time separator
constexpr LCTYPE LOCALE_SSHORTDATE = 31;     // short date picture
constexpr LCTYPE LOCALE_SLONGDATE = 32;      // long date picture
constexpr LCTYPE LOCALE_IDATE = 33;          // short date order: 0 M-D-Y, 1 D-M-Y, 2 Y-M-D
constexpr LCTYPE LOCALE_ILDATE = 34;         // long date order
constexpr LCTYPE LOCALE_ITIME = 35;          // 0 12-hour, 1 24-hour
constexpr LCTYPE LOCALE_ICENTURY = 36;       // 1 when the short date shows four year digits
constexpr LCTYPE LOCALE_ITLZERO = 37;        // hour leading zero
constexpr LCTYPE LOCALE_IDAYLZERO = 38;      // day leading zero
constexpr LCTYPE LOCALE_IMONLZERO = 39;      // month leading zero
constexpr LCTYPE LOCALE_S1159 = 40;          // AM marker
constexpr LCTYPE LOCALE_S2359 = 41;          // PM marker
constexpr LCTYPE LOCALE_SDAYNAME1 = 42;      // Monday .. LOCALE_SDAYNAME7 = 48, Sunday
constexpr LCTYPE LOCALE_SABBREVDAYNAME1 = 49;  // .. 55
constexpr LCTYPE LOCALE_SMONTHNAME1 = 56;    // January .. LOCALE_SMONTHNAME12 = 67
constexpr LCTYPE LOCALE_SABBREVMONTHNAME1 = 68;  // .. 79
constexpr LCTYPE LOCALE_SNAME = 92;          // "de-DE"
constexpr LCTYPE LOCALE_STIMEFORMAT = 4099;  // time picture
constexpr LCTYPE LOCALE_ITIMEMARKPOSN = 4101;  // 1 when the AM/PM marker comes first
constexpr LCTYPE LOCALE_SYEARMONTH = 4102;   // year-and-month picture
constexpr LCTYPE LOCALE_IFIRSTDAYOFWEEK = 4108;  // 0 Monday .. 6 Sunday

constexpr DWORD LOCALE_NOUSEROVERRIDE = 0x80000000u;

// GetDateFormatW flags.
constexpr DWORD DATE_SHORTDATE = 0x0001;
constexpr DWORD DATE_LONGDATE = 0x0002;
constexpr DWORD DATE_USE_ALT_CALENDAR = 0x0004;
constexpr DWORD DATE_YEARMONTH = 0x0008;
constexpr DWORD DATE_LTRREADING = 0x0010;
constexpr DWORD DATE_RTLREADING = 0x0020;

// GetTimeFormatW flags.
constexpr DWORD TIME_NOMINUTESORSECONDS = 0x0001;
constexpr DWORD TIME_NOSECONDS = 0x0002;
constexpr DWORD TIME_NOTIMEMARKER = 0x0004;
constexpr DWORD TIME_FORCE24HOURFORMAT = 0x0008;

// The locale identifier of the program's locale, or LOCALE_USER_DEFAULT when
// the locale has no identifier of its own.
LCID GetUserDefaultLCID();

// Copies one locale value. Unknown types fail with ERROR_INVALID_FLAGS, unknown
// locales with ERROR_INVALID_PARAMETER.
int GetLocaleInfoW(LCID locale, LCTYPE type, wchar_t* buffer, int cch);

// Formats the date of `time` (its time fields are ignored; a null time is now)
// with `picture`, or with the locale's picture chosen by DATE_SHORTDATE,
// DATE_LONGDATE or DATE_YEARMONTH when `picture` is null. Picture elements:
// d dd ddd dddd, M MM MMM MMMM, y yy yyyy (yyy as yyyy), g gg, and '...'
// literals with '' for a quote; everything else is copied.
int GetDateFormatW(LCID locale, DWORD flags, const SYSTEMTIME* time, LPCWSTR picture,
                   wchar_t* out, int cch);

// Formats the time of `time` (a null time is now) with `picture`, or the
// locale's time picture when it is null. Picture elements: h hh H HH m mm s ss
// t tt and '...' literals.
int GetTimeFormatW(LCID locale, DWORD flags, const SYSTEMTIME* time, LPCWSTR picture,
                   wchar_t* out, int cch);

namespace velmo::locale {

// The ICU name of the program's locale ("de_DE"), after the override and the
// environment have been consulted.
std::string CurrentLocaleName();

// Pins the program's locale (an ICU or POSIX name: "de_DE", "ko_KR.UTF-8")
// while it lives.
class ScopedLocale {
 public:
  explicit ScopedLocale(const std::string& name);
  ~ScopedLocale();
  ScopedLocale(const ScopedLocale&) = delete;
  ScopedLocale& operator=(const ScopedLocale&) = delete;

 private:
  std::optional<std::string> previous_;
};

}  // namespace velmo::locale
