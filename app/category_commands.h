// The main window's commands that open the Categories dialog: "Multiple..." of
// the Filter menu, and "Change Categories..." on the selected task (or, in
// entry mode, on the task being typed).
#pragma once

#include "platform/wintypes.h"

namespace velmo::app {

// The dialog in filter mode over the current filter text; a changed choice
// becomes the filter and the list, the Filter menu and the title are rebuilt.
void ChooseMultipleCategories();

// The dialog in categories mode over the task's categories; a changed choice is
// written straight into its record and the task re-read.
void ChangeTaskCategories(CEOID oid);

// The same for the categories of the quick-entry task.
void ChangeQuickEntryCategories();

}  // namespace velmo::app
