// Reading many records in a row, as the table's load and `velmo list VIEW` do.
#pragma once

#include <cstddef>
#include <memory>

#include "store/task.h"

namespace velmo {

using TaskMaker = std::unique_ptr<Task> (*)();

// Reads `count` records from the tasks database's position on, appending a Task
// record for each, made by `make`, to *table in database order. A record that
// cannot be read is passed over but counted.
void ReadRecordRun(size_t count, TaskTable* table, TaskMaker make);

}  // namespace velmo
