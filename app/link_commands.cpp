#include "app/link_commands.h"

#include "app/list_rows.h"
#include "app/main_window_state.h"
#include "app/commands.h"
#include "app/task_changes.h"
#include "links/link_menu.h"
#include "links/links_view.h"
#include "platform/poom.h"
#include "res/command_ids.h"

namespace velmo::app {
namespace {

// The selected task as the link commands read it; its notes only when the
// links in them are wanted (reading them goes through the object model).
bool SelectedLinkTask(bool with_notes, LinkTask* out) {
  const Task* task = SelectedTask();
  if (!task) return false;
  out->subject = task->subject;
  out->phone_number = task->phone_number;
  out->notes.clear();
  if (!with_notes || task->notes_state == kNoNotes) return true;
  ITask* item = nullptr;
  if (FAILED(OpenTaskItem(task->oid, &item)) || !item) return true;
  BSTR body = nullptr;
  if (SUCCEEDED(item->get_Body(&body)) && body) out->notes = body;
  SysFreeString(body);
  item->Release();
  return true;
}

}  // namespace

void AddSelectedTaskLinks(HMENU task_menu) {
  const Task* task = SelectedTask();
  if (!task_menu || !task) return;
  const bool links_in_text = task->web_link_count > 0 || task->mail_link_count > 0;
  LinkTask link_task;
  if (SelectedLinkTask(links_in_text, &link_task)) AddLinkItems(task_menu, link_task);
}

void RunSelectedTaskLink(UINT command) {
  LinkTask task;
  if (!SelectedLinkTask(true, &task)) return;
  if (command != cmd::kLinksView) {
    RunLinkCommand(MainWindow().window, command, task);
  } else if (ShowLinksView(MainWindow().window, task) == cmd::kEdit) {
    SendCommand(cmd::kEdit);
  }
}

}  // namespace velmo::app
