// The main window's program-wide state: its window and controls, its menus and
// the flags that the message handlers share. Lives from creation to exit.
#pragma once

#include "platform/ui/types.h"

namespace velmo::app {

constexpr int kListControlId = 1;
constexpr int kEntryControlId = 2;

// Timers of the main window.
constexpr UINT_PTR kDayTimer = 2;     // one second after the next midnight
constexpr UINT_PTR kReloadTimer = 3;  // reloads the task table
constexpr UINT kReloadDelayMs = 5000;

// Private messages of the main window.
constexpr UINT kMsgRebuildList = WM_APP + 30;     // a coalesced rebuild after changes
constexpr UINT kMsgDatabaseLost = WM_APP + 31;    // the tasks database cannot be read

// The selection kept while the list is empty for a change of the task table.
struct DetachedRows {
  bool on = false;
  CEOID oid = 0;
  int row = -1;
};

struct MainWindowState {
  HWND window = nullptr;
  HWND list = nullptr;
  HWND entry = nullptr;       // the quick-entry box; null without one
  HWND notes = nullptr;       // the notes preview pane under the list
  HMENU main_menu = nullptr;  // the right soft key's menu over the list
  HMENU quick_menu = nullptr; // the right soft key's menu in entry mode
  bool active = false;        // the main window is the active window
  bool rebuild_posted = false;
  CEOID select_after_rebuild = 0;
  DetachedRows detached;  // a task just made, selected by the next rebuild
  bool database_lost = false;  // reported once; the reload timer looks for it again
};

MainWindowState& MainWindow();

}  // namespace velmo::app
