// The main window's day-change timer: it fires one second after midnight, when
// the views and the relative dates are worked out again for the new day.
#pragma once

#include "platform/ui/types.h"

namespace velmo::app {

// Milliseconds from `now` to one second after the next midnight: 86,401,000
// less the milliseconds already passed today.
UINT MillisUntilDayChange(const SYSTEMTIME& now);

// (Re)starts the timer of the window from the local time now.
void StartDayTimer(HWND window);

}  // namespace velmo::app
