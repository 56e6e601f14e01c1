#include "store/other_categories.h"

#include "platform/cedb.h"
#include "platform/localmem.h"
#include "store/connection.h"
#include "store/task_props.h"

namespace velmo {

bool ReadOtherDatabaseCategories(OtherDatabase which,
                                 const std::function<void(std::wstring_view)>& each) {
  StoreConnection& store = Store();
  MountTasksVolume();
  const std::wstring& name =
      which == OtherDatabase::kContacts ? store.contacts_name : store.appointments_name;
  CEOID oid = 0;
  store.other_db = CeOpenDatabaseEx(&store.volume, &oid, name.c_str(), 0, CEDB_AUTOINCREMENT, nullptr);
  if (store.other_db == INVALID_HANDLE_VALUE) return false;

  CEOIDINFOEX info{};
  info.wVersion = CEOIDINFOEX_VERSION;
  const DWORD count = CeOidGetInfoEx(&store.volume, oid, &info) && info.wObjType == OBJTYPE_DATABASE
                          ? info.infDatabase.dwNumRecords
                          : 0;
  BYTE* buffer = nullptr;
  DWORD size = 0;
  if (count > 0 && CeSeekDatabase(store.other_db, CEDB_SEEK_BEGINNING, 0, nullptr) != 0) {
    for (DWORD i = 0; i < count; ++i) {
      CEPROPID id = kPropCategories;
      WORD props = 1;
      if (!CeReadRecordProps(store.other_db, CEDB_ALLOWREALLOC, &props, &id, &buffer, &size)) continue;
      const auto* value = reinterpret_cast<const CEPROPVAL*>(buffer);
      if (value->wFlags == 0 && value->val.lpwstr) each(value->val.lpwstr);
    }
  }
  LocalFree(buffer);
  CeCloseHandle(store.other_db);
  store.other_db = INVALID_HANDLE_VALUE;
  return true;
}

void ProvideOtherDatabaseCategories() { SetCategoriesSource(ReadOtherDatabaseCategories); }

}  // namespace velmo
