#include "store/task_table.h"

#include <algorithm>

#include "categories/category_filter.h"
#include "reminders/reminder_check.h"
#include "reminders/today_task.h"
#include "settings/settings.h"
#include "store/connection.h"
#include "store/record_reader.h"
#include "store/table_load.h"

namespace velmo {

TaskTable& Tasks() {
  static TaskTable table;
  return table;
}

namespace {

// The records of the last freed table, kept for the next load: reading into
// them reuses their text buffers, so a reload allocates next to nothing.
TaskTable& SpareTasks() {
  static TaskTable spare;
  return spare;
}

}  // namespace

std::unique_ptr<Task> NewTableTask() {
  TaskTable& spare = SpareTasks();
  if (spare.empty()) return std::make_unique<Task>();
  std::unique_ptr<Task> task = std::move(spare.back());
  spare.pop_back();
  return task;
}

void ReturnTableTask(std::unique_ptr<Task> task) { SpareTasks().push_back(std::move(task)); }

BOOL ReadTask(Task* entry, CEOID oid, bool check_reminder) {
  ReadContext context;
  if (entry) context = {true, entry->reminder_time, entry->pending_reminder_time};
  std::unique_ptr<Task> task = NewTableTask();
  if (!ReadTaskRecord(task.get(), oid)) {
    ReturnTableTask(std::move(task));
    return FALSE;
  }
  if (check_reminder) CheckReminder(task.get(), context);
  if (entry)
    *entry = std::move(*task);
  else
    Tasks().push_back(std::move(task));
  return TRUE;
}

BOOL LoadTaskTable(size_t limit) {
  StoreConnection& store = Store();
  if (!store.reload) return FALSE;
  store.reload = false;
  FreeTaskTable();

  CEDBASEINFOEX info{};
  const bool known = ReadTasksDatabaseInfo(&info);
  const bool changed = known && !SameFileTime(info.ftLastModified, CurrentSettings().last_modified);
  CategoryUseMarking marking;
  ReadRecords(known ? std::min<size_t>(info.dwNumRecords, limit) : 0, changed, &marking);

  FreeReadBuffer();
  if (ReadTasksDatabaseInfo(&info) && !SameFileTime(info.ftLastModified, CurrentSettings().last_modified))
    SaveLastModified(info.ftLastModified);
  marking.Finish();
  UpdateTodayTask(false);
  return TRUE;
}

void FreeTaskTable() {
  TaskTable& table = Tasks();
  TaskTable& spare = SpareTasks();
  for (auto& task : table) {
    task->oid = 0;
    task->pending_reminder_time = kNoDate;
    spare.push_back(std::move(task));
  }
  table.clear();
  ClearTodayTask();
}

int FindTask(CEOID oid) {
  const TaskTable& table = Tasks();
  const auto it = std::find_if(table.begin(), table.end(),
                               [oid](const auto& task) { return task->oid == oid; });
  return it == table.end() ? -1 : static_cast<int>(it - table.begin());
}

}  // namespace velmo
