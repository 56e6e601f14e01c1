#include "app/main_window.h"

#include "app/change_pump.h"
#include "app/commands.h"
#include "app/day_timer.h"
#include "app/handover_requests.h"
#include "app/list_rows.h"
#include "app/main_window_state.h"
#include "app/main_loop.h"
#include "app/menus.h"
#include "app/notes_pane.h"
#include "app/shortcut_hotkeys.h"
#include "app/shortcut_keys.h"
#include "app/startup.h"
#include "app/task_changes.h"
#include "app/task_commands.h"
#include "app/today_sign.h"
#include "list/draw_appearance.h"
#include "list/draw_background.h"
#include "list/draw_row.h"
#include "list/list_state.h"
#include "list/sort_rows.h"
#include "app/entry_box.h"
#include "list/view_ids.h"
#include "platform/lasterror.h"
#include "platform/ui/desktop.h"
#include "platform/ui/list_view.h"
#include "platform/ui/message_queue.h"
#include "platform/ui/timers.h"
#include "platform/ui/virtual_keys.h"
#include "platform/ui/window.h"
#include "res/command_ids.h"
#include "res/menus_app.h"
#include "res/strings.h"
#include "settings/settings.h"
#include "store/connection.h"
#include "store/store_messages.h"
#include "store/store_session.h"
#include "store/task_table.h"

