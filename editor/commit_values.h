// The values the editor's fields start with: those of a task being edited (the
// fill rules), or the defaults of a new task from the settings. `velmo edit`
// starts from the first and `velmo add` from the second, so the command line
// commits what the editor would.
#pragma once

#include <string_view>

#include "editor/editor_values.h"
#include "platform/poom.h"
#include "settings/settings.h"
#include "store/task.h"

namespace velmo {

// The fields of task `item`, whose record the list read as `record` (its
// reminder time as the user sees it, its categories as stored). The recurrence
// is matched to a choice; a pattern none of them describes is "Custom pattern",
// kept as the task has it. Fails only when the item's recurrence cannot be read.
HRESULT EditorValuesOfTask(ITask* item, const Task& record, const Settings& s, EditorValues* values);

// A new task's fields: priority, sensitivity, team task and categories from the
// new-task settings. `filter` is the category filter of the list on screen:
// with "FilteredCatForNew" a filter of one category gives that category
// ("<NoCat>" none), instead of "CategoriesForNew".
EditorValues NewTaskEditorValues(const Settings& s, std::wstring_view filter);

}  // namespace velmo
