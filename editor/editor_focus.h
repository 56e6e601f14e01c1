// Which kind of field has the focus in the task editor: the menu's entries and
// the keys act by it.
#pragma once

#include <optional>

#include "editor/editor_fields.h"

namespace velmo {

enum class EditorFocus { kText, kDate, kRecurrenceEnd, kNotes, kOther };

// By control identifier.
EditorFocus FocusKindOf(int control_id);
// The date field of a date control, if it is one.
std::optional<DateFieldKind> DateFieldOf(int control_id);
// The date control of a date field.
int ControlOfDateField(DateFieldKind kind);

}  // namespace velmo
