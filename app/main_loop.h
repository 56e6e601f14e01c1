// The normal run of the first instance: the screen (the terminal, or the text
// screen when there is none), the main window, the hand-over channel and the
// message loop until the window is closed.
#pragma once

#include "app/command_line.h"

namespace velmo::app {

// The smallest screen the program draws in; below it a notice asks for more.
constexpr int kMinScreenWidth = 24;
constexpr int kMinScreenHeight = 6;

// Runs the program until its main window closes; returns the quit code (0 also
// when the window cannot be made or the object model cannot be reached).
int RunMainWindow(const StartRequest& start);

}  // namespace velmo::app
