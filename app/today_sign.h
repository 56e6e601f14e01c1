// The sign of today's tasks at the right end of the title line (the terminal's
// tray icon): shown while the main window is the active window and a task of
// today is open.
#pragma once

namespace velmo::app {

// Works out the first task of today and shows or hides the sign.
void UpdateTodaySign();
void HideTodaySign();

}  // namespace velmo::app
