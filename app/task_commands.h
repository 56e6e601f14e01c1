// The main window's commands on the selected task that go through the object
// model: complete and activate, create copy, rename, team task, priority, and
// the completion of an occurrence that the editor deferred.
#pragma once

#include "platform/poom.h"
#include "platform/wintypes.h"

namespace velmo::app {

// Whether an item recurs again: it recurs, and its pattern has no end or at
// least two occurrences. Completing such an item completes the current
// occurrence as a task of its own and moves the series on.
bool RecursAgain(ITask* item);

// Completes (with "DelReminderOnComplete" the reminder goes, unless the series
// goes on) or activates the task.
void SetTaskComplete(CEOID oid, bool complete);

// Saves a copy of the task ("~" appended to its subject with "RenameCopy"); the
// copy has no notification of its own and becomes the selected task.
void CopyTask(CEOID oid);

// Asks for a new subject and saves it.
void RenameTask(CEOID oid);

// Toggles the team-task flag straight in the record.
void ToggleTeamTask(CEOID oid);

// "High", "Normal", "Low", "Priority Up", "Priority Down", "Priority Cycle".
void ChangeTaskPriority(CEOID oid, UINT command);

// WM_APP + 5: the editor saved a recurring task whose completion it deferred;
// the occurrence is completed now and the series moves on.
void CompleteDeferredOccurrence(CEOID oid);

// A failed save of the object model, under the caption of the operation.
void ShowSaveFailure(HRESULT result, UINT caption_id);

}  // namespace velmo::app
