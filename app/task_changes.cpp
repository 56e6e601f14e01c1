#include "app/task_changes.h"

#include <algorithm>

#include "app/list_rows.h"
#include "app/main_window_state.h"
#include "platform/ui/message_box.h"
#include "platform/ui/message_queue.h"
#include "platform/ui/timers.h"
#include "store/connection.h"
#include "store/task_table.h"

namespace velmo::app {
namespace {

constexpr wchar_t kOpenCaption[] = L"CeOpenDatabaseEx";

bool IsDatabaseItself(const CENOTIFICATION& n) {
  return n.oidParent == 0 || n.oid == Store().tasks_db_oid;
}

}  // namespace

void ScheduleRebuild() {
  MainWindowState& w = MainWindow();
  if (w.rebuild_posted || !w.window) return;
  w.rebuild_posted = PostMessageW(w.window, kMsgRebuildList, 0, 0) != FALSE;
}

void RereadTask(CEOID oid, bool select) {
  if (!oid) return;
  if (select) MainWindow().select_after_rebuild = oid;
  const int index = FindTask(oid);
  if (index >= 0) {
    if (!ReadTask(Tasks()[static_cast<size_t>(index)].get(), oid, true)) ForgetTask(oid);
  } else if (Tasks().size() < kMaxTasks) {
    ReadTask(nullptr, oid, true);
  }
  ScheduleRebuild();
}

void ForgetTask(CEOID oid) {
  const int index = FindTask(oid);
  if (index < 0) return;
  DetachListRows();
  Tasks().erase(Tasks().begin() + index);
  ScheduleRebuild();
}

void ReloadTasksNow() {
  DetachListRows();
  Store().reload = true;
  LoadTaskTable();
  ScheduleRebuild();
}

void ScheduleReload() {
  Store().reload = true;
  SetTimer(MainWindow().window, kReloadTimer, kReloadDelayMs, nullptr);
}

void OnReloadTimer() {
  MainWindowState& w = MainWindow();
  KillTimer(w.window, kReloadTimer);
  if (w.database_lost) {
    CloseTasksDatabase();
    if (!OpenTasksDatabaseHandle(w.window, true, kTasksNotifyParam)) {
      SetTimer(w.window, kReloadTimer, kReloadDelayMs, nullptr);
      return;
    }
    w.database_lost = false;
    Store().reload = true;
  }
  if (!Store().reload) return;
  DetachListRows();
  LoadTaskTable();
  ScheduleRebuild();
}

void OnDatabaseChange(UINT type, CENOTIFICATION* notification) {
  if (!notification) return;
  const CENOTIFICATION n = *notification;
  CeFreeNotification(nullptr, notification);
  if (MainWindow().database_lost) return;
  switch (type) {
    case DB_CEOID_DATABASE_DELETED:
      OnDatabaseLost();
      break;
    case DB_CEOID_RECORD_DELETED:
      ForgetTask(n.oid);
      break;
    case DB_CEOID_CREATED:
    case DB_CEOID_CHANGED:
      if (IsDatabaseItself(n)) {
        ReloadTasksNow();  // more changes than the journal keeps
      } else {
        RereadTask(n.oid);
      }
      break;
    default:
      break;
  }
}

void OnDatabaseLost() {
  MainWindowState& w = MainWindow();
  if (w.database_lost) return;
  w.database_lost = true;
  const std::wstring name = Store().tasks_name;
  DetachListRows();
  FreeTaskTable();
  CloseTasksDatabase();
  SetTimer(w.window, kReloadTimer, kReloadDelayMs, nullptr);
  ScheduleRebuild();
  MessageBoxW(w.window, name.c_str(), kOpenCaption, MB_ICONINFORMATION);
}

HRESULT OpenTaskItem(CEOID oid, ITask** item) {
  *item = nullptr;
  IPOutlookApp* app = Store().app;
  const HRESULT result = app ? app->GetItemFromOid(oid, item) : E_POINTER;
  if (FAILED(result) || !*item) {
    *item = nullptr;
    ScheduleReload();
    return FAILED(result) ? result : E_FAIL;
  }
  return S_OK;
}

}  // namespace velmo::app
