// "Notes" on the selected task: the notes editor over the whole screen, saved
// through the same commit as the task editor's Done, so edited notes follow the
// same rules (a task whose notes changed with "Resolve Notes synchro." is
// replaced by a fresh copy, a refused save is explained).
#include "app/notes_command.h"

#include <string>

#include "app/main_window_state.h"
#include "editor/commit.h"
#include "editor/commit_dialog_hooks.h"
#include "editor/commit_values.h"
#include "editor/notes_editor.h"
#include "res/command_ids.h"
#include "res/strings.h"
#include "settings/settings.h"
#include "store/connection.h"
#include "store/task_table.h"

namespace velmo::app {

void EditTaskNotes(CEOID oid) {
  const int index = FindTask(oid);
  if (index < 0 || !Store().app) return;
  const Task& record = *Tasks()[static_cast<size_t>(index)];
  ITask* item = nullptr;
  if (FAILED(Store().app->GetItemFromOid(oid, &item)) || !item) return;
  EditorValues values;
  const HRESULT read = EditorValuesOfTask(item, record, CurrentSettings(), &values);
  item->Release();
  if (FAILED(read)) return;
  const std::wstring before = values.notes;
  const std::wstring title = res::Text(cmd::kNotes);
  if (!EditNotesFullScreen(MainWindow().window, title.c_str(), &values.notes) || values.notes == before)
    return;
  CommitTaskById(Store().app, oid, values, DialogCommitHooks(nullptr, MainWindow().window));
}

}  // namespace velmo::app
