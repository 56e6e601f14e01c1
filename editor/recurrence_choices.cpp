#include "editor/recurrence_choices.h"

namespace velmo {

const RecurrenceChoice kRecurrenceChoices[kFixedChoices] = {
    {166, kRecursDaily, 0, ChoiceInserts::kNone},               // Occurs once
    {167, kRecursDaily, 1, ChoiceInserts::kNone},               // Every day
    {169, kRecursWeekly, 1, ChoiceInserts::kWeekday},           // Every Monday
    {173, kRecursWeekly, 2, ChoiceInserts::kWeekdayInterval},   // Every 2 weeks on Monday
    {173, kRecursWeekly, 3, ChoiceInserts::kWeekdayInterval},
    {173, kRecursWeekly, 4, ChoiceInserts::kWeekdayInterval},
    {171, kRecursMonthNth, 1, ChoiceInserts::kWeekOfMonth},     // 2nd Monday of every month
    {176, kRecursMonthly, 1, ChoiceInserts::kDay},              // Day 15 of every month
    {177, kRecursMonthly, 2, ChoiceInserts::kDayInterval},      // Day 15 of every 2 months
    {177, kRecursMonthly, 3, ChoiceInserts::kDayInterval},
    {177, kRecursMonthly, 4, ChoiceInserts::kDayInterval},
    {177, kRecursMonthly, 6, ChoiceInserts::kDayInterval},      // no 5-month choice
    {178, kRecursYearly, 1, ChoiceInserts::kMonthAndDay},       // Every January 15
};

BaseDay BaseDayOf(DATE date) {
  SYSTEMTIME st{};
  if (!VariantTimeToSystemTime(date, &st)) return {};
  return {st.wDayOfWeek, st.wDay, st.wMonth};
}

}  // namespace velmo