namespace velmo::app {
namespace {

constexpr UINT kMsgOccurrenceDeferred = WM_APP + 5;
constexpr DWORD kListStyle = WS_CHILD | WS_VISIBLE | LVS_REPORT | LVS_SINGLESEL |
                             LVS_SHOWSELALWAYS | LVS_OWNERDRAWFIXED | LVS_NOCOLUMNHEADER;

bool HasEntryBox() { return MainWindow().entry != nullptr; }

// The entry box takes the first line when there is one, the notes pane the
// last lines when it is on; the list the rest.
void Layout(HWND hwnd) {
  RECT client{};
  GetClientRect(hwnd, &client);
  const int entry_lines = HasEntryBox() ? 1 : 0;
  if (HasEntryBox()) MoveWindow(MainWindow().entry, 0, 0, client.right, 1, TRUE);
  const int rest = client.bottom - entry_lines;
  const int pane_lines = MainWindow().notes ? NotesPaneLines(rest) : 0;
  MoveWindow(MainWindow().list, 0, entry_lines, client.right, rest - pane_lines, TRUE);
  if (HWND pane = MainWindow().notes) {
    MoveWindow(pane, 0, client.bottom - pane_lines, client.right, pane_lines, TRUE);
    ShowWindow(pane, pane_lines > 0 ? SW_SHOW : SW_HIDE);
  }
}

LRESULT OnCreate(HWND hwnd) {
  MainWindowState& w = MainWindow();
  w = MainWindowState{};
  w.window = hwnd;
  ui::SetMinimumScreenSize(kMinScreenWidth, kMinScreenHeight, res::Text(res::kTextTooSmall));
  RECT client{};
  GetClientRect(hwnd, &client);
  w.list = CreateWindowExW(0, WC_LISTVIEWW, res::Text(kTextNoMatches).c_str(), kListStyle, 0, 0,
                           client.right, client.bottom, hwnd,
                           reinterpret_cast<HMENU>(static_cast<INT_PTR>(kListControlId)), nullptr,
                           nullptr);
  if (!w.list) return -1;
  InitListDisplay();
  ListView_SetRowHeight(w.list, ListRowLines());
  InstallListBackground(w.list);
  if (CurrentSettings().quick_entry == 1)
    w.entry = CreateEntryBox(hwnd, kEntryControlId, w.list, RECT{0, 0, client.right, 1});
  w.notes = CreateNotesPane(hwnd);
  Layout(hwnd);
  CreateMainMenus();
  ShowListSoftKeys();
  RegisterShortcutHotKeys(hwnd);
  SetFocus(w.list);
  return 0;
}

void OnDestroy(HWND hwnd) {
  MainWindowState& w = MainWindow();
  StopChangePump();
  UnregisterShortcutHotKeys(hwnd);
  KillTimer(hwnd, kDayTimer);
  KillTimer(hwnd, kReloadTimer);
  HideTodaySign();
  DetachListRows();
  CloseConnection();
  FreeTaskTable();
  DestroyMainMenus();
  w = MainWindowState{};
  PostQuitMessage(0);
}

// Up from the first row goes to the entry box; with "NoEndScroll" the list
// wraps around at both ends. Other keys are looked up in the shortcuts.
void OnListKey(UINT vk) {
  const int row = SelectedRow(), last = RowCount() - 1;
  const bool wrap = CurrentSettings().no_end_scroll == 1;
  if (vk == VK_UP && row <= 0) {
    if (HasEntryBox()) {
      SetFocus(MainWindow().entry);
    } else if (wrap) {
      SelectRow(last);
    }
    return;
  }
  if (vk == VK_DOWN && row == last && wrap) {
    SelectRow(0);
    return;
  }
  // Posted: the list finishes with its key before the command changes it.
  if (const UINT command = ListKeyCommand(vk))
    PostMessageW(MainWindow().window, WM_COMMAND, command, kFromShortcut);
}

LRESULT OnNotify(const NMHDR* nm) {
  if (!nm || nm->hwndFrom != MainWindow().list) return 0;
  switch (nm->code) {
    case LVN_KEYDOWN:
      OnListKey(reinterpret_cast<const NMLVKEYDOWN*>(nm)->wVKey);
      break;
    case LVN_ITEMCHANGED:
      UpdateListSoftKeys();
      RefreshNotesPane();
      break;
    default:
      break;
  }
  return 0;
}

void OnHotKey(WPARAM id, LPARAM lparam) {
  const ShortcutContext context{InEntryMode(), CurrentListState().at_default,
                                SortByCommandToRestore()};
  const ShortcutOutcome outcome = HandleHotKeyMessage(id, lparam, context);
  switch (outcome.kind) {
    case ShortcutKind::kCommand:
      RunCommand(outcome.command, kFromShortcut);
      break;
    case ShortcutKind::kEntryField:
      if (HasEntryBox()) EntryBackKey(MainWindow().entry);
      break;
    case ShortcutKind::kDefaultBack:
      // A terminal program has nowhere to go back to but the shell.
      RunCommand(cmd::kExit, 0);
      break;
    case ShortcutKind::kNothing:
      break;
  }
}

void OnRebuild() {
  MainWindowState& w = MainWindow();
  w.rebuild_posted = false;
  UpdateFilterMenu();
  RebuildList();
  if (w.select_after_rebuild) SelectTaskRow(w.select_after_rebuild);
  w.select_after_rebuild = 0;
  RefreshNotesPane();
  UpdateListSoftKeys();
  UpdateTodaySign();
}

void OnTimer(HWND hwnd, WPARAM id) {
  if (id == kDayTimer) {
    StartDayTimer(hwnd);  // the next day's
    RebuildList();
    UpdateTodaySign();
  } else if (id == kReloadTimer) {
    OnReloadTimer();
  }
}

void OnQuickEntryMode(bool entering) {
  if (entering) {
    ShowQuickEntrySoftKeys();
  } else {
    ShowListSoftKeys();
  }
  UpdateTitle();
}

}  // namespace

MainWindowState& MainWindow() {
  static MainWindowState state;
  return state;
}

LRESULT MainWindowProc(HWND hwnd, UINT msg, WPARAM wparam, LPARAM lparam) {
  switch (msg) {
    case WM_CREATE:
      return OnCreate(hwnd);
    case WM_SIZE:
      if (MainWindow().list) Layout(hwnd);
      return 0;
    case WM_DRAWITEM: {
      const auto* item = reinterpret_cast<const DRAWITEMSTRUCT*>(lparam);
      const auto* task = item ? reinterpret_cast<const Task*>(item->itemData) : nullptr;
      return task ? DrawTaskItem(item, *task) : FALSE;
    }
    case WM_MEASUREITEM:
      if (auto* item = reinterpret_cast<MEASUREITEMSTRUCT*>(lparam))
        item->itemHeight = static_cast<UINT>(ListRowLines());
      return TRUE;
    case WM_NOTIFY:
      return OnNotify(reinterpret_cast<const NMHDR*>(lparam));
    case WM_COMMAND:
      if (HIWORD(wparam) == 0) RunCommand(LOWORD(wparam), lparam);
      return 0;
    case WM_HOTKEY:
      OnHotKey(wparam, lparam);
      return 0;
    case WM_INITMENUPOPUP:
      PrepareMenus();
      return 0;
    case WM_TIMER:
      OnTimer(hwnd, wparam);
      return 0;
    case WM_ACTIVATE:
      MainWindow().active = LOWORD(wparam) != WA_INACTIVE;
      UpdateTodaySign();
      // The default gives the keyboard back to the control that had it before
      // a dialog took it (the list, or the quick-entry bar).
      return DefWindowProcW(hwnd, msg, wparam, lparam);
    case WM_COPYDATA:
      return OnCopyData(reinterpret_cast<const COPYDATASTRUCT*>(lparam));
    case kMsgTaskWritten:
      if (wparam == kTaskWrittenCode) RereadTask(static_cast<CEOID>(lparam), true);
      RefreshNotesPane();
      return 0;
    case kMsgOccurrenceDeferred:
      CompleteDeferredOccurrence(static_cast<CEOID>(wparam));
      return 0;
    case kMsgEntryMode:
      OnQuickEntryMode(wparam != 0);
      return 0;
    case kMsgRebuildList:
      OnRebuild();
      return 0;
    case kMsgDatabaseLost:
      OnDatabaseLost();
      return 0;
    case DB_CEOID_CREATED:
    case DB_CEOID_CHANGED:
    case DB_CEOID_RECORD_DELETED:
    case DB_CEOID_DATABASE_DELETED:
      OnDatabaseChange(msg, reinterpret_cast<CENOTIFICATION*>(lparam));
      return 0;
    case WM_CLOSE:
      DestroyWindow(hwnd);
      return 0;
    case WM_DESTROY:
      OnDestroy(hwnd);
      return 0;
    default:
      return DefWindowProcW(hwnd, msg, wparam, lparam);
  }
}

bool RegisterMainWindowClass() {
  WNDCLASSW wc{};
  wc.lpfnWndProc = MainWindowProc;
  wc.lpszClassName = kMainWindowClass;
  return RegisterClassW(&wc) != 0 || GetLastError() == ERROR_CLASS_ALREADY_EXISTS;
}

HWND CreateMainWindow() {
  if (!RegisterMainWindowClass()) return nullptr;
  return CreateWindowExW(0, kMainWindowClass, kMainWindowClass, WS_VISIBLE, CW_USEDEFAULT,
                         CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, nullptr, nullptr, nullptr,
                         nullptr);
}

BOOL StartMainWindow(const StartRequest& start) {
  MainWindowState& w = MainWindow();
  if (start.request == static_cast<LONG>(kViewToday)) SetView(kViewToday);
  if (!OpenConnection(w.window)) {
    DestroyWindow(w.window);
    return FALSE;
  }
  if (Store().tasks_db == INVALID_HANDLE_VALUE) {
    // Its messages were shown; the reload timer looks for it from now on.
    w.database_lost = true;
    SetTimer(w.window, kReloadTimer, kReloadDelayMs, nullptr);
  }
  StartDayTimer(w.window);
  RefreshAfterViewChange(true);
  UpdateTodaySign();
  StartChangePump();
  const CEOID oid = start.task_oid ? start.task_oid : Store().welcome_task;
  if (oid) {
    SelectTaskAnywhere(oid);
  } else if (start.request == static_cast<LONG>(kCmdNewTask)) {
    SendCommand(cmd::kNew);
  }
  return TRUE;
}

}  // namespace velmo::app
