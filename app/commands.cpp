#include "app/commands.h"

#include <iterator>

#include "app/beam_command.h"

#include "app/category_commands.h"
#include "app/delete_commands.h"
#include "app/due_date_command.h"
#include "app/link_commands.h"
#include "app/list_rows.h"
#include "app/send_commands.h"
#include "app/main_window_state.h"
#include "app/menus.h"
#include "app/notes_command.h"
#include "app/search_command.h"
#include "app/settings_pages.h"
#include "app/shortcut_apps.h"
#include "app/task_changes.h"
#include "app/task_commands.h"
#include "categories/filter_menu.h"
#include "editor/task_summary.h"
#include "editor/task_editor.h"
#include "list/draw_appearance.h"
#include "app/entry_box.h"
#include "editor/call_history_dialog.h"
#include "list/sort_rows.h"
#include "list/view_commands.h"
#include "list/view_ids.h"
#include "list/view_rows.h"
#include "platform/ui/edit.h"
#include "platform/ui/list_view.h"
#include "platform/ui/message_queue.h"
#include "platform/ui/timers.h"
#include "platform/ui/window.h"
#include "res/command_ids.h"
#include "settings/settings.h"
#include "store/task_table.h"

namespace velmo::app {
namespace {

constexpr UINT_PTR kExitTimer = 4;
constexpr UINT kExitDelayMs = 200;
// A dialog's result from here on is a command for the main window.
constexpr INT_PTR kFirstCommandResult = 11;

using Handler = void (*)(UINT command, LPARAM lparam);

struct CommandRange {
  UINT first;
  UINT last;
  Handler run;
};

CEOID SelectedOid() {
  const Task* task = SelectedTask();
  return task ? task->oid : 0;
}



// The summary of the selected task; a command chosen there (its "Edit"
// among them) is carried out here, on the same task.
void ViewTask(UINT, LPARAM) {
  const CEOID oid = SelectedOid();
  if (!oid) return;
  const INT_PTR result = ShowTaskSummary(MainWindow().window, oid);
  if (result >= kFirstCommandResult) SendCommand(static_cast<UINT>(result));
}

// The task editor on the selected task ("Edit") or on a new one ("New"); a
// command it ends with is carried out here.
void OpenEditor(UINT command, LPARAM) {
  const CEOID oid = command == cmd::kEdit ? SelectedOid() : 0;
  if (command == cmd::kEdit && !oid) return;
  const INT_PTR result = RunTaskEditor(MainWindow().window, oid);
  if (result >= kFirstCommandResult) SendCommand(static_cast<UINT>(result));
}

void CompleteOrActivate(UINT, LPARAM) {
  const Task* task = SelectedTask();
  if (task) SendCommand(task->complete ? cmd::kActivate : cmd::kComplete);
}

void CompleteOrActivateSelected(UINT command, LPARAM) {
  if (const CEOID oid = SelectedOid()) SetTaskComplete(oid, command == cmd::kComplete);
}

void NewQuick(UINT, LPARAM) {
  HWND entry = MainWindow().entry;
  if (entry && CurrentSettings().quick_entry == 1) {
    SetFocus(entry);
  } else {
    SendCommand(cmd::kNew);
  }
}

void OnSelectedTask(UINT command, LPARAM) {
  const CEOID oid = SelectedOid();
  if (!oid) return;
  switch (command) {
    case cmd::kCreateCopy: CopyTask(oid); break;
    case cmd::kDelete: DeleteTask(oid); break;
    case cmd::kRename: RenameTask(oid); break;
    case cmd::kTeamTask: ToggleTeamTask(oid); break;
    case cmd::kNotes: EditTaskNotes(oid); break;
    default: ChangeTaskPriority(oid, command); break;
  }
}

// In entry mode the priority, sensitivity, team task and reminder items are the
// new task's check marks; over the list they act on the selected task.
void QuickOrSelected(UINT command, LPARAM lparam) {
  if (InEntryMode()) {
    ApplyEntryCommand(command);
  } else if (command != cmd::kSensitivityNormal && command != cmd::kSensitivityPrivate &&
             command != cmd::kQuickReminder) {
    OnSelectedTask(command, lparam);
  }
}

// In entry mode the due date of the task being typed, over the list the
// selected task's.
void DueDate(UINT, LPARAM) {
  if (InEntryMode()) {
    ChooseQuickEntryDueDate();
  } else if (const CEOID oid = SelectedOid()) {
    ChangeDueDate(oid);
  }
}

// The talk key in the quick-entry box: a call of the phone's history goes in
// at the box's caret as "CallInsertMode" says.
void QuickEntryCallHistory(UINT, LPARAM) {
  HWND box = MainWindow().entry;
  if (!box || !InEntryMode()) return;
  const std::wstring text = PickCallText(MainWindow().window);
  SetFocus(box);
  if (!text.empty()) SendMessageW(box, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(text.c_str()));
}

void QuickEntryEnter(UINT, LPARAM) {
  if (MainWindow().entry && InEntryMode()) CommitEntry(MainWindow().entry);
}

void Navigate(UINT command, LPARAM) {
  switch (command) {
    case cmd::kNextTask: MoveSelection(1); break;
    case cmd::kPreviousTask: MoveSelection(-1); break;
    case cmd::kFirstTask: SelectRow(0); break;
    case cmd::kLastTask: SelectRow(RowCount() - 1); break;
    case cmd::kPageUp: MoveSelectionByPage(-1); break;
    case cmd::kPageDown: MoveSelectionByPage(1); break;
    default: break;
  }
  if (MainWindow().list) SetFocus(MainWindow().list);
  UpdateListSoftKeys();
}

void Reload(UINT, LPARAM) { ReloadTasksNow(); }

void ExitNow(HWND hwnd, UINT, UINT_PTR id, DWORD) {
  KillTimer(hwnd, id);
  PostMessageW(MainWindow().window, WM_CLOSE, 0, 0);
}

// The window closes a moment later, so that the key that asked has come up.
void Exit(UINT, LPARAM) { SetTimer(MainWindow().window, kExitTimer, kExitDelayMs, ExitNow); }

void DeleteMany(UINT command, LPARAM) {
  if (command == cmd::kDeleteCompleted) {
    DeleteCompletedTasks();
  } else {
    DeleteDisplayedTasks();
  }
}

void ViewCommand(UINT command, LPARAM) {
  const DWORD effects = RunViewCommand(
      command, [](UINT view) { return ViewIsEmpty(Tasks(), view, kNoDate); });
  if (effects == kViewEffectNone) return;
  if (effects & kViewEffectReloadTasks) ReloadTasksNow();
  RefreshAfterViewChange(effects & kViewEffectRebuildFilterMenu);
}

void SortBy(UINT command, LPARAM) {
  if (ChooseSortBy(command)) RefreshAfterViewChange(false);
}

void FilterCommand(UINT command, LPARAM lparam) {
  if (ChooseFilterCommand(command, lparam == kFromShortcut)) RefreshAfterViewChange(true);
}

void StepFilter(UINT command, LPARAM) {
  StepCategoryFilter(command, [] { return RefreshAfterViewChange(true); });
}

void AppShortcut(UINT command, LPARAM) { StartAppShortcut(command); }

void LinkCommand(UINT command, LPARAM) { RunSelectedTaskLink(command); }

void MultipleCategories(UINT, LPARAM) { ChooseMultipleCategories(); }

void Search(UINT, LPARAM) { RunSearchCommand(); }

void ChangeCategories(UINT, LPARAM) {
  if (InEntryMode()) {
    ChangeQuickEntryCategories();
  } else if (const CEOID oid = SelectedOid()) {
    ChangeTaskCategories(oid);
  }
}

void Beam(UINT command, LPARAM) { BeamTasks(command); }

void SendTask(UINT command, LPARAM) {
  const CEOID oid = SelectedOid();
  if (!oid) return;
  if (command == cmd::kSaveToFile) SaveTaskAs(oid); else MailTask(oid);
}

void SettingsPage(UINT command, LPARAM) { ShowSettingsPage(command, MainWindow().window); }

void ToggleCompact(UINT, LPARAM) {
  ToggleCompactList();
  if (MainWindow().list) ListView_SetRowHeight(MainWindow().list, ListRowLines());
}

// Each command falls in one range at most.
constexpr CommandRange kCommands[] = {
    {39950, 39959, SortBy},
    {39970, 39981, AppShortcut},
    {cmd::kSensitivityNormal, cmd::kSensitivityNormal, QuickOrSelected},
    {cmd::kSensitivityPrivate, cmd::kSensitivityPrivate, QuickOrSelected},
    {cmd::kEdit, cmd::kEdit, OpenEditor},
    {cmd::kActivate, cmd::kComplete, CompleteOrActivateSelected},
    {cmd::kCompleteOrActivate, cmd::kCompleteOrActivate, CompleteOrActivate},
    {cmd::kNew, cmd::kNew, OpenEditor},
    {cmd::kNewQuick, cmd::kNewQuick, NewQuick},
    {cmd::kCreateCopy, cmd::kCreateCopy, OnSelectedTask},
    {cmd::kView, cmd::kView, ViewTask},
    {cmd::kDelete, cmd::kRename, OnSelectedTask},
    {cmd::kPriorityDown, cmd::kPriorityCycle, OnSelectedTask},
    {cmd::kHigh, cmd::kLow, QuickOrSelected},
    {cmd::kDueDate, cmd::kDueDate, DueDate},
    {cmd::kTeamTask, cmd::kTeamTask, QuickOrSelected},
    {cmd::kNotes, cmd::kNotes, OnSelectedTask},
    {cmd::kNextTask, cmd::kPreviousTask, Navigate},
    {cmd::kReload, cmd::kReload, Reload},
    {cmd::kSettingsOptions, cmd::kSettingsMyText, SettingsPage},
    {cmd::kSettingsReset, cmd::kSettingsReset, SettingsPage},
    {cmd::kExit, cmd::kExit, Exit},
    {cmd::kSaveToFile, cmd::kSendMessaging, SendTask},
    {cmd::kBeamTask, cmd::kBeamAll, Beam},
    {cmd::kDeleteCompleted, cmd::kDeleteDisplayed, DeleteMany},
    {kCmdViewAllCategories, kCmdSetAsDefault, ViewCommand},
    {kViewAllTasks, kViewUndated, ViewCommand},
    {kViewSearch, kViewSearch, Search},
    {kCmdFilterNext, kCmdFilterPreviousSkipEmpty, StepFilter},
    {kCmdNextView, kCmdNextViewSkip, ViewCommand},
    {kCmdPreviousView, kCmdPreviousViewSkip, ViewCommand},
    {cmd::kQuickEntryEnter, cmd::kQuickEntryEnter, QuickEntryEnter},
    {cmd::kQuickEntryCallHistory, cmd::kQuickEntryCallHistory, QuickEntryCallHistory},
    {cmd::kChangeCategories, cmd::kChangeCategories, ChangeCategories},
    {cmd::kQuickReminder, cmd::kQuickReminder, QuickOrSelected},
    {cmd::kLinksMenuFirst, cmd::kLinks, LinkCommand},
    {cmd::kToggleCompact, cmd::kToggleCompact, ToggleCompact},
    {cmd::kFirstTask, cmd::kPageDown, Navigate},
    {cmd::kLinksMenuPhone, cmd::kLinksView, LinkCommand},
    {kCmdAllCategories, kCmdAllCategories, FilterCommand},
    {kCmdMultipleCategories, kCmdMultipleCategories, MultipleCategories},
    {kCmdFirstCategoryItem, kCmdLastCategoryItem, FilterCommand},
};

}  // namespace

bool RunCommand(UINT command, LPARAM lparam) {
  for (const CommandRange& range : kCommands) {
    if (command < range.first || command > range.last) continue;
    range.run(command, lparam);
    if (!InEntryMode()) UpdateListSoftKeys();
    return true;
  }
  return false;
}

void SendCommand(UINT command, LPARAM lparam) {
  SendMessageW(MainWindow().window, WM_COMMAND, MAKEWPARAM(static_cast<WORD>(command), 0), lparam);
}

int RefreshAfterViewChange(bool filter_changed) {
  if (filter_changed) UpdateFilterMenu();
  const int rows = RebuildList();
  UpdateViewMarks();
  UpdateListSoftKeys();
  return rows;
}

}  // namespace velmo::app
