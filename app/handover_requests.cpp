#include "app/handover_requests.h"

#include "app/dismiss_dialogs.h"
#include "app/list_rows.h"
#include "app/main_window_state.h"
#include "categories/category_state.h"
#include "list/list_state.h"
#include "app/entry_box.h"
#include "list/view_ids.h"
#include "platform/ui/menu.h"
#include "platform/ui/message_queue.h"
#include "platform/ui/window.h"
#include "res/command_ids.h"
#include "settings/settings.h"
#include "store/task_table.h"

namespace velmo::app {
namespace {

void Command(UINT command, LPARAM lparam = 0) {
  SendMessageW(MainWindow().window, WM_COMMAND, MAKEWPARAM(static_cast<WORD>(command), 0), lparam);
}

bool AtDefaultViewAndFilter() {
  const Settings& s = CurrentSettings();
  return CurrentView() == s.selected_view && CurrentFilterText() == s.filter_categories;
}

void SelectAndMaybeOpen(CEOID oid, bool open) {
  if (SelectTaskAnywhere(oid) && open) {
    // Posted: the sender waits for this message, not for the task's dialog.
    PostMessageW(MainWindow().window, WM_COMMAND, cmd::kView, 0);
  }
}

void ShowToday() {
  if (!CategoryFilterList().empty()) {
    // The filter stays: only the view changes.
    SetView(kViewToday);
    UpdateAtDefaultState();
    RebuildList();
  } else if (CurrentView() != kViewToday) {
    Command(kViewToday);
  }
}

}  // namespace

bool SelectTaskAnywhere(CEOID oid) {
  if (FindTask(oid) < 0) return false;
  if (SelectTaskRow(oid)) return true;
  if (!AtDefaultViewAndFilter()) {
    Command(kCmdDefaultView);
    if (SelectTaskRow(oid)) return true;
  }
  if (CurrentView() == kViewAllTasks && CategoryFilterList().empty()) return false;
  SetView(kViewAllTasks);
  Command(cmd::kAllCategories, cmd::kForcedRebuild);
  return SelectTaskRow(oid);
}

void CarryOutHandover(const HandoverRequest& request) {
  if (IsIgnoredHandover(request.code)) return;
  MainWindowState& w = MainWindow();
  EndMenu();
  DismissOpenDialogs(w.window);
  SetForegroundWindow(w.window);
  if (w.entry && InEntryMode()) LeaveEntryMode(w.entry);
  switch (request.code) {
    case kHandoverSelect:
    case kHandoverSelectAndOpen:
      SelectAndMaybeOpen(request.task_oid, request.code == kHandoverSelectAndOpen);
      break;
    case kHandoverToday:
      ShowToday();
      break;
    case kHandoverDefaultView:
      if (!AtDefaultViewAndFilter()) Command(kCmdDefaultView);
      break;
    case kHandoverNewTask:
      PostMessageW(w.window, WM_COMMAND, cmd::kNew, 0);  // the sender does not wait for the editor
      break;
    default:
      break;
  }
}

LRESULT OnCopyData(const COPYDATASTRUCT* data) {
  if (!data) return 0;
  const DWORD size = data->cbData;
  const size_t available = data->lpData ? size : 0;
  CarryOutHandover(DecodeHandover(data->dwData, size, static_cast<const BYTE*>(data->lpData),
                                  available));
  return 1;
}

}  // namespace velmo::app
