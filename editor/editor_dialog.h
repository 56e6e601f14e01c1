// The task editor dialog's own state and the pieces of its procedure, each in
// a file of its own: showing the fields in the controls, the commands of its
// menu, its keys, Done, and the procedure that joins them.
#pragma once

#include <string>
#include <unordered_map>

#include "editor/date_rules.h"
#include "editor/editor_fields.h"
#include "editor/editor_focus.h"
#include "platform/ui/types.h"

namespace velmo::editor {

struct EditorDialog {
  HWND dialog = nullptr;
  HMENU menu = nullptr;  // the right soft key's menu
  bool compact = false;
  EditorFields fields;
  int focus_id = 0;       // the control with the focus
  bool truncation_warned = false;
  bool showing = false;   // the controls are being set: their changes are not the user's
  DWORD input_mode = 1;
  bool has_calls = false;  // the phone's call history had calls when the editor opened
  std::unordered_map<HWND, WNDPROC> control_procs;  // the controls' own procedures
};

EditorDialog* DialogState(HWND dialog);

// The rules' context: the DatesInput setting, today, the scratch-task count.
DateRuleContext RuleContext();

// Showing the fields in the controls.
void SetUpControls(EditorDialog* d);
void ShowAllFields(EditorDialog* d);
void ShowDateFields(EditorDialog* d);
void ShowOccurs(EditorDialog* d);
void ShowRecurrenceEnd(EditorDialog* d);
void ShowTitle(EditorDialog* d, const std::wstring& title);
void LayOut(EditorDialog* d);
// Reads the texts the controls keep only for themselves (subject, notes).
void ReadTextFields(EditorDialog* d);

// A date control changed (typed, or switched on or off).
void OnDateChanged(EditorDialog* d, int control_id, DATE date);
// The focus moved to `control_id`.
void OnFocusChanged(EditorDialog* d, int control_id);
// A control reported a change (WM_COMMAND notification).
void OnControlNotified(EditorDialog* d, int control_id, WORD code);

// The menu's and the keys' commands; false for a command that is not the editor's.
bool RunEditorCommand(EditorDialog* d, UINT command);
void UpdateMenuState(EditorDialog* d);

// The warning beep of a refused date.
void WarningBeep();

// Done: the date rules again, then the commit. True when the dialog may end.
bool CommitFromEditor(EditorDialog* d);

// Runs the dialog over `d`'s fields; its result (0 when it could not be made).
INT_PTR RunEditorDialog(HWND owner, EditorDialog* d);

// The controls' keys the editor takes first: volume, talk, record, Enter on
// a date or the notes, and the first letter typed into an empty text field.
void SubclassControls(EditorDialog* d);

}  // namespace velmo::editor
