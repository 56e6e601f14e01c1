#include "editor/recurrence_form.h"

#include <algorithm>

#include "editor/recurrence_choices.h"
#include "editor/recurrence_words.h"
#include "format/current_pictures.h"
#include "format/date_text.h"
#include "format/relative_date.h"
#include "platform/poom_recurrence.h"
#include "res/strings.h"

namespace velmo {
namespace {

constexpr UINT kEffectiveText = 199;  // "%1 effective %2"
constexpr UINT kNextText = 194;       // "Next %1"

struct TypeFields {
  LONG type;
  unsigned fields;
};
constexpr TypeFields kTypeFields[kFormTypeCount] = {
    {kRecursDaily, kFieldInterval},
    {kRecursWeekly, kFieldInterval | kFieldDays},
    {kRecursMonthly, kFieldInterval | kFieldDayOfMonth},
    {kRecursMonthNth, kFieldInterval | kFieldDays | kFieldInstance},
    {kRecursYearly, kFieldInterval | kFieldDayOfMonth | kFieldMonth},
    {kRecursYearNth, kFieldInterval | kFieldDays | kFieldInstance | kFieldMonth},
};

int TypeIndex(LONG type) {
  for (int i = 0; i < kFormTypeCount; ++i)
    if (kTypeFields[i].type == type) return i;
  return -1;
}

// The pattern's interval in the form's unit.
LONG FormInterval(const RecurrencePattern& p) {
  if (p.RecurrenceType == kRecursWeekly && p.Interval >= kMinutesPerWeek) return p.Interval / kMinutesPerWeek;
  if ((p.RecurrenceType == kRecursYearly || p.RecurrenceType == kRecursYearNth) && p.Interval >= 12)
    return p.Interval / 12;
  return p.Interval;
}

std::wstring ShortDate(DATE date) {
  return format::DateText(date, format::Pictures().short_date_long_year);
}

}  // namespace

unsigned FieldsOfType(int type_index) {
  return type_index >= 0 && type_index < kFormTypeCount ? kTypeFields[type_index].fields : 0;
}

RecurrenceForm FormFromPattern(const RecurrencePattern& p, DATE base) {
  const BaseDay day = BaseDayOf(base);
  RecurrenceForm f;
  f.day_mask = WeekdayBit(day.weekday);
  f.day_of_month = day.day;
  f.instance = InstanceOfDay(day.day);
  f.month = day.month;
  f.type = std::max(0, TypeIndex(p.RecurrenceType));
  f.interval = std::clamp<LONG>(FormInterval(p), 1, kMaxFormInterval);
  if (p.RecurrenceType == kRecursDaily && p.Interval <= 0 && (p.DayOfWeekMask & kAllDays)) {
    f.type = TypeIndex(kRecursWeekly);
    f.interval = 1;
  }
  const unsigned fields = FieldsOfType(f.type);
  if ((fields & kFieldDays) && (p.DayOfWeekMask & kAllDays)) f.day_mask = p.DayOfWeekMask & kAllDays;
  if ((fields & kFieldDayOfMonth) && p.DayOfMonth >= 1 && p.DayOfMonth <= 31) f.day_of_month = p.DayOfMonth;
  if ((fields & kFieldInstance) && p.Instance >= 1 && p.Instance <= kLastInstance) f.instance = p.Instance;
  if ((fields & kFieldMonth) && p.MonthOfYear >= 1 && p.MonthOfYear <= 12) f.month = p.MonthOfYear;
  if (!p.NoEndDate && p.PatternEndDate != kNoDate) {
    f.end = FormEnd::kDate;
    f.end_date = p.PatternEndDate;
    RecurrencePattern counted = p;
    counted.PatternStartDate = base;
    f.occurrences = std::clamp<LONG>(poom::CountOccurrences(counted), 1, kMaxFormOccurrences);
  } else {
    f.end_date = base;
  }
  return f;
}

bool PatternFromForm(const RecurrenceForm& f, DATE base, RecurrencePattern* out) {
  if (f.type < 0 || f.type >= kFormTypeCount || base == kNoDate) return false;
  const BaseDay day = BaseDayOf(base);
  const unsigned fields = FieldsOfType(f.type);
  RecurrencePattern p;
  p.RecurrenceType = kTypeFields[f.type].type;
  p.Interval = std::clamp<LONG>(f.interval, 1, kMaxFormInterval);
  if (fields & kFieldDays) p.DayOfWeekMask = (f.day_mask & kAllDays) ? f.day_mask & kAllDays : WeekdayBit(day.weekday);
  if (fields & kFieldDayOfMonth) p.DayOfMonth = std::clamp<LONG>(f.day_of_month, 1, 31);
  if (fields & kFieldInstance) p.Instance = std::clamp<LONG>(f.instance, 1, kLastInstance);
  if (fields & kFieldMonth) p.MonthOfYear = std::clamp<LONG>(f.month, 1, 12);
  p.PatternStartDate = static_cast<DATE>(WholeDay(base));
  switch (f.end) {
    case FormEnd::kNone:
      break;
    case FormEnd::kDate:
      if (f.end_date == kNoDate || WholeDay(f.end_date) < WholeDay(base)) return false;
      p.PatternEndDate = static_cast<DATE>(WholeDay(f.end_date));
      p.NoEndDate = FALSE;
      break;
    case FormEnd::kCount: {
      const DATE last = poom::NthOccurrence(p, std::clamp<LONG>(f.occurrences, 1, kMaxFormOccurrences));
      if (last == kNoDate) return false;
      p.PatternEndDate = last;
      p.NoEndDate = FALSE;
      break;
    }
  }
  p.Occurrences = poom::CountOccurrences(p);
  *out = p;
  return true;
}

FormDescription DescribeForm(const RecurrenceForm& f, DATE base, DATE today) {
  RecurrencePattern p;
  if (!PatternFromForm(f, base, &p)) return {};
  const std::wstring words = MatchRecurrence(&p, base).words;
  FormDescription d;
  d.pattern = p.NoEndDate ? res::FormatId(kEffectiveText, {words, ShortDate(base)})
                          : RecurrenceUntilText(words, ShortDate(p.PatternEndDate), p.Occurrences);
  const DATE next = poom::NextOccurrenceAfter(p, static_cast<DATE>(WholeDay(today) - 1));
  if (next != kNoDate) d.next = res::FormatId(kNextText, {format::RelativeDateText(next, true)});
  return d;
}

}  // namespace velmo
