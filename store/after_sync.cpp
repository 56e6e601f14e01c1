#include "store/after_sync.h"

#include "platform/cedb.h"
#include "settings/settings.h"

namespace velmo {

void RunAfterSyncPass() {
  Settings& settings = CurrentSettings();
  LoadSettings(settings);

  CEGUID volume;
  if (!CeMountDBVol(&volume, settings.db_path.c_str(), OPEN_EXISTING)) CREATE_INVALIDGUID(&volume);

  CEOID database = 0;
  HANDLE db = CeOpenDatabaseEx(&volume, &database, settings.tasks_database.c_str(), 0,
                               CEDB_AUTOINCREMENT, nullptr);
  if (db != INVALID_HANDLE_VALUE) {
    CEOIDINFOEX info{};
    info.wVersion = CEOIDINFOEX_VERSION;
    if (CeOidGetInfoEx(&volume, database, &info) && info.wObjType == OBJTYPE_DATABASE) {
      const FILETIME modified = info.infDatabase.ftLastModified;
      const bool unchanged = modified.dwLowDateTime == settings.last_modified.dwLowDateTime &&
                             modified.dwHighDateTime == settings.last_modified.dwHighDateTime;
      if (!unchanged) {
        // The reminder check of every record (object model log-on, one read per
        // counted record) joins here with the reminder module.
        SaveLastModified(modified, settings);
      }
    }
    CeCloseHandle(db);
  }
  if (!CHECK_INVALIDGUID(&volume)) CeUnmountDBVol(&volume);
}

}  // namespace velmo
