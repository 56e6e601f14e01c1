#include "editor/editor_focus.h"

#include "res/dialogs_editor.h"

namespace velmo {
namespace {

using namespace res::editor_id;

struct DateControl {
  int id;
  DateFieldKind kind;
};
constexpr DateControl kDateControls[] = {
    {kStart, DateFieldKind::kStart},
    {kDue, DateFieldKind::kDue},
    {kReminder, DateFieldKind::kReminder},
    {kRecurrenceEnd, DateFieldKind::kRecurrenceEnd},
};

}  // namespace

EditorFocus FocusKindOf(int id) {
  if (id == kSubject) return EditorFocus::kText;
  if (id == kNotes) return EditorFocus::kNotes;
  if (id == kRecurrenceEnd) return EditorFocus::kRecurrenceEnd;
  return DateFieldOf(id) ? EditorFocus::kDate : EditorFocus::kOther;
}

std::optional<DateFieldKind> DateFieldOf(int id) {
  for (const DateControl& c : kDateControls)
    if (c.id == id) return c.kind;
  return std::nullopt;
}

int ControlOfDateField(DateFieldKind kind) {
  for (const DateControl& c : kDateControls)
    if (c.kind == kind) return c.id;
  return 0;
}

}  // namespace velmo
