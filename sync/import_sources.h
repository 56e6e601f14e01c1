// Tasks read from files of other programs for `velmo import`: an iCalendar
// file (any number of VTODOs) or a folder of them, a Taskwarrior JSON export
// (`task export`), a todo.txt file.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "platform/poom_task.h"

namespace velmo::sync {

struct ImportedTask {
  poom::TaskValues values;
  std::string uid;   // empty: one is given at the next synchronisation
  std::string kept;  // the task's own iCalendar text, when it came as one
};

struct ImportResult {
  std::vector<ImportedTask> tasks;
  std::vector<std::string> problems;  // what was left out, in words
};

// Each VTODO of an iCalendar text as a file of its own (with the time zones).
void ReadCalendarTasks(std::string_view text, const std::string& source, ImportResult* out);
// Taskwarrior's export: a JSON array of tasks. False when it is not one.
bool ReadTaskwarriorTasks(std::string_view text, ImportResult* out);
// todo.txt: one task a line.
void ReadTodoTxtTasks(std::string_view text, ImportResult* out);

// Reads a file or folder, choosing the reader by its contents.
ImportResult ReadImportSource(const std::filesystem::path& source);

}  // namespace velmo::sync
