#include "store/store_session.h"

#include "res/strings.h"
#include "store/connection.h"
#include "store/other_categories.h"
#include "store/store_messages.h"
#include "store/task_table.h"
#include "store/welcome_task.h"

namespace velmo {
namespace {
constexpr UINT kProgramTitle = 121;
constexpr UINT kErrorTaskNotification = 820;
}  // namespace

BOOL LogOnObjectModel(HWND window) {
  StoreConnection& store = Store();
  if (store.app) return TRUE;
  if (FAILED(CreatePOutlookApp(&store.app)) || !store.app) return FALSE;
  if (FAILED(store.app->Logon(window))) {
    store.app->Release();
    store.app = nullptr;
    return FALSE;
  }
  return TRUE;
}

void LogOffObjectModel() {
  StoreConnection& store = Store();
  if (store.folder) store.folder->Release();
  store.folder = nullptr;
  if (store.app) {
    store.app->Logoff();
    store.app->Release();
  }
  store.app = nullptr;
}

BOOL OpenConnection(HWND window) {
  StoreConnection& store = Store();
  store.window = window;
  if (!LogOnObjectModel(window)) return FALSE;
  if (FAILED(store.app->GetDefaultFolder(olFolderTasks, &store.folder)) || !store.folder) {
    store.folder = nullptr;
    return FALSE;
  }
  if (const CEOID welcome = MakeWelcomeTaskOnFirstRun(store.app)) store.welcome_task = welcome;
  if (!OpenTasksDatabase(window, kTasksNotifyParam))
    ShowStoreMessage(window, res::Text(kErrorTaskNotification), res::Text(kProgramTitle),
                     kStyleInformation);
  ProvideOtherDatabaseCategories();
  store.reload = true;
  LoadTaskTable();
  return TRUE;
}

void CloseConnection() {
  CloseTasksDatabase();
  LogOffObjectModel();
  Store().window = nullptr;
}

}  // namespace velmo
