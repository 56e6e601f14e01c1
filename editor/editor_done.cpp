// Done in the task editor: the date rules once more, then the commit. A refused
// save keeps the dialog and every field as the user left them.
#include "editor/commit.h"
#include "editor/commit_dialog_hooks.h"
#include "editor/editor_dialog.h"
#include "editor/occurrence_counter.h"
#include "platform/clock.h"
#include "platform/ui/message_box.h"
#include "platform/ui/window.h"
#include "res/dialogs_editor.h"
#include "settings/settings.h"
#include "store/connection.h"

namespace velmo::editor {
namespace {

bool RefuseDueDate(EditorDialog* d) {
  WarningBeep();
  ShowDateFields(d);
  ShowOccurs(d);
  SetFocus(GetDlgItem(d->dialog, res::editor_id::kDue));
  return false;
}

}  // namespace

DateRuleContext RuleContext() {
  DateRuleContext context;
  context.outlook_dates = CurrentSettings().dates_input == 1;
  context.today = static_cast<double>(WholeDay(NowAsDate()));
  context.count_occurrences = [today = context.today](const EditorFields& f) {
    return CountOccurrencesOnScratchTask(Store().app, f, today);
  };
  return context;
}

bool CommitFromEditor(EditorDialog* d) {
  ReadTextFields(d);
  EditorFields& f = d->fields;
  const DateRuleContext context = RuleContext();
  if (const auto kind = DateFieldOf(d->focus_id)) {
    if (SetFieldDate(&f, *kind, FieldOf(f, *kind).value, context) == DateRuleResult::kRefused)
      return RefuseDueDate(d);
  }
  if (RecheckDueDate(&f, context) == DateRuleResult::kRefused) return RefuseDueDate(d);
  if (f.recurrence_enabled) LeaveOccursList(&f, f.occurs.selection, context);
  ShowDateFields(d);
  ShowOccurs(d);
  const HRESULT result = CommitTaskById(Store().app, f.oid, ToEditorValues(f, d->compact),
                                        DialogCommitHooks(d->dialog, Store().window));
  return result == S_OK;
}

}  // namespace velmo::editor
