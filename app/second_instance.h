// The second instance's part: hand the start request over to the running
// instance, then end.
#pragma once

#include <string>

#include "app/command_line.h"

namespace velmo::app {

// How long a second start waits on the running instance.
struct HandoverWaits {
  int find_ms = 3000;    // for its window to answer (it may still be starting)
  int answer_ms = 5000;  // for it to carry the request out
};

// Finds the running instance's main window, brings it forward (not for the
// after-synchronisation request), and sends it the request as WM_COPYDATA and
// waits for it to be handled; with no request at all, only its open dialogs are
// dismissed. Returns an empty text when the request was handed over, else why
// not, in words for the user: no window answered, or it did not answer in time.
std::wstring HandOverToRunningInstance(const StartRequest& start, const HandoverWaits& waits = {});

}  // namespace velmo::app
