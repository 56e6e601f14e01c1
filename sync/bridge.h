// The bridge between the tasks database and a folder of VTODO files, one file
// per task. Each run brings both sides level: a change on one side since the
// last run is carried to the other; a task changed on both keeps the newer
// change and the older one becomes a task of its own (a copy with a new UID),
// so neither is lost; a deletion against a change keeps the changed task.
//
// The database is written first, in one transaction, then the files (each
// through a temporary file), then the state: a run stopped at any point is
// completed by the next, since a task whose two sides hold the same values is
// simply taken as synchronised.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "platform/cedb.h"

namespace velmo::sync {

struct TasksDatabase {
  CEGUID volume{};
  HANDLE db = INVALID_HANDLE_VALUE;
  CEOID db_oid = 0;
};

struct BridgeReport {
  int to_folder = 0;   // files written
  int to_database = 0;  // records written
  int files_removed = 0;
  int tasks_removed = 0;
  int conflicts = 0;
  std::vector<std::string> problems;  // files left alone, in words
};

// One run. False when it could not run at all (the folder is missing, the
// database cannot be written): report->problems says why, and nothing was
// changed on either side.
bool RunBridge(const TasksDatabase& tasks, const std::filesystem::path& folder, BridgeReport* report);

}  // namespace velmo::sync
