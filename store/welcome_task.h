// The welcome task made on the program's first run after installation. The
// first run is known by the absence of the value "WelcomeTask" under the
// program's registry key, which then keeps the welcome task's identifier.
#pragma once

#include "platform/poom.h"
#include "platform/wintypes.h"

namespace velmo {

// On the first run, saves the welcome task through the object model (subject
// and notes from the string table, starting today, due 15 days later, no
// reminder) and remembers the run. Returns its identifier, 0 when it was not
// the first run or the task could not be saved.
CEOID MakeWelcomeTaskOnFirstRun(IPOutlookApp* app);

}  // namespace velmo
