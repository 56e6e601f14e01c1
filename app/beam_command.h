// Beam "This Task", "Tasks Displayed" and "All Tasks": the tasks as one
// iCalendar file of VTODOs, sent by Bluetooth object push to a paired device
// the user picks (`velmo beam` does the sending, so nothing here waits for
// it); without an adapter or a paired device the file is kept and its path
// shown.
#pragma once

#include "platform/wintypes.h"

namespace velmo::app {

void BeamTasks(UINT command);

}  // namespace velmo::app
