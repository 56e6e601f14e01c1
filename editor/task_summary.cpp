// The task summary dialog: the page of the task, "Edit" on the left soft key
// (and the action key), the task's commands behind "Menu". Whatever command is
// chosen ends the dialog with it, and the main window carries it out.
#include "editor/task_summary.h"

#include "app/menus.h"
#include "editor/summary_page.h"
#include "editor/summary_read.h"
#include "platform/ui/dialog.h"
#include "platform/ui/menu.h"
#include "platform/ui/message_queue.h"
#include "platform/ui/softkey_bar.h"
#include "platform/ui/window.h"
#include "res/command_ids.h"
#include "res/dialogs_views.h"
#include "res/menus_app.h"
#include "res/strings.h"
#include "store/connection.h"

namespace velmo {
namespace {

// Results below this are the dialog's own (IDOK, IDCANCEL ...), not commands.
constexpr INT_PTR kFirstCommandResult = 11;

struct SummaryState {
  SummaryTask task;
  HMENU menu = nullptr;
};

// The menu's marks follow the task: "Activate" for a completed one, and its priority.
void MarkMenu(HMENU menu, const SummaryTask& task) {
  const std::wstring complete = res::Text(task.complete ? res::kTextActivate : res::kTextComplete);
  ModifyMenuW(menu, cmd::kCompleteOrActivate, MF_BYCOMMAND | MF_STRING, cmd::kCompleteOrActivate,
              complete.c_str());
  const UINT priority = task.importance == 2 ? cmd::kHigh : task.importance == 0 ? cmd::kLow : cmd::kNormal;
  CheckMenuRadioItem(menu, cmd::kHigh, cmd::kLow, priority, MF_BYCOMMAND);
}

void MakeSoftKeys(HWND dialog, SummaryState* state) {
  state->menu = app::BuildMenu(*res::kTaskSummaryBar.right.menu);
  MarkMenu(state->menu, state->task);
  const std::wstring edit = res::Text(res::kTaskSummaryBar.left.text_id);
  const std::wstring menu = res::Text(res::kTaskSummaryBar.right.text_id);
  SOFTKEY left{edit.c_str(), res::kTaskSummaryBar.left.command, nullptr};
  SOFTKEY right{menu.c_str(), 0, state->menu};
  CreateSoftKeyBar(dialog, &left, &right);
}

INT_PTR SummaryProc(HWND dialog, UINT msg, WPARAM wparam, LPARAM lparam) {
  switch (msg) {
    case WM_INITDIALOG: {
      auto* state = reinterpret_cast<SummaryState*>(lparam);
      SetWindowLongPtrW(dialog, DWLP_USER, lparam);
      HWND page = GetDlgItem(dialog, res::kTaskSummaryPage);
      SendMessageW(page, kMsgSummarySetTask, 0, reinterpret_cast<LPARAM>(&state->task));
      MakeSoftKeys(dialog, state);
      SetFocus(page);
      return FALSE;
    }
    case WM_COMMAND: {
      const UINT command = LOWORD(wparam);
      if (command == IDOK) {
        EndDialog(dialog, cmd::kEdit);  // the action key opens the task
      } else if (command == IDCANCEL) {
        EndDialog(dialog, 0);
      } else if (command >= kFirstCommandResult) {
        EndDialog(dialog, command);
      } else {
        return FALSE;
      }
      return TRUE;
    }
    default:
      return FALSE;
  }
}

}  // namespace

INT_PTR ShowTaskSummary(HWND owner, CEOID oid) {
  SummaryState state;
  ITask* item = nullptr;
  if (!Store().app || FAILED(Store().app->GetItemFromOid(oid, &item)) || !item) return 0;
  const HRESULT read = ReadSummaryTask(item, &state.task);
  item->Release();
  if (FAILED(read)) return 0;
  RegisterSummaryPage();
  const res::LoadedDialog dialog(res::kTaskSummaryDialog);
  const INT_PTR result = DialogBoxIndirectParamW(nullptr, dialog.get(), owner, SummaryProc,
                                                 reinterpret_cast<LPARAM>(&state));
  if (state.menu) DestroyMenu(state.menu);
  return result < 0 ? 0 : result;
}

}  // namespace velmo
