// The running instance's end of the hand-over: requests of second instances
// reach the main window through its message loop, as WM_COPYDATA.
#pragma once

#include "platform/wintypes.h"

namespace velmo::app {

// Starts listening for second instances (from then on they find the main
// window) and has the message loop deliver each request: WM_COPYDATA to the main
// window (sent, so the second instance waits until it is handled), or the
// dismissal of the open dialogs. FALSE with the last error set on failure.
BOOL OpenHandoverChannel(HWND main_window);

// Stops listening; second instances no longer find the window.
void CloseHandoverChannel();

}  // namespace velmo::app
