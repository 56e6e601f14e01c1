#include "store/after_sync.h"

#include "settings/settings.h"
#include "store/connection.h"
#include "store/store_session.h"
#include "store/table_load.h"
#include "store/task_table.h"

namespace velmo {

void RunAfterSyncPass() {
  Settings& settings = CurrentSettings();
  LoadSettings(settings);  // an incomplete load is saved by the next interactive start

  CEDBASEINFOEX info{};
  if (OpenTasksDatabaseHandle(nullptr, false, 0) && ReadTasksDatabaseInfo(&info) &&
      !SameFileTime(info.ftLastModified, settings.last_modified) && LogOnObjectModel(nullptr)) {
    // Every record, without the interactive cap.
    const bool written = ReadRecords(info.dwNumRecords, true, nullptr);
    FreeReadBuffer();
    FreeTaskTable();
    // A lost batch leaves the stored time behind, so the next pass tries again.
    if (written && ReadTasksDatabaseInfo(&info)) SaveLastModified(info.ftLastModified, settings);
    LogOffObjectModel();
  }
  CloseTasksDatabase();
}

}  // namespace velmo
