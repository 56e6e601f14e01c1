// Day arithmetic on system times, through variant dates.
#include "platform/ui/calendar_days.h"

#include <algorithm>

#include "platform/clock.h"
#include "platform/oletime.h"

namespace velmo::ui::internal {

int DaysInMonth(int year, int month) {
  static constexpr int kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  if (month < 1 || month > 12) return 0;
  bool leap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
  return kDays[month - 1] + (month == 2 && leap ? 1 : 0);
}

bool IsValidDay(const SYSTEMTIME& st) {
  return st.wYear >= kFirstYear && st.wYear <= kLastYear && st.wMonth >= 1 && st.wMonth <= 12 &&
         st.wDay >= 1 && st.wDay <= DaysInMonth(st.wYear, st.wMonth) && st.wHour < 24 &&
         st.wMinute < 60 && st.wSecond < 60;
}

SYSTEMTIME WithWeekday(SYSTEMTIME st) {
  DATE date;
  SYSTEMTIME out;
  if (SystemTimeToVariantTime(&st, &date) && VariantTimeToSystemTime(date, &out)) {
    st.wDayOfWeek = out.wDayOfWeek;
  }
  return st;
}

bool AddDays(SYSTEMTIME* st, int days) {
  SYSTEMTIME day = *st;
  day.wHour = day.wMinute = day.wSecond = day.wMilliseconds = 0;
  DATE date;
  SYSTEMTIME out;
  if (!SystemTimeToVariantTime(&day, &date) || !VariantTimeToSystemTime(date + days, &out)) {
    return false;
  }
  out.wHour = st->wHour;
  out.wMinute = st->wMinute;
  out.wSecond = st->wSecond;
  if (!IsValidDay(out)) return false;
  *st = out;
  return true;
}

bool AddMonths(SYSTEMTIME* st, int months) {
  int index = st->wYear * 12 + (st->wMonth - 1) + months;
  SYSTEMTIME out = *st;
  out.wYear = static_cast<WORD>(index / 12);
  out.wMonth = static_cast<WORD>(index % 12 + 1);
  out.wDay = static_cast<WORD>(std::min<int>(st->wDay, DaysInMonth(out.wYear, out.wMonth)));
  if (index < 0 || !IsValidDay(out)) return false;
  *st = WithWeekday(out);
  return true;
}

SYSTEMTIME Today() {
  SYSTEMTIME now;
  GetLocalTime(&now);
  now.wHour = now.wMinute = now.wSecond = now.wMilliseconds = 0;
  return WithWeekday(now);
}

}  // namespace velmo::ui::internal
