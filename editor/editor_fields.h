// What the task editor shows while it is open: every field's value, the
// pickers' default dates, the remembered reminder, the recurrence choice and
// its end. The dialog shows these and reads the user's changes back into them;
// the rules of the editor (filling, defaults, dates, leaving the Occurs list)
// work on them alone, so they hold without a screen.
#pragma once

#include <optional>
#include <string>

#include "editor/editor_values.h"
#include "editor/occurs_list.h"
#include "platform/recurrence_pattern.h"
#include "platform/oletime.h"
#include "platform/wintypes.h"

namespace velmo {

// A date picker with a none state: its date (kNoDate: empty), the date it
// takes when switched on, and whether it can be used.
struct DateField {
  DATE value = kNoDate;
  DATE fallback = kNoDate;
  bool enabled = true;

  bool empty() const { return value == kNoDate; }
};

// The date fields the date commands act on.
enum class DateFieldKind { kStart, kDue, kReminder, kRecurrenceEnd };

struct EditorFields {
  CEOID oid = 0;  // 0: a new task
  bool is_new() const { return oid == 0; }

  std::wstring subject;
  int priority_index = 1;  // 0 Low, 1 Normal, 2 High
  DateField start, due, reminder, recurrence_end;
  DATE remembered_reminder = kNoDate;
  bool reminder_on_due = false;  // a new task's reminder comes on with its due date

  OccursList occurs;
  int occurs_choice = 0;  // the choice stored when the Occurs list was left
  bool recurrence_enabled = true;  // false on a completed task
  bool end_enabled = false;        // the end controls, off while "Occurs once"
  bool no_end = true;
  LONG occurrences_shown = -1;  // the count the occurrences field shows; -1: none yet
  std::wstring occurrences_text;
  std::optional<RecurrencePattern> pattern;  // the task's own, or one made in the recurrence dialog

  int sensitivity_index = 0;  // full layout: 0 Normal, 1 Private
  bool private_checked = false;
  bool team_task = false;
  bool completed = false;
  std::wstring categories;
  std::wstring notes;
  bool notes_truncated = false;  // synchronisation cut the notes on the device
};

DateField& FieldOf(EditorFields* fields, DateFieldKind kind);
const DateField& FieldOf(const EditorFields& fields, DateFieldKind kind);

// The base date the Occurs list is worded for: the start, else the due date,
// else the pattern's start, else `today`.
DATE OccursBaseDate(const EditorFields& fields, DATE today);

// The values the commit writes.
EditorValues ToEditorValues(const EditorFields& fields, bool compact_layout);

}  // namespace velmo
