// Which entries of the editor's menu can be chosen: "Insert" only while a text
// field has the focus, the date commands only while a date field has it ("Date
// Picker..." on the end of recurrence too), "Delete Task" only for a task that
// exists, "Call History" only while the phone's call history has calls.
#pragma once

#include "editor/editor_focus.h"
#include "platform/wintypes.h"

namespace velmo {

bool EditorCommandEnabled(UINT command, EditorFocus focus, bool is_new, bool has_calls);

// Every command the menu state decides, for walking the menu.
struct EditorCommandRange {
  UINT first;
  UINT last;
};
extern const EditorCommandRange kEditorMenuCommands[5];

}  // namespace velmo
