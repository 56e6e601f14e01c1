// Deleting tasks from the list, with its questions: one task (a recurring one
// either whole or only its current occurrence), the completed tasks, or the
// tasks shown.
#pragma once

#include "platform/wintypes.h"

namespace velmo::app {

// "Delete": with "DeleteConfirm" the deletion is confirmed first. True when the
// task (or its current occurrence) was deleted.
bool DeleteTask(CEOID oid);

// "Completed Tasks" and "Tasks Displayed" of the Delete menu: asked every time,
// and followed by the number of tasks deleted.
void DeleteCompletedTasks();
void DeleteDisplayedTasks();

}  // namespace velmo::app
