// "Notes" on the selected task.
#include "app/notes_command.h"

#include <string>

#include "app/main_window_state.h"
#include "app/task_changes.h"
#include "app/task_commands.h"
#include "editor/notes_editor.h"
#include "res/command_ids.h"
#include "res/strings.h"
#include "store/store_messages.h"

namespace velmo::app {

void EditTaskNotes(CEOID oid) {
  ITask* item = nullptr;
  if (FAILED(OpenTaskItem(oid, &item)) || !item) return;
  BSTR body = nullptr;
  std::wstring notes;
  if (SUCCEEDED(item->get_Body(&body)) && body) notes = body;
  SysFreeString(body);
  const std::wstring before = notes;
  const std::wstring title = res::Text(cmd::kNotes);
  if (EditNotesFullScreen(MainWindow().window, title.c_str(), &notes) && notes != before) {
    item->put_Body(notes.c_str());
    const HRESULT result = item->Save();
    if (FAILED(result)) {
      ShowSaveFailure(result, cmd::kNotes);
    } else {
      PostTaskWritten(MainWindow().window, oid);
    }
  }
  item->Release();
}

}  // namespace velmo::app
