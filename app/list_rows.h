// The task list control of the main window: its rows (one per task of the
// current view, in sort order, each carrying its Task record), the selection,
// and the title with its counts.
#pragma once

#include "platform/wintypes.h"
#include "store/task.h"

namespace velmo::app {

// Empties the list before the task table frees or removes records, keeping
// which task was selected for the next rebuild. Every change that frees a Task
// record calls it first, so no row ever points at a freed record.
void DetachListRows();

// Refills the list with the current view's rows, sorted. The selection stays on
// the task it was on when that task is still listed, else on the row at the same
// place. The title is rebuilt. Returns the number of rows.
int RebuildList();

// The title from the view, the filter and the number of rows.
void UpdateTitle();

int RowCount();
// The Task record of a row, nullptr outside the list.
const Task* RowTask(int row);
// The selected row, or -1.
int SelectedRow();
// The selected task, or nullptr.
const Task* SelectedTask();

// Selecting a row: it becomes the selection mark, selected and focused, and is
// scrolled into view. False outside the list.
bool SelectRow(int row);
// Selects the row of a task; false when the task is not listed.
bool SelectTaskRow(CEOID oid);

// Moves the selection by `delta` rows, stopping at either end.
void MoveSelection(int delta);
// One page up (-1) or down (+1).
void MoveSelectionByPage(int direction);

}  // namespace velmo::app
