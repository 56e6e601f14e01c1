// The second instance's part: hand the start request over to the running
// instance, then end.
#pragma once

#include "app/command_line.h"

namespace velmo::app {

// Finds the running instance's main window, brings it forward (not for the
// after-synchronisation request), and sends it the request as WM_COPYDATA and
// waits for it to be handled; with no request at all, only its open dialogs are
// dismissed. Nothing is sent when no window answers.
void HandOverToRunningInstance(const StartRequest& start);

}  // namespace velmo::app
