// "Notes" (40018) on the selected task: the task's notes in the notes editor,
// saved on "Done" when they changed.
#pragma once

#include "platform/wintypes.h"

namespace velmo::app {

void EditTaskNotes(CEOID oid);

}  // namespace velmo::app
