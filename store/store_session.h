// Opening and closing the task store for the main window: the object model,
// the welcome task of the first run, the database with change notifications
// and the first load of the task table.
#pragma once

#include "platform/wintypes.h"

namespace velmo {

// Creates the object model's application object, logs on with `window` and
// gets the tasks folder (failing at once when any of these fails), makes the
// welcome task on the first run, opens the database with notifications to the
// window ("Error Task Notification" when that fails; the program goes on with
// an empty list) and loads the task table.
BOOL OpenConnection(HWND window);

// Closes the database handles and the volume; releases the tasks folder, logs
// off and releases the application object.
void CloseConnection();

// The object model's application object, logged on without a window, for the
// store's users that run without one (the after-synchronisation pass, the
// companion command). FALSE when it cannot be created or logged on.
BOOL LogOnObjectModel(HWND window);
void LogOffObjectModel();

}  // namespace velmo
