// Reading one record of the tasks database into a Task record: every property
// in one call into the connection's shared buffer, each mapped by the rules of
// the record format (store/task_props.h), then the fields worked out from
// several properties: the reminder time, the links and the search marks.
#pragma once

#include "store/task.h"

namespace velmo {

// Reads record `oid`, or with 0 the record at the handle's position (the read
// moves on to the next one). The task is first reset to its initial values. A
// read by identifier frees the shared buffer at its end; a sequential read
// keeps it for the next. Returns TRUE, or FALSE when the record cannot be
// sought or read. A property of a type other than the expected one is skipped.
BOOL ReadTaskRecord(Task* task, CEOID oid);

}  // namespace velmo
