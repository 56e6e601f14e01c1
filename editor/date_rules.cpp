#include "editor/date_rules.h"

#include "editor/recurrence_choices.h"
#include "editor/recurrence_words.h"

namespace velmo {
namespace {

// The days between two dates' whole days.
long DaysMoved(DATE from, DATE to) { return WholeDay(to) - WholeDay(from); }

void MoveBy(DATE* date, long days) {
  if (*date != kNoDate) *date += static_cast<double>(days);
}

void Reword(EditorFields* f, const DateRuleContext& c) { FillOccursList(&f->occurs, OccursBaseDate(*f, c.today)); }

DateRuleResult SetDue(EditorFields* f, DATE date, const DateRuleContext& c) {
  if (date != kNoDate && !f->start.empty() && WholeDay(date) < WholeDay(f->start.value)) {
    f->due.value = c.outlook_dates ? f->start.value : date;
    f->due.fallback = f->due.value;
    return DateRuleResult::kRefused;
  }
  const DATE old = f->due.value;
  f->due.value = date;
  if (date == kNoDate) {
    f->reminder.enabled = false;  // kept as it is: the save tells why it cannot stand
    Reword(f, c);
    return DateRuleResult::kApplied;
  }
  f->due.fallback = date;
  if (c.outlook_dates) {
    if (old != kNoDate) MoveBy(&f->remembered_reminder, DaysMoved(old, date));
    if (f->start.empty()) f->start.fallback = date;
  }
  f->reminder.enabled = true;
  if (f->reminder.empty()) f->reminder.fallback = f->remembered_reminder;
  if (f->reminder_on_due && f->is_new() && f->reminder.empty())
    f->reminder.value = f->remembered_reminder;
  Reword(f, c);
  return DateRuleResult::kApplied;
}

void SetStart(EditorFields* f, DATE date, const DateRuleContext& c) {
  const DATE old = f->start.value;
  f->start.value = date;
  if (date != kNoDate) f->start.fallback = date;
  if (c.outlook_dates && old != kNoDate && date != kNoDate) {
    const long days = DaysMoved(old, date);
    MoveBy(&f->due.value, days);
    if (!f->due.empty()) f->due.fallback = f->due.value;
    MoveBy(&f->remembered_reminder, days);
    MoveBy(&f->reminder.value, days);
    if (!f->no_end) MoveBy(&f->recurrence_end.value, days);
  }
  Reword(f, c);
  RecountOccurrences(f, c);
}

}  // namespace

DateRuleResult SetFieldDate(EditorFields* f, DateFieldKind kind, DATE date,
                            const DateRuleContext& c) {
  switch (kind) {
    case DateFieldKind::kStart:
      SetStart(f, date, c);
      return DateRuleResult::kApplied;
    case DateFieldKind::kDue:
      return SetDue(f, date, c);
    case DateFieldKind::kReminder:
      f->reminder.value = date;
      if (date != kNoDate) f->remembered_reminder = f->reminder.fallback = date;
      return DateRuleResult::kApplied;
    case DateFieldKind::kRecurrenceEnd:
      f->recurrence_end.value = date;
      f->no_end = date == kNoDate;
      RecountOccurrences(f, c);
      return DateRuleResult::kApplied;
  }
  return DateRuleResult::kApplied;
}

DateRuleResult RecheckDueDate(EditorFields* f, const DateRuleContext& c) {
  if (f->due.empty()) return DateRuleResult::kApplied;
  return SetDue(f, f->due.value, c);
}

void LeaveOccursList(EditorFields* f, int choice, const DateRuleContext& c) {
  f->occurs_choice = choice;
  if (choice == kOccursOnce) {
    f->end_enabled = f->recurrence_end.enabled = false;
    f->no_end = true;
    f->recurrence_end.value = kNoDate;
    f->occurrences_shown = -1;
    f->occurrences_text.clear();
    return;
  }
  if (f->due.empty()) SetDue(f, f->start.empty() ? f->start.fallback : f->start.value, c);
  f->end_enabled = f->recurrence_end.enabled = f->recurrence_enabled;
  if (f->recurrence_end.empty()) f->recurrence_end.fallback = OccursBaseDate(*f, c.today);
  RecountOccurrences(f, c);
}

void RecountOccurrences(EditorFields* f, const DateRuleContext& c) {
  if (f->occurs_choice == kOccursOnce) return;
  const LONG count = f->no_end || !c.count_occurrences ? 0 : c.count_occurrences(*f);
  if (count == f->occurrences_shown) return;
  f->occurrences_shown = count;
  f->occurrences_text = OccurrencesText(count);
}

}  // namespace velmo
