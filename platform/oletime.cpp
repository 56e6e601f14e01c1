#include "platform/oletime.h"

#include <cmath>

namespace {
// Days from 1 January 1601 to 30 December 1899.
constexpr std::int64_t kDaysFrom1601To1899 = 109205;
constexpr std::int64_t kTicksPerDay = 864000000000LL;
constexpr std::int64_t kTicksPerMs = 10000;

// Proleptic Gregorian days since 1 March of year 0 (Howard Hinnant's algorithm).
constexpr std::int64_t DaysFromCivil(std::int64_t y, unsigned m, unsigned d) {
  y -= m <= 2;
  const std::int64_t era = (y >= 0 ? y : y - 399) / 400;
  const unsigned yoe = static_cast<unsigned>(y - era * 400);
  const unsigned doy = (153 * (m + (m > 2 ? -3 : 9)) + 2) / 5 + d - 1;
  const unsigned doe = yoe * 365 + yoe / 4 - yoe / 100 + doy;
  return era * 146097 + static_cast<std::int64_t>(doe) - 719468;  // days since 1970-01-01
}

void CivilFromDays(std::int64_t z, int* y, unsigned* m, unsigned* d) {
  z += 719468;
  const std::int64_t era = (z >= 0 ? z : z - 146096) / 146097;
  const unsigned doe = static_cast<unsigned>(z - era * 146097);
  const unsigned yoe = (doe - doe / 1460 + doe / 36524 - doe / 146096) / 365;
  const unsigned doy = doe - (365 * yoe + yoe / 4 - yoe / 100);
  const unsigned mp = (5 * doy + 2) / 153;
  *d = doy - (153 * mp + 2) / 5 + 1;
  *m = mp < 10 ? mp + 3 : mp - 9;
  *y = static_cast<int>(static_cast<std::int64_t>(yoe) + era * 400 + (*m <= 2));
}

constexpr std::int64_t kEpoch1899 = DaysFromCivil(1899, 12, 30);

bool ValidSystemTime(const SYSTEMTIME& st) {
  static constexpr unsigned kDaysInMonth[] = {31, 29, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  if (st.wYear < 100 || st.wYear > 9999 || st.wMonth < 1 || st.wMonth > 12) return false;
  if (st.wDay < 1 || st.wDay > kDaysInMonth[st.wMonth - 1]) return false;
  if (st.wMonth == 2 && st.wDay == 29) {
    const bool leap = (st.wYear % 4 == 0 && st.wYear % 100 != 0) || st.wYear % 400 == 0;
    if (!leap) return false;
  }
  return st.wHour < 24 && st.wMinute < 60 && st.wSecond < 60 && st.wMilliseconds < 1000;
}

void FillFromDayAndTicks(std::int64_t days_since_1899, std::int64_t ms_of_day, SYSTEMTIME* out) {
  int y;
  unsigned m, d;
  CivilFromDays(days_since_1899 + kEpoch1899, &y, &m, &d);
  out->wYear = static_cast<WORD>(y);
  out->wMonth = static_cast<WORD>(m);
  out->wDay = static_cast<WORD>(d);
  // 30 December 1899 was a Saturday.
  out->wDayOfWeek = static_cast<WORD>(((days_since_1899 % 7) + 7 + 6) % 7);
  out->wHour = static_cast<WORD>(ms_of_day / 3600000);
  out->wMinute = static_cast<WORD>(ms_of_day / 60000 % 60);
  out->wSecond = static_cast<WORD>(ms_of_day / 1000 % 60);
  out->wMilliseconds = static_cast<WORD>(ms_of_day % 1000);
}
}  // namespace

BOOL SystemTimeToVariantTime(const SYSTEMTIME* st, DATE* out) {
  if (!st || !out || !ValidSystemTime(*st)) return FALSE;
  const std::int64_t days = DaysFromCivil(st->wYear, st->wMonth, st->wDay) - kEpoch1899;
  // Seconds precision, as the platform's conversion keeps.
  const double fraction = (st->wHour * 3600.0 + st->wMinute * 60.0 + st->wSecond) / 86400.0;
  // Before 1899 the fraction counts away from zero (the variant date convention).
  *out = days >= 0 ? static_cast<double>(days) + fraction : static_cast<double>(days) - fraction;
  return TRUE;
}

BOOL VariantTimeToSystemTime(DATE date, SYSTEMTIME* out) {
  if (!out || !std::isfinite(date) || date < -657434.0 || date >= 2958466.0) return FALSE;
  double whole = std::trunc(date);
  double fraction = std::fabs(date - whole);
  // Round to the nearest second.
  std::int64_t seconds = std::llround(fraction * 86400.0);
  std::int64_t days = static_cast<std::int64_t>(whole);
  if (seconds >= 86400) {
    seconds -= 86400;
    days += date >= 0 ? 1 : -1;
  }
  FillFromDayAndTicks(days, seconds * 1000, out);
  return TRUE;
}

BOOL FileTimeToSystemTime(const FILETIME* ft, SYSTEMTIME* out) {
  if (!ft || !out) return FALSE;
  const std::uint64_t ticks = velmo::FileTimeTicks(*ft);
  if (ticks >= 0x8000000000000000ULL) return FALSE;
  const std::int64_t days_since_1601 = static_cast<std::int64_t>(ticks / kTicksPerDay);
  const std::int64_t ms = static_cast<std::int64_t>(ticks % kTicksPerDay) / kTicksPerMs;
  FillFromDayAndTicks(days_since_1601 - kDaysFrom1601To1899, ms, out);
  return TRUE;
}

BOOL SystemTimeToFileTime(const SYSTEMTIME* st, FILETIME* out) {
  if (!st || !out || !ValidSystemTime(*st) || st->wYear < 1601) return FALSE;
  const std::int64_t days = DaysFromCivil(st->wYear, st->wMonth, st->wDay) - kEpoch1899 +
                            kDaysFrom1601To1899;
  const std::int64_t ms =
      ((st->wHour * 60LL + st->wMinute) * 60 + st->wSecond) * 1000 + st->wMilliseconds;
  const std::uint64_t ticks =
      static_cast<std::uint64_t>(days) * kTicksPerDay + static_cast<std::uint64_t>(ms) * kTicksPerMs;
  out->dwLowDateTime = static_cast<DWORD>(ticks & 0xFFFFFFFFu);
  out->dwHighDateTime = static_cast<DWORD>(ticks >> 32);
  return TRUE;
}

namespace velmo {

// Straight from the ticks, without the calendar date between: the same value
// as the conversion through a system time (whole seconds, years up to 9999),
// at a fraction of its cost, since the store converts three dates per record.
bool FileTimeToDate(const FILETIME& ft, DATE* out) {
  static constexpr std::int64_t kLastDay = DaysFromCivil(9999, 12, 31) - kEpoch1899;
  static constexpr std::int64_t kTicksPerSecond = 1000 * kTicksPerMs;
  const std::uint64_t ticks = FileTimeTicks(ft);
  if (ticks >= 0x8000000000000000ULL) return false;
  const auto day_ticks = static_cast<std::uint64_t>(kTicksPerDay);
  const std::int64_t days = static_cast<std::int64_t>(ticks / day_ticks) - kDaysFrom1601To1899;
  if (days > kLastDay) return false;
  const double fraction = static_cast<double>((ticks % day_ticks) / kTicksPerSecond) / 86400.0;
  *out = days >= 0 ? static_cast<double>(days) + fraction : static_cast<double>(days) - fraction;
  return true;
}

bool DateToFileTime(DATE date, FILETIME* out) {
  SYSTEMTIME st;
  return VariantTimeToSystemTime(date, &st) && SystemTimeToFileTime(&st, out);
}

DATE MakeDate(int year, int month, int day, int hour, int minute, int second) {
  SYSTEMTIME st{static_cast<WORD>(year), static_cast<WORD>(month), 0, static_cast<WORD>(day),
                static_cast<WORD>(hour), static_cast<WORD>(minute), static_cast<WORD>(second), 0};
  DATE d = kNoDate;
  SystemTimeToVariantTime(&st, &d);
  return d;
}

}  // namespace velmo
