#include "platform/poom_recurrence.h"

#include <libical/ical.h>

#include <algorithm>
#include <cstdio>
#include <functional>

namespace velmo::poom {
namespace {

constexpr const char* kDayNames[] = {"SU", "MO", "TU", "WE", "TH", "FR", "SA"};

std::string Days(LONG mask) {
  std::string out;
  for (int day = 0; day < 7; ++day) {
    if (!(mask & WeekdayBit(day))) continue;
    if (!out.empty()) out += ',';
    out += kDayNames[day];
  }
  return out;
}

// A day of the month that some months lack (29-31) falls on the month's last
// day instead: the largest of the days 28..day that the month has.
std::string MonthDay(LONG day) {
  if (day <= 28) return ";BYMONTHDAY=" + std::to_string(day);
  std::string days = ";BYMONTHDAY=28";
  for (LONG d = 29; d <= std::min<LONG>(day, 31); ++d) days += "," + std::to_string(d);
  return days + ";BYSETPOS=-1";
}

std::string Position(LONG instance) {
  return ";BYSETPOS=" + std::to_string(instance >= kLastInstance ? -1 : std::max<LONG>(instance, 1));
}

icaltimetype DayOf(DATE date) {
  SYSTEMTIME st;
  icaltimetype t = icaltime_null_date();
  if (!VariantTimeToSystemTime(static_cast<double>(WholeDay(date)), &st)) return t;
  t.year = st.wYear;
  t.month = st.wMonth;
  t.day = st.wDay;
  t.hour = t.minute = t.second = 0;  // a null date leaves them unset
  return t;
}

DATE DateOf(const icaltimetype& t) { return MakeDate(t.year, t.month, t.day); }

// Calls visit with each occurrence in order until it returns false, the rule
// ends or the count limit is reached. Returns the number visited.
LONG Walk(const RecurrencePattern& p, const std::function<bool(DATE)>& visit,
          LONG limit = kMaxCountedOccurrences) {
  const std::string rule = RecurrenceRule(p);
  if (rule.empty()) return 0;
  icalrecurrencetype recurrence = icalrecurrencetype_from_string(rule.c_str());
  icalrecur_iterator* it = icalrecur_iterator_new(recurrence, DayOf(p.PatternStartDate));
  icalerror_clear_errno();
  if (!it) return 0;
  LONG count = 0;
  for (icaltimetype t = icalrecur_iterator_next(it); t.year != 0 && count < limit;
       t = icalrecur_iterator_next(it)) {
    ++count;
    if (!visit(DateOf(t))) break;
  }
  icalrecur_iterator_free(it);
  return count;
}

}  // namespace

std::string RecurrenceRule(const RecurrencePattern& p) {
  const LONG interval = std::max<LONG>(p.Interval, 1);
  std::string rule;
  switch (p.RecurrenceType) {
    case kRecursDaily:
      rule = "FREQ=DAILY;INTERVAL=" + std::to_string(interval);
      if (p.DayOfWeekMask & kAllDays) rule += ";BYDAY=" + Days(p.DayOfWeekMask);
      break;
    case kRecursWeekly:
      // An interval this large counts minutes: weeks after completion.
      rule = "FREQ=WEEKLY;INTERVAL=" +
             std::to_string(interval >= kMinutesPerWeek ? interval / kMinutesPerWeek : interval);
      if (p.DayOfWeekMask & kAllDays) rule += ";BYDAY=" + Days(p.DayOfWeekMask);
      break;
    case kRecursMonthly:
      rule = "FREQ=MONTHLY;INTERVAL=" + std::to_string(interval);
      if (p.DayOfMonth >= 1 && p.DayOfMonth <= 31) rule += MonthDay(p.DayOfMonth);
      break;
    case kRecursMonthNth:
      if (!(p.DayOfWeekMask & kAllDays)) return {};
      rule = "FREQ=MONTHLY;INTERVAL=" + std::to_string(interval) + ";BYDAY=" +
             Days(p.DayOfWeekMask) + Position(p.Instance);
      break;
    case kRecursYearly:
      // Yearly intervals are years; a count of months (12, 24) is taken as such.
      rule = "FREQ=YEARLY;INTERVAL=" + std::to_string(interval >= 12 ? interval / 12 : interval);
      if (p.MonthOfYear >= 1 && p.MonthOfYear <= 12)
        rule += ";BYMONTH=" + std::to_string(p.MonthOfYear);
      if (p.DayOfMonth >= 1 && p.DayOfMonth <= 31) rule += MonthDay(p.DayOfMonth);
      break;
    case kRecursYearNth:
      if (!(p.DayOfWeekMask & kAllDays) || p.MonthOfYear < 1 || p.MonthOfYear > 12) return {};
      rule = "FREQ=YEARLY;INTERVAL=" + std::to_string(interval >= 12 ? interval / 12 : interval) +
             ";BYMONTH=" + std::to_string(p.MonthOfYear) + ";BYDAY=" + Days(p.DayOfWeekMask) +
             Position(p.Instance);
      break;
    default:
      return {};
  }
  if (!p.NoEndDate && p.PatternEndDate != kNoDate) {
    const icaltimetype end = DayOf(p.PatternEndDate);
    char until[32];
    std::snprintf(until, sizeof until, ";UNTIL=%04d%02d%02d", end.year, end.month, end.day);
    rule += until;
  }
  return rule;
}

LONG CountOccurrences(const RecurrencePattern& pattern, LONG limit) {
  if (pattern.NoEndDate || pattern.PatternEndDate == kNoDate) return kUnlimitedOccurrences;
  if (WholeDay(pattern.PatternEndDate) < WholeDay(pattern.PatternStartDate)) return 0;
  return Walk(pattern, [](DATE) { return true; }, std::min(limit, kMaxCountedOccurrences));
}

DATE NthOccurrence(const RecurrencePattern& pattern, LONG n) {
  DATE found = kNoDate;
  LONG seen = 0;
  if (n < 1) return kNoDate;
  Walk(pattern, [&](DATE day) {
    if (++seen < n) return true;
    found = day;
    return false;
  });
  return found;
}

DATE NextOccurrenceAfter(const RecurrencePattern& pattern, DATE after) {
  DATE found = kNoDate;
  const long last = WholeDay(after);
  Walk(pattern, [&](DATE day) {
    if (WholeDay(day) <= last) return true;
    found = day;
    return false;
  });
  return found;
}

}  // namespace velmo::poom
