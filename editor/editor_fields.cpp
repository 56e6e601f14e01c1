#include "editor/editor_fields.h"

#include "editor/recurrence_choices.h"
#include "editor/recurrence_writer.h"

namespace velmo {

DateField& FieldOf(EditorFields* fields, DateFieldKind kind) {
  switch (kind) {
    case DateFieldKind::kStart: return fields->start;
    case DateFieldKind::kDue: return fields->due;
    case DateFieldKind::kReminder: return fields->reminder;
    case DateFieldKind::kRecurrenceEnd: break;
  }
  return fields->recurrence_end;
}

const DateField& FieldOf(const EditorFields& fields, DateFieldKind kind) {
  return FieldOf(const_cast<EditorFields*>(&fields), kind);
}

DATE OccursBaseDate(const EditorFields& fields, DATE today) {
  const DATE otherwise =
      fields.pattern && fields.pattern->PatternStartDate != kNoDate ? fields.pattern->PatternStartDate
                                                                    : today;
  return RecurrenceBaseDate(fields.start.value, fields.due.value, otherwise);
}

EditorValues ToEditorValues(const EditorFields& fields, bool compact_layout) {
  EditorValues v;
  v.subject = fields.subject;
  v.priority_index = fields.priority_index;
  v.start = fields.start.value;
  v.due = fields.due.value;
  v.reminder = fields.reminder.value;
  v.remembered_reminder = fields.remembered_reminder;
  v.occurs_choice = fields.occurs.selection;
  v.recurrence_end = fields.no_end ? kNoDate : fields.recurrence_end.value;
  if (v.occurs_choice == kCustomPattern) v.custom_pattern = fields.pattern;
  v.compact_layout = compact_layout;
  v.sensitivity_index = fields.sensitivity_index;
  v.private_checked = fields.private_checked;
  v.team_task = fields.team_task;
  v.completed = fields.completed;
  v.categories = fields.categories;
  v.notes = fields.notes;
  return v;
}

}  // namespace velmo
