// The date and time pictures the program shows dates with, derived from the
// locale's values: shorter than the locale's own where the small screen asks
// for it. The derivation is a pure function of the values, so it can be fed
// any locale; ReadLocaleDateValues reads the values of a real one.
#pragma once

#include <string>

#include "platform/locale.h"
#include "platform/wintypes.h"

namespace velmo::format {

// Longest picture kept, in characters.
constexpr size_t kMaxPictureLength = 199;

// The locale values the pictures come from, as the locale reports them.
struct LocaleDateValues {
  std::wstring short_date;          // LOCALE_SSHORTDATE
  std::wstring century;             // LOCALE_ICENTURY
  std::wstring date_order;          // LOCALE_IDATE
  std::wstring date_separator;      // LOCALE_SDATE
  std::wstring day_leading_zero;    // LOCALE_IDAYLZERO
  std::wstring month_leading_zero;  // LOCALE_IMONLZERO
  std::wstring hour_leading_zero;   // LOCALE_ITLZERO
  std::wstring time_format;         // LOCALE_ITIME
  std::wstring time_separator;      // LOCALE_STIME
  std::wstring time_picture;        // LOCALE_STIMEFORMAT
};

// The screen the pictures are made for.
struct ScreenTraits {
  int logical_pixels_x = 96;  // horizontal logical pixels per inch
  bool pocket_pc = false;     // the PocketPC platform type (never on Linux)
};

struct DatePictures {
  std::wstring short_date;            // the locale's, or its compact form
  std::wstring short_date_long_year;  // two-digit year widened to four
  std::wstring day_month_padded;      // "dd.MM" / "MM/dd"
  std::wstring day_month_unpadded;    // "d.M" / "M/d"
  std::wstring day_month_locale;      // day and month padded as the locale pads them
  std::wstring time;                  // hours and minutes, 12- or 24-hour
  std::wstring weekday_date;          // weekday, a blank, the locale's short date
};

// Locale flags are "off" as "0" or "48" (the value as a character code);
// the date order is day-first as "1" or "49". Both forms are accepted on purpose.
bool IsFlagOff(const std::wstring& flag);
bool IsDayFirstOrder(const std::wstring& order);

DatePictures DeriveDatePictures(const LocaleDateValues& values, const ScreenTraits& screen);

// Reads the values of `locale` through GetLocaleInfoW; returns S_OK, or the
// failure of the first value that cannot be read (the others are still read).
HRESULT ReadLocaleDateValues(LCID locale, LocaleDateValues* values);

}  // namespace velmo::format
