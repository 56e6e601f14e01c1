// The few properties written straight into a task's record, past the object
// model, and their reads: the categories, the team-task flag, and the
// reminder's notification handle with its minutes. Each write changes only the
// properties it names.
#pragma once

#include <string>

#include "platform/poom.h"
#include "platform/wintypes.h"
#include "store/task.h"

namespace velmo {

// Writes the categories of `item` (null text: the empty string). With post, the
// main window is told to re-read the task. Returns the object model's result
// for the identifier, or the write's failure.
HRESULT WriteTaskCategories(ITask* item, const wchar_t* text, bool post);

// The same for the team-task flag.
HRESULT WriteTaskTeamFlag(ITask* item, WORD team_task, bool post);

// Writes the task's notification handle and reminder minutes in one call.
// Returns S_OK or the failure; nothing is posted.
HRESULT WriteReminderHandle(const Task& task);

// The categories of `item` as stored; on failure (the record cannot be sought or
// read, or has no categories) the empty string and the failure.
HRESULT ReadTaskCategories(ITask* item, std::wstring* categories);

// The notification handle stored in record `oid`; 0 when there is none.
DWORD ReadNotificationHandle(CEOID oid);

}  // namespace velmo
