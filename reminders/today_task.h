// The state behind the tray icon for today's tasks: the first task of the
// table, not complete, due or starting today, and whether the icon is shown.
// The main window shows it while it is the active window.
#pragma once

#include "platform/wintypes.h"

namespace velmo {

struct TodayTaskState {
  CEOID first_today = 0;  // 0: no task of today
  bool icon_shown = false;
};

TodayTaskState& TodayTask();

// Removes the icon, finds the first task of today in the table and shows the
// icon for it when the main window is the foreground window.
void UpdateTodayTask(bool foreground);

// Removes the icon and forgets the task (the table was freed, or the program ends).
void ClearTodayTask();

}  // namespace velmo
