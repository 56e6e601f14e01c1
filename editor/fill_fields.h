// Filling the task editor's fields: from a task being edited (the task's own
// values, with the pickers' defaults drawn from its other dates), or with the
// defaults of a new task from the "New Tasks" settings.
#pragma once

#include "categories/category_list.h"
#include "editor/editor_fields.h"
#include "platform/poom.h"
#include "settings/settings.h"

namespace velmo {

// Reads `task` into `fields` (which keep their oid). `now` is the local time.
// Returns the failure of a read the editor cannot do without.
HRESULT FillFieldsFromTask(ITask* task, const Settings& settings, DATE now, EditorFields* fields);

// A new task's fields: the settings' defaults, and the categories of the one
// category the list is filtered by when FilteredCatForNew asks for it.
void FillNewTaskDefaults(const Settings& settings, const CategoryList& filter, DATE now,
                         EditorFields* fields);

// Notes that synchronisation cut on the device: longer than 31,744 characters
// and ending in "]".
bool NotesLookTruncated(const std::wstring& notes);

}  // namespace velmo
