#include "store/record_run.h"

#include "platform/cedb.h"
#include "store/connection.h"
#include "store/record_reader.h"

namespace velmo {

void ReadRecordRun(size_t count, TaskTable* table, TaskMaker make) {
  StoreConnection& store = Store();
  table->reserve(table->size() + count);
  for (size_t i = 0; i < count; ++i) {
    WORD props = 0;
    const CEOID oid = CeReadRecordProps(store.tasks_db, CEDB_ALLOWREALLOC, &props, nullptr,
                                        &store.read_buffer, &store.read_buffer_size);
    if (oid == 0) continue;
    std::unique_ptr<Task> task = make();
    TaskFromProps(task.get(), oid, reinterpret_cast<const CEPROPVAL*>(store.read_buffer), props);
    table->push_back(std::move(task));
  }
}

}  // namespace velmo
