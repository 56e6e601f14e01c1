#include "sync/ical_recurrence.h"

#include <libical/ical.h>

#include <cstdio>
#include <string_view>

#include "platform/poom_recurrence.h"
#include "sync/ical_dates.h"

namespace velmo::sync {
namespace {

constexpr short kEnd = ICAL_RECURRENCE_ARRAY_MAX;

int Count(const short* values, int size) {
  int n = 0;
  while (n < size && values[n] != kEnd) ++n;
  return n;
}

// The weekday mask of BYDAY, and the one position all its days share (0 none).
bool DaysOf(const icalrecurrencetype& r, LONG* mask, int* position) {
  *mask = 0;
  *position = 0;
  const int n = Count(r.by_day, ICAL_BY_DAY_SIZE);
  for (int i = 0; i < n; ++i) {
    const int weekday = static_cast<int>(icalrecurrencetype_day_day_of_week(r.by_day[i])) - 1;
    const int pos = icalrecurrencetype_day_position(r.by_day[i]);
    if (weekday < 0 || weekday > 6) return false;
    if (i > 0 && pos != *position) return false;
    *position = pos;
    *mask |= WeekdayBit(weekday);
  }
  return true;
}

// Instance 1-4, or 5 for the last; 0 when the position has no instance.
LONG InstanceOf(int position) {
  if (position == -1) return kLastInstance;
  return position >= 1 && position <= 4 ? position : 0;
}

int WeekdayOf(DATE base) {
  SYSTEMTIME st;
  return VariantTimeToSystemTime(base, &st) ? st.wDayOfWeek : 0;
}

struct BaseDay {
  LONG day = 1;
  LONG month = 1;
};

BaseDay BaseDayOf(DATE base) {
  SYSTEMTIME st;
  if (!VariantTimeToSystemTime(base, &st)) return {};
  return {st.wDay, st.wMonth};
}

// Monthly days: one day, or the days 28..d with BYSETPOS=-1 (day d or the
// month's last), as the rule of a pattern writes them.
bool MonthDayOf(const icalrecurrencetype& r, LONG* day) {
  const int days = Count(r.by_month_day, ICAL_BY_MONTHDAY_SIZE);
  const int positions = Count(r.by_set_pos, ICAL_BY_SETPOS_SIZE);
  if (days == 1 && positions == 0 && r.by_month_day[0] >= 1) {
    *day = r.by_month_day[0];
    return true;
  }
  if (days < 2 || positions != 1 || r.by_set_pos[0] != -1 || r.by_month_day[0] != 28) return false;
  for (int i = 1; i < days; ++i)
    if (r.by_month_day[i] != 28 + i) return false;
  *day = 27 + days;
  return true;
}

bool HasUnheldParts(const icalrecurrencetype& r) {
  return Count(r.by_second, ICAL_BY_SECOND_SIZE) || Count(r.by_minute, ICAL_BY_MINUTE_SIZE) ||
         Count(r.by_hour, ICAL_BY_HOUR_SIZE) || Count(r.by_year_day, ICAL_BY_YEARDAY_SIZE) ||
         Count(r.by_week_no, ICAL_BY_WEEKNO_SIZE) || Count(r.by_month, ICAL_BY_MONTH_SIZE) > 1 ||
         (r.rscale && *r.rscale);
}

// Fills the pattern's kind and fields from a parsed rule; false for a rule
// that needs more than the pattern holds.
bool FillFields(const icalrecurrencetype& r, DATE base, RecurrencePattern* p) {
  bool held = !HasUnheldParts(r);
  LONG mask = 0;
  int position = 0;
  if (!DaysOf(r, &mask, &position)) held = false;
  const BaseDay day = BaseDayOf(base);
  const int set_positions = Count(r.by_set_pos, ICAL_BY_SETPOS_SIZE);
  p->Interval = r.interval > 0 ? r.interval : 1;
  switch (r.freq) {
    case ICAL_DAILY_RECURRENCE:
      p->RecurrenceType = kRecursDaily;
      p->DayOfWeekMask = mask;
      return held && position == 0 && set_positions == 0 && !Count(r.by_month_day, ICAL_BY_MONTHDAY_SIZE);
    case ICAL_WEEKLY_RECURRENCE:
      p->RecurrenceType = kRecursWeekly;
      p->DayOfWeekMask = mask ? mask : WeekdayBit(WeekdayOf(base));
      return held && position == 0 && set_positions == 0 && !Count(r.by_month_day, ICAL_BY_MONTHDAY_SIZE);
    case ICAL_MONTHLY_RECURRENCE:
    case ICAL_YEARLY_RECURRENCE: {
      const bool yearly = r.freq == ICAL_YEARLY_RECURRENCE;
      if (yearly) p->MonthOfYear = Count(r.by_month, ICAL_BY_MONTH_SIZE) ? r.by_month[0] : day.month;
      if (mask) {
        if (position == 0 && set_positions == 1) position = r.by_set_pos[0];
        p->RecurrenceType = yearly ? kRecursYearNth : kRecursMonthNth;
        p->DayOfWeekMask = mask;
        p->Instance = InstanceOf(position);
        return held && p->Instance != 0 && !Count(r.by_month_day, ICAL_BY_MONTHDAY_SIZE);
      }
      p->RecurrenceType = yearly ? kRecursYearly : kRecursMonthly;
      LONG month_day = day.day;
      if (Count(r.by_month_day, ICAL_BY_MONTHDAY_SIZE) || set_positions)
        held = MonthDayOf(r, &month_day) && held;
      p->DayOfMonth = month_day;
      return held && (!yearly || r.interval <= 1);
    }
    default:
      p->RecurrenceType = kRecursDaily;
      return false;
  }
}

}  // namespace

std::string RuleOfPattern(const RecurrencePattern& p) { return poom::RecurrenceRule(p); }

std::string ExactPatternText(const RecurrencePattern& p) {
  char fields[160];
  std::snprintf(fields, sizeof fields, "%ld,%ld,%ld,%ld,%ld,%ld,%d,%.8f,%.8f", long{p.RecurrenceType},
                long{p.Interval}, long{p.DayOfWeekMask}, long{p.DayOfMonth}, long{p.Instance},
                long{p.MonthOfYear}, p.NoEndDate ? 1 : 0, p.PatternStartDate, p.PatternEndDate);
  return std::string(fields) + "|" + RuleOfPattern(p);
}

namespace {

// A rule as libical writes it: files hold rules in other orders and spellings.
std::string Normalised(const std::string& rule) {
  icalrecurrencetype r = icalrecurrencetype_from_string(rule.c_str());
  icalerror_clear_errno();
  if (r.freq == ICAL_NO_RECURRENCE) return rule;
  char* text = icalrecurrencetype_as_string_r(&r);
  std::string out = text ? text : "";
  icalmemory_free_buffer(text);
  return out;
}

bool ReadExact(const std::string& rule, const std::string& exact, RecurrencePattern* out) {
  const auto bar = exact.find('|');
  if (bar == std::string::npos || Normalised(exact.substr(bar + 1)) != Normalised(rule)) return false;
  RecurrencePattern p;
  long type, interval, mask, day, instance, month;
  int no_end;
  double start, end;
  if (std::sscanf(exact.c_str(), "%ld,%ld,%ld,%ld,%ld,%ld,%d,%lf,%lf", &type, &interval, &mask, &day,
                  &instance, &month, &no_end, &start, &end) != 9)
    return false;
  p.RecurrenceType = type;
  p.Interval = interval;
  p.DayOfWeekMask = mask;
  p.DayOfMonth = day;
  p.Instance = instance;
  p.MonthOfYear = month;
  p.NoEndDate = no_end ? TRUE : FALSE;
  p.PatternStartDate = start;
  p.PatternEndDate = end;
  if (Normalised(RuleOfPattern(p)) != Normalised(rule)) return false;
  *out = p;
  return true;
}

}  // namespace

bool PatternOfRule(const std::string& rule, const std::string& exact, DATE base,
                   RecurrencePattern* out) {
  if (!exact.empty() && ReadExact(rule, exact, out)) return true;
  RecurrencePattern p;
  p.PatternStartDate = base == kNoDate ? kNoDate : static_cast<DATE>(WholeDay(base));
  icalerror_clear_errno();
  icalrecurrencetype r = icalrecurrencetype_from_string(rule.c_str());
  if (r.freq == ICAL_NO_RECURRENCE) {
    icalerror_clear_errno();
    *out = p;
    return false;
  }
  bool held = FillFields(r, base, &p);
  if (!icaltime_is_null_time(r.until)) {
    p.NoEndDate = FALSE;
    p.PatternEndDate = static_cast<DATE>(WholeDay(DateOfIcal(r.until)));
  } else if (r.count > 0) {
    p.NoEndDate = TRUE;
    const DATE last = p.PatternStartDate == kNoDate ? kNoDate : poom::NthOccurrence(p, r.count);
    p.NoEndDate = last == kNoDate ? TRUE : FALSE;
    p.PatternEndDate = last;
    held = held && last != kNoDate;
  }
  *out = p;
  return held;
}

}  // namespace velmo::sync
