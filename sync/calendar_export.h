// Tasks as one iCalendar file of VTODOs, each as the folder of task files
// would hold it: what "velmo export" writes and what Beam sends.
#pragma once

#include <string>
#include <vector>

#include "sync/task_records.h"

namespace velmo::sync {

std::string CalendarOfRecords(const std::vector<SyncRecord>& records);

}  // namespace velmo::sync
