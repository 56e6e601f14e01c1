// Settings applied to the running main window.
#include "app/settings_apply.h"

#include "app/commands.h"
#include "app/entry_box.h"
#include "app/main_window_state.h"
#include "app/menus.h"
#include "app/task_changes.h"
#include "list/draw_appearance.h"
#include "list/sort_rows.h"
#include "platform/ui/list_view.h"
#include "platform/ui/window.h"

namespace velmo::app {
namespace {

// The entry bar comes and goes with "QuickEntry"; the window lays itself out again.
void ApplyEntryBar(MainWindowState& w, bool wanted) {
  if (wanted == (w.entry != nullptr)) return;
  if (wanted) {
    RECT client{};
    GetClientRect(w.window, &client);
    w.entry = CreateEntryBox(w.window, kEntryControlId, w.list, RECT{0, 0, client.right, 1});
  } else {
    if (InEntryMode()) LeaveEntryMode(w.entry);
    DestroyWindow(w.entry);
    w.entry = nullptr;
  }
}

}  // namespace

void ApplySettingsChange(const Settings& before) {
  MainWindowState& w = MainWindow();
  if (!w.window || !w.list) return;
  const Settings& after = CurrentSettings();
  if (after.compressed != before.compressed) {
    SetCompactList(after.compressed == 1);
    ListView_SetRowHeight(w.list, ListRowLines());
  }
  ApplyEntryBar(w, after.quick_entry == 1);
  if (after.exit_menu != before.exit_menu) {
    DestroyMainMenus();
    CreateMainMenus();
    if (InEntryMode()) {
      ShowQuickEntrySoftKeys();
    } else {
      ShowListSoftKeys();
    }
  }
  ApplySortSettings(before, after);
  // The entry bar and the notes pane share the window with the list.
  SendMessageW(w.window, WM_SIZE, 0, 0);
  if (after.reminder_delta != before.reminder_delta) ReloadTasksNow();
  RefreshAfterViewChange(after.filter_categories != before.filter_categories);
  InvalidateRect(w.window, nullptr, TRUE);
  InvalidateRect(w.list, nullptr, TRUE);
}

}  // namespace velmo::app
