// The main window: the task list with the quick-entry box above it, the soft
// keys, the hot keys and the program-wide state behind them. Every command is
// carried out by its window procedure through the command table.
#pragma once

#include "app/command_line.h"
#include "platform/ui/types.h"

namespace velmo::app {

// Registers the window class; true when it is registered.
bool RegisterMainWindowClass();

// Creates the window with its controls, menus, soft keys and hot keys, over an
// empty list. nullptr on failure.
HWND CreateMainWindow();

// The start request's part of the creation: the initial view, the connection to
// the tasks database and the first load, the day-change timer, then the task to
// select or the new task to start. FALSE when the object model cannot be
// reached; the window is then destroyed.
BOOL StartMainWindow(const StartRequest& start);

LRESULT MainWindowProc(HWND hwnd, UINT msg, WPARAM wparam, LPARAM lparam);

}  // namespace velmo::app
