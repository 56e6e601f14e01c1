// Closing the open dialogs of the running instance, which a hand-over does first
// so that the request reaches the main window itself.
#pragma once

#include "platform/wintypes.h"

namespace velmo::app {

// Starting from the first (topmost) top-level window, sends WM_COMMAND IDCANCEL to
// each window along its owner chain until the main window or an invalid window is
// reached. The main window itself receives nothing.
void DismissOpenDialogs(HWND main_window);

}  // namespace velmo::app
