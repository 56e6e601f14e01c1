#include "store/connection.h"

#include "settings/settings.h"
#include "store/store_messages.h"

namespace velmo {
namespace {
constexpr wchar_t kOpenCaption[] = L"CeOpenDatabaseEx";
}  // namespace

StoreConnection& Store() {
  static StoreConnection connection;
  return connection;
}

bool MountTasksVolume() {
  StoreConnection& store = Store();
  const Settings& s = CurrentSettings();
  store.tasks_name = s.tasks_database;
  store.contacts_name = s.contacts_database;
  store.appointments_name = s.appointments_database;
  if (store.mounted) return true;
  store.mounted = CeMountDBVol(&store.volume, s.db_path.c_str(), OPEN_EXISTING) != FALSE;
  if (!store.mounted) CREATE_INVALIDGUID(&store.volume);
  return store.mounted;
}

BOOL OpenTasksDatabaseHandle(HWND window, bool notify, DWORD param) {
  StoreConnection& store = Store();
  if (store.tasks_db != INVALID_HANDLE_VALUE) return TRUE;
  MountTasksVolume();
  CENOTIFYREQUEST request{sizeof(CENOTIFYREQUEST), window, CEDB_EXNOTIFICATION, nullptr, param};
  store.tasks_db = CeOpenDatabaseEx(&store.volume, &store.tasks_db_oid, store.tasks_name.c_str(), 0,
                                    CEDB_AUTOINCREMENT, notify ? &request : nullptr);
  return store.tasks_db != INVALID_HANDLE_VALUE;
}

BOOL OpenTasksDatabase(HWND window, DWORD param) {
  if (OpenTasksDatabaseHandle(window, true, param)) return TRUE;
  ShowStoreMessage(window, Store().tasks_name, kOpenCaption, kStyleInformation);
  return FALSE;
}

void CloseTasksDatabase() {
  StoreConnection& store = Store();
  for (HANDLE* handle : {&store.tasks_db, &store.other_db}) {
    if (*handle != INVALID_HANDLE_VALUE) CeCloseHandle(*handle);
    *handle = INVALID_HANDLE_VALUE;
  }
  store.tasks_db_oid = 0;
  store.tasks_name.clear();
  store.contacts_name.clear();
  store.appointments_name.clear();
  FreeReadBuffer();
  if (store.mounted) CeUnmountDBVol(&store.volume);
  store.mounted = false;
  CREATE_INVALIDGUID(&store.volume);
}

void FreeReadBuffer() {
  std::string().swap(Store().notes_copy);
}

BOOL ReadTasksDatabaseInfo(CEDBASEINFOEX* info) {
  StoreConnection& store = Store();
  CEOIDINFOEX oid_info{};
  oid_info.wVersion = CEOIDINFOEX_VERSION;
  if (!CeOidGetInfoEx(&store.volume, store.tasks_db_oid, &oid_info) ||
      oid_info.wObjType != OBJTYPE_DATABASE)
    return FALSE;
  *info = oid_info.infDatabase;
  return TRUE;
}

}  // namespace velmo
