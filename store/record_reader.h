// Reading one record of the tasks database into a Task record: every property
// read in place, each mapped by the rules of the record format
// (store/task_props.h), then the fields worked out from several properties: the
// reminder time, the links and the search marks.
#pragma once

#include <string>

#include "platform/cedb_in_place.h"
#include "store/task.h"

namespace velmo {

// Reads record `oid`, or with 0 the record at the position of the tasks
// database's handle (the read moves on to the next one). The task is first reset
// to its initial values. Returns TRUE, or FALSE when the record cannot be sought
// or read. A property of a type other than the expected one is skipped.
BOOL ReadTaskRecord(Task* task, CEOID oid);

// Fills a task from a record read in place (platform/cedb_in_place.h): the
// task is reset first; notes_room keeps the room the link scanners' copy of the
// notes needs, for the next record. False (the task reset) when the record is
// damaged.
bool FillTaskFromRecord(CEOID oid, cedb::StoredRecord record, Task* task, std::string* notes_room);

}  // namespace velmo
