#include "editor/recurrence_words.h"

#include <string>

#include "editor/day_names.h"
#include "editor/recurrence_choices.h"
#include "res/strings.h"

namespace velmo {
namespace {

constexpr UINT kFirstInstanceWord = 181;  // "1st" .. "Last" are 181-185
constexpr UINT kCustomPatternText = 180;

struct NamedMask {
  LONG mask;
  UINT text;
};
constexpr NamedMask kNamedMasks[] = {{kAllDays, 186}, {kMondayToFriday, 187}, {kSaturdayAndSunday, 188}};
constexpr UINT kAndText = 189;

std::wstring Number(LONG n) { return std::to_wstring(n); }

std::wstring ChoiceText(const RecurrenceChoice& c, const BaseDay& b) {
  const std::wstring weekday = LongWeekdayName(b.weekday);
  switch (c.inserts) {
    case ChoiceInserts::kNone: return res::Text(c.text);
    case ChoiceInserts::kWeekday: return res::FormatId(c.text, {weekday});
    case ChoiceInserts::kWeekdayInterval: return res::FormatId(c.text, {weekday, Number(c.interval)});
    case ChoiceInserts::kWeekOfMonth:
      return res::FormatId(c.text, {InstanceWord(InstanceOfDay(b.day)), weekday});
    case ChoiceInserts::kDay: return res::FormatId(c.text, {Number(b.day)});
    case ChoiceInserts::kDayInterval: return res::FormatId(c.text, {Number(b.day), Number(c.interval)});
    case ChoiceInserts::kMonthAndDay: return res::FormatId(c.text, {LongMonthName(b.month), Number(b.day)});
  }
  return {};
}

// A pattern that is none of the fixed choices, in words.
RecurrenceMatch Custom(std::wstring words) { return {kCustomPattern, std::move(words)}; }

// The fixed choice a pattern is, or kCustomPattern with the pattern's words.
RecurrenceMatch MatchFields(const RecurrencePattern& p, LONG base_bit) {
  const LONG n = p.Interval;
  const std::wstring days = DayMaskWords(p.DayOfWeekMask);
  switch (p.RecurrenceType) {
    case kRecursDaily:
      if (n == 1) return {1, {}};
      if (n <= 0 && p.DayOfWeekMask == kMondayToFriday) return Custom(res::Text(170));
      return Custom(res::FormatId(168, {Number(n)}));
    case kRecursWeekly:
      if (p.DayOfWeekMask == base_bit && n >= 1 && n <= 4) return {1 + static_cast<int>(n), {}};
      if (p.DayOfWeekMask != base_bit && n >= kMinutesPerWeek)
        return Custom(res::FormatId(175, {Number(n / kMinutesPerWeek)}));
      if (p.DayOfWeekMask != base_bit && n == 1) return Custom(res::FormatId(174, {days}));
      return Custom(res::FormatId(173, {days, Number(n)}));
    case kRecursMonthly:
      if (n >= 1 && n <= 4) return {6 + static_cast<int>(n), {}};
      if (n == 6) return {11, {}};
      return Custom(res::FormatId(177, {Number(p.DayOfMonth), Number(n)}));
    case kRecursMonthNth:
      if (n == 1 && p.DayOfWeekMask == base_bit) return {6, {}};
      if (n == 1) return Custom(res::FormatId(171, {InstanceWord(p.Instance), days}));
      return Custom(res::FormatId(172, {InstanceWord(p.Instance), days, Number(n)}));
    case kRecursYearly: return {12, {}};
    case kRecursYearNth:
      return Custom(res::FormatId(179, {InstanceWord(p.Instance), days, LongMonthName(p.MonthOfYear)}));
    default: return Custom({});
  }
}

}  // namespace

std::wstring DayMaskWords(LONG mask) {
  for (const NamedMask& named : kNamedMasks)
    if (mask == named.mask) return res::Text(named.text);
  std::wstring names[7];
  int count = 0;
  for (int day = 0; day < 7; ++day)
    if (mask & WeekdayBit(day)) names[count++] = LongWeekdayName(day);
  std::wstring words;
  for (int i = 0; i < count; ++i) {
    if (i > 0) words += i + 1 == count ? L" " + res::Text(kAndText) + L" " : L", ";
    words += names[i];
  }
  return words;
}

std::wstring InstanceWord(LONG instance) {
  if (instance < 1 || instance > kLastInstance) return {};
  return res::Text(kFirstInstanceWord + static_cast<UINT>(instance) - 1);
}

std::wstring RecurrenceChoiceText(int choice, DATE base) {
  if (choice < 0 || choice >= kFixedChoices) return res::Text(kCustomPatternText);
  return ChoiceText(kRecurrenceChoices[choice], BaseDayOf(base));
}

RecurrenceMatch MatchRecurrence(const RecurrencePattern* pattern, DATE base) {
  if (!pattern) return {kOccursOnce, RecurrenceChoiceText(kOccursOnce, base)};
  RecurrenceMatch match = MatchFields(*pattern, WeekdayBit(BaseDayOf(base).weekday));
  if (match.choice != kCustomPattern) {
    const DATE start = pattern->PatternStartDate != kNoDate ? pattern->PatternStartDate : base;
    match.words = RecurrenceChoiceText(match.choice, start);
  }
  return match;
}

std::wstring OccurrencesText(LONG count) {
  return count > 0 ? res::FormatId(192, {Number(count)}) : res::Text(193);
}

std::wstring RecurrenceUntilText(const std::wstring& words, const std::wstring& until, LONG count) {
  return res::FormatId(count == 1 ? 190 : 191, {words, until, Number(count)});
}

}  // namespace velmo
