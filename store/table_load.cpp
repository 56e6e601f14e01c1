#include "store/table_load.h"

#include "platform/cedb.h"
#include "store/connection.h"
#include "store/task_table.h"

namespace velmo {

void ReadRecords(size_t count, bool check_reminder) {
  if (count == 0) return;
  Tasks().reserve(Tasks().size() + count);
  CeSeekDatabase(Store().tasks_db, CEDB_SEEK_BEGINNING, 0, nullptr);
  for (size_t i = 0; i < count; ++i) ReadTask(nullptr, 0, check_reminder);
}

}  // namespace velmo
