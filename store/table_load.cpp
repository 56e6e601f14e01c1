#include "store/table_load.h"

#include "platform/cedb.h"
#include "platform/notify_store.h"
#include "store/connection.h"
#include "store/task_table.h"

namespace velmo {

bool ReadRecords(size_t count, bool check_reminder) {
  if (count == 0) return true;
  Tasks().reserve(Tasks().size() + count);
  CeSeekDatabase(Store().tasks_db, CEDB_SEEK_BEGINNING, 0, nullptr);
  if (!check_reminder) {
    for (size_t i = 0; i < count; ++i) ReadTask(nullptr, 0, false);
    return true;
  }
  // The checks' writes to the record and to the notifications go to each file
  // as one transaction.
  CEGUID* volume = &Store().volume;
  const bool records = cedb::BeginWriteBatch(volume);
  const bool notifications = notify::BeginStoreBatch();
  for (size_t i = 0; i < count; ++i) ReadTask(nullptr, 0, true);
  const bool notifications_kept = !notifications || notify::EndStoreBatch();
  const bool records_kept = !records || cedb::EndWriteBatch(volume);
  return notifications_kept && records_kept;
}

}  // namespace velmo
