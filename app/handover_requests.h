// What the running instance does with a request handed over by a second
// instance (WM_COPYDATA), and the task selection it shares with the start.
#pragma once

#include "app/handover.h"
#include "platform/ui/types.h"

namespace velmo::app {

// Carries out a decoded request: code 100 is ignored; any other first closes an
// open menu and dismisses open dialogs, brings the main window forward and takes the focus from the
// quick-entry box; then select (0), select and open (5), Today (2), the default
// view (3) or a new task (4).
void CarryOutHandover(const HandoverRequest& request);

// WM_COPYDATA of the main window.
LRESULT OnCopyData(const COPYDATASTRUCT* data);

// Selects a task of the table, changing to the default view and then to All
// Tasks without a filter when its row is not listed. False when the task is not
// in the table or cannot be listed.
bool SelectTaskAnywhere(CEOID oid);

}  // namespace velmo::app
