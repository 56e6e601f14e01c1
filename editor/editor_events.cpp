// The task editor's answers to its controls: a date changed, the focus moved,
// a list or a check box changed, text typed.
#include "editor/editor_dialog.h"
#include "editor/editor_title.h"
#include "editor/menu_state.h"
#include "platform/ui/button.h"
#include "platform/ui/dialog.h"
#include "platform/ui/edit.h"
#include "platform/ui/menu.h"
#include "platform/ui/message_box.h"
#include "platform/ui/spinner.h"
#include "platform/ui/window.h"
#include "res/dialogs_editor.h"
#include "res/strings.h"

namespace velmo::editor {
namespace {

using namespace res::editor_id;

constexpr UINT kTextTruncatedNotes = 341;
constexpr UINT kTextProgramCaption = 121;

int Selection(EditorDialog* d, int id) {
  const LRESULT at = SendDlgItemMessageW(d->dialog, id, LB_GETCURSEL, 0, 0);
  return at == LB_ERR ? 0 : static_cast<int>(at);
}

bool Checked(EditorDialog* d, int id) {
  return SendDlgItemMessageW(d->dialog, id, BM_GETCHECK, 0, 0) == static_cast<LRESULT>(BST_CHECKED);
}

void ReadSubject(EditorDialog* d) {
  HWND control = GetDlgItem(d->dialog, kSubject);
  std::wstring text(static_cast<size_t>(GetWindowTextLengthW(control)) + 1, L'\0');
  text.resize(static_cast<size_t>(GetWindowTextW(control, text.data(), static_cast<int>(text.size()))));
  d->fields.subject = std::move(text);
}

void WarnTruncatedNotesOnce(EditorDialog* d) {
  if (!d->fields.notes_truncated || d->truncation_warned) return;
  d->truncation_warned = true;
  MessageBoxW(d->dialog, res::Text(kTextTruncatedNotes).c_str(), res::Text(kTextProgramCaption).c_str(),
              MB_OK | MB_ICONWARNING);
}

}  // namespace

void OnDateChanged(EditorDialog* d, int control_id, DATE date) {
  const auto kind = DateFieldOf(control_id);
  if (!kind) return;
  if (date != kNoDate && *kind != DateFieldKind::kReminder) date = static_cast<double>(WholeDay(date));
  if (SetFieldDate(&d->fields, *kind, date, RuleContext()) == DateRuleResult::kRefused) {
    WarningBeep();
    SetFocus(GetDlgItem(d->dialog, kDue));
  }
  ShowDateFields(d);
  ShowOccurs(d);
}

void OnFocusChanged(EditorDialog* d, int control_id) {
  const int old = d->focus_id;
  if (old == control_id) return;
  d->focus_id = control_id;
  if (old == kOccurs) {
    LeaveOccursList(&d->fields, d->fields.occurs.selection, RuleContext());
    ShowDateFields(d);
    ShowOccurs(d);
  }
  if (old == kSubject && !d->compact) {
    ReadSubject(d);
    ShowTitle(d, SubjectTitle(d->fields.subject, false));
  }
  if (d->compact) {
    if (control_id == kSubject) {
      ReadSubject(d);
      ShowTitle(d, SubjectTitle(d->fields.subject, true));
    } else if (const UINT name = FieldNameId(control_id)) {
      ShowTitle(d, res::Text(name));
    }
  }
  UpdateMenuState(d);
}

void OnControlNotified(EditorDialog* d, int id, WORD code) {
  if (d->showing) return;
  switch (id) {
    case kSubject:
      if (code != EN_CHANGE) return;
      ReadSubject(d);
      ShowTitle(d, SubjectTitle(d->fields.subject, d->compact));
      return;
    case kNotes:
      if (code == EN_CHANGE) WarnTruncatedNotesOnce(d);
      return;
    case kPriority: d->fields.priority_index = Selection(d, id); return;
    case kSensitivity: d->fields.sensitivity_index = Selection(d, id); return;
    case kOccurs: d->fields.occurs.selection = Selection(d, id); return;
    case kPrivate: d->fields.private_checked = Checked(d, id); return;
    case kTeamTask: d->fields.team_task = Checked(d, id); return;
    case kCompleted: d->fields.completed = Checked(d, id); return;
    default: return;
  }
}

void UpdateMenuState(EditorDialog* d) {
  if (!d->menu) return;
  const EditorFocus focus = FocusKindOf(d->focus_id);
  for (const EditorCommandRange& range : kEditorMenuCommands) {
    for (UINT command = range.first; command <= range.last; ++command) {
      const bool on = EditorCommandEnabled(command, focus, d->fields.is_new(), d->has_calls);
      EnableMenuItem(d->menu, command, MF_BYCOMMAND | (on ? MF_ENABLED : MF_GRAYED));
    }
  }
}

}  // namespace velmo::editor
