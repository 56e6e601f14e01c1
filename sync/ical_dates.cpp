#include "sync/ical_dates.h"

#include <cmath>

namespace velmo::sync {
namespace {

bool SystemTimeOf(DATE date, SYSTEMTIME* st) {
  return date != kNoDate && VariantTimeToSystemTime(date, st);
}

std::tm TmOf(const SYSTEMTIME& st) {
  std::tm tm{};
  tm.tm_year = st.wYear - 1900;
  tm.tm_mon = st.wMonth - 1;
  tm.tm_mday = st.wDay;
  tm.tm_hour = st.wHour;
  tm.tm_min = st.wMinute;
  tm.tm_sec = st.wSecond;
  tm.tm_isdst = -1;
  return tm;
}

}  // namespace

icaltimetype IcalTimeOf(DATE date) {
  SYSTEMTIME st;
  if (!SystemTimeOf(date, &st)) return icaltime_null_time();
  icaltimetype t = icaltime_null_time();
  t.year = st.wYear;
  t.month = st.wMonth;
  t.day = st.wDay;
  if (date == std::floor(date)) {
    t.is_date = 1;
    return t;
  }
  t.hour = st.wHour;
  t.minute = st.wMinute;
  t.second = st.wSecond;
  return t;
}

std::time_t EpochOfDate(DATE date) {
  SYSTEMTIME st;
  if (!SystemTimeOf(date, &st)) return 0;
  std::tm tm = TmOf(st);
  return std::mktime(&tm);
}

icaltimetype IcalUtcOf(DATE date) {
  if (date == kNoDate) return icaltime_null_time();
  return icaltime_from_timet_with_zone(EpochOfDate(date), 0, icaltimezone_get_utc_timezone());
}

icaltimetype IcalUtcNow() {
  return icaltime_from_timet_with_zone(std::time(nullptr), 0, icaltimezone_get_utc_timezone());
}

DATE DateOfIcal(const icaltimetype& t) {
  if (icaltime_is_null_time(t) || !icaltime_is_valid_time(t) || t.year < 1601) return kNoDate;
  if (t.is_date) return MakeDate(t.year, t.month, t.day);
  if (t.zone) {
    const std::time_t epoch = icaltime_as_timet_with_zone(t, t.zone);
    std::tm local{};
    if (!localtime_r(&epoch, &local)) return kNoDate;
    return MakeDate(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_hour,
                    local.tm_min, local.tm_sec);
  }
  return MakeDate(t.year, t.month, t.day, t.hour, t.minute, t.second);
}

}  // namespace velmo::sync
