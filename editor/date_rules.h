// The editor's date rules: what else changes when the start, due, reminder or
// recurrence-end date changes, the refusal of a due date before the start, and
// leaving the Occurs list (the due date from the start, the end controls, the
// occurrences counted again).
#pragma once

#include <functional>

#include "editor/editor_fields.h"
#include "platform/wintypes.h"

namespace velmo {

struct DateRuleContext {
  bool outlook_dates = true;  // DatesInput = 1: the dates move with the start
  DATE today = 0;
  // The occurrences of the fields' recurrence choice, counted on a scratch task.
  std::function<LONG(const EditorFields&)> count_occurrences;
};

enum class DateRuleResult { kApplied, kRefused };

// Puts `date` (kNoDate: empty) into a date field and applies its rules. A due
// date before a set start date is refused: in the Outlook mode the due date
// becomes the start date, otherwise it stays as given; either way the caller
// beeps and puts the focus on the due field.
DateRuleResult SetFieldDate(EditorFields* fields, DateFieldKind kind, DATE date,
                            const DateRuleContext& context);

// Done's second look at the dates: the due date against the start date.
DateRuleResult RecheckDueDate(EditorFields* fields, const DateRuleContext& context);

// The Occurs list was left on `choice`.
void LeaveOccursList(EditorFields* fields, int choice, const DateRuleContext& context);

// Counts the occurrences again when the recurrence has an end, and words the
// occurrences field: "%1 occur.", or "No End".
void RecountOccurrences(EditorFields* fields, const DateRuleContext& context);

}  // namespace velmo
