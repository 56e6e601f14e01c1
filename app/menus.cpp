#include "app/menus.h"

#include <algorithm>
#include <array>

#include "app/link_commands.h"
#include "app/list_rows.h"
#include "app/main_window_state.h"
#include "app/shortcut_actions.h"
#include "app/shortcut_keys.h"
#include "categories/filter_menu.h"
#include "list/list_state.h"
#include "app/entry_box.h"
#include "list/sort_rows.h"
#include "list/view_ids.h"
#include "platform/ui/menu.h"
#include "platform/ui/softkey_bar.h"
#include "res/command_ids.h"
#include "res/menus_app.h"
#include "res/strings.h"
#include "settings/settings.h"
#include "store/task_table.h"

namespace velmo::app {
namespace {

// Commands that work on the selected task: greyed in the menus without one.
constexpr std::array kSelectedTaskCommands = {
    cmd::kEdit,      cmd::kComplete,   cmd::kActivate,      cmd::kCompleteOrActivate,
    cmd::kCreateCopy, cmd::kView,      cmd::kDelete,        cmd::kRename,
    cmd::kPriorityDown, cmd::kPriorityUp, cmd::kPriorityCycle, cmd::kHigh,
    cmd::kNormal,    cmd::kLow,        cmd::kDueDate,       cmd::kTeamTask,
    cmd::kNotes,     cmd::kSaveToFile, cmd::kSendMessaging, cmd::kBeamTask,
    cmd::kChangeCategories, cmd::kLinksView, cmd::kLinks};

// The left soft key's text for a "Left Menu" command.
struct LeftKeyText {
  UINT command;
  UINT text_id;
};
constexpr LeftKeyText kLeftKeyTexts[] = {
    {cmd::kNew, cmd::kNew},   {cmd::kEdit, cmd::kEdit},   {cmd::kDelete, cmd::kDelete},
    {cmd::kNotes, cmd::kNotes}, {cmd::kView, cmd::kView}, {cmd::kNewQuick, cmd::kNew},
};

// Link items left from the last time the task menu opened; the links part
// puts the selected task's own there.
constexpr std::array kLinkItems = {cmd::kLinksMenuFirst, cmd::kLinksMenuPhone,
                                   cmd::kLinksMenuMail, cmd::kLinksMenuWeb};

UINT Flag(bool on, UINT yes, UINT no) { return on ? yes : no; }

void AppendItems(HMENU menu, const res::MenuDef& def) {
  for (const res::MenuItemDef& item : def.items) {
    if (item.text_id == 0) {
      AppendMenuW(menu, MF_SEPARATOR, 0, nullptr);
    } else if (item.popup) {
      AppendMenuW(menu, MF_POPUP, reinterpret_cast<UINT_PTR>(BuildMenu(*item.popup)),
                  res::Text(item.text_id).c_str());
    } else {
      AppendMenuW(menu, MF_STRING | item.flags, item.command, res::Text(item.text_id).c_str());
    }
  }
}

// The text must outlive the key's use (the bar copies it).
SOFTKEY SoftKey(const std::wstring& text, UINT command, HMENU menu) {
  return SOFTKEY{text.c_str(), command, menu};
}

// The task menu is the submenu that holds "View" (40007).
HMENU TaskMenu() {
  HMENU main = MainWindow().main_menu;
  for (int i = 0; i < GetMenuItemCount(main); ++i) {
    HMENU sub = GetSubMenu(main, i);
    if (sub && GetMenuState(sub, cmd::kView, MF_BYCOMMAND) != static_cast<UINT>(-1)) return sub;
  }
  return nullptr;
}

void RemoveOldLinkItems() {
  HMENU task_menu = TaskMenu();
  if (!task_menu) return;
  bool removed = false;
  for (UINT id : kLinkItems) removed |= DeleteMenu(task_menu, id, MF_BYCOMMAND) != FALSE;
  if (removed && (GetMenuState(task_menu, 0, MF_BYPOSITION) & MF_SEPARATOR))
    DeleteMenu(task_menu, 0, MF_BYPOSITION);
}

void PrepareListMenu(HMENU menu) {
  const Task* task = SelectedTask();
  for (UINT id : kSelectedTaskCommands)
    EnableMenuItem(menu, id, MF_BYCOMMAND | Flag(task != nullptr, MF_ENABLED, MF_GRAYED));
  const bool rows = RowCount() > 0;
  EnableMenuItem(menu, cmd::kBeamDisplayed, MF_BYCOMMAND | Flag(rows, MF_ENABLED, MF_GRAYED));
  EnableMenuItem(menu, cmd::kDeleteDisplayed, MF_BYCOMMAND | Flag(rows, MF_ENABLED, MF_GRAYED));
  EnableMenuItem(menu, cmd::kBeamAll,
                 MF_BYCOMMAND | Flag(!Tasks().empty(), MF_ENABLED, MF_GRAYED));
  const LONG importance = task ? task->importance : -1;
  CheckMenuRadioItem(menu, cmd::kHigh, cmd::kLow,
                     importance == kImportanceHigh     ? cmd::kHigh
                     : importance == kImportanceNormal ? cmd::kNormal
                     : importance == kImportanceLow    ? cmd::kLow
                                                       : 0,
                     MF_BYCOMMAND);
  CheckMenuItem(menu, cmd::kTeamTask,
                MF_BYCOMMAND | Flag(task && task->team_task, MF_CHECKED, MF_UNCHECKED));
  RemoveOldLinkItems();
  AddSelectedTaskLinks(TaskMenu());
}

void PrepareQuickEntryMenu(HMENU menu) {
  for (const res::MenuItemDef& item : res::kQuickEntryMenu.items) {
    if (item.command)
      CheckMenuItem(menu, item.command,
                    MF_BYCOMMAND | Flag(EntryItemChecked(item.command), MF_CHECKED,
                                        MF_UNCHECKED));
  }
}

}  // namespace

HMENU BuildMenu(const res::MenuDef& def) {
  HMENU menu = CreatePopupMenu();
  AppendItems(menu, def);
  return menu;
}

void CreateMainMenus() {
  MainWindowState& w = MainWindow();
  w.main_menu = BuildMenu(res::kMainMenu);
  if (CurrentSettings().exit_menu != 1) DeleteMenu(w.main_menu, cmd::kExit, MF_BYCOMMAND);
  w.quick_menu = BuildMenu(res::kQuickEntryMenu);
  UpdateViewMarks();
  UpdateFilterMenu();
}

void DestroyMainMenus() {
  MainWindowState& w = MainWindow();
  if (w.main_menu) DestroyMenu(w.main_menu);
  if (w.quick_menu) DestroyMenu(w.quick_menu);
  w.main_menu = w.quick_menu = nullptr;
}

UINT LeftSoftKeyCommand() {
  return LeftMenuCommand(CurrentSettings().shortcuts[kSlotLeftMenu]);
}

bool ActsOnSelectedTask(UINT command) {
  return std::find(kSelectedTaskCommands.begin(), kSelectedTaskCommands.end(), command) !=
         kSelectedTaskCommands.end();
}

void ShowListSoftKeys() {
  HWND window = MainWindow().window;
  const std::wstring menu = res::Text(res::kTextMenu), none;
  SOFTKEY left = SoftKey(none, 0, nullptr);
  SOFTKEY right = SoftKey(menu, 0, MainWindow().main_menu);
  if (HWND bar = SHFindMenuBar(window)) {
    SetSoftKey(bar, SK_RIGHT, &right);
  } else {
    CreateSoftKeyBar(window, &left, &right);
  }
  UpdateListSoftKeys();
}

void UpdateListSoftKeys() {
  HWND bar = SHFindMenuBar(MainWindow().window);
  if (!bar || InEntryMode()) return;
  const UINT command = LeftSoftKeyCommand();
  const Task* task = SelectedTask();
  UINT text_id = 0;
  if (command == cmd::kCompleteOrActivate) {
    text_id = task && task->complete ? res::kTextActivate : res::kTextComplete;
  } else {
    for (const LeftKeyText& t : kLeftKeyTexts)
      if (t.command == command) text_id = t.text_id;
  }
  const std::wstring text = text_id ? res::Text(text_id) : std::wstring();
  SOFTKEY left = SoftKey(text, command, nullptr);
  SetSoftKey(bar, SK_LEFT, &left);
  EnableSoftKey(bar, SK_LEFT, !ActsOnSelectedTask(command) || task != nullptr);
}

void ShowQuickEntrySoftKeys() {
  HWND bar = SHFindMenuBar(MainWindow().window);
  if (!bar) return;
  const std::wstring done = res::Text(res::kQuickEntryBar.left.text_id);
  const std::wstring menu = res::Text(res::kTextMenu);
  SOFTKEY left = SoftKey(done, res::kQuickEntryBar.left.command, nullptr);
  SOFTKEY right = SoftKey(menu, 0, MainWindow().quick_menu);
  SetSoftKey(bar, SK_LEFT, &left);
  SetSoftKey(bar, SK_RIGHT, &right);
  EnableSoftKey(bar, SK_LEFT, TRUE);
}

void UpdateViewMarks() {
  HMENU menu = MainWindow().main_menu;
  if (!menu) return;
  CheckMenuRadioItem(menu, kFirstView, kLastView, CurrentView(), MF_BYCOMMAND);
  const DefaultViewItems items = UpdateAtDefaultState();
  CheckMenuItem(menu, kCmdDefaultView,
                MF_BYCOMMAND | Flag(items.default_view_checked, MF_CHECKED, MF_UNCHECKED));
  EnableMenuItem(menu, kCmdSetAsDefault,
                 MF_BYCOMMAND | Flag(items.set_as_default_enabled, MF_ENABLED, MF_GRAYED));
  CheckMenuRadioItem(menu, kCmdFirstSortBy, kCmdLastSortBy, CheckedSortByItem(), MF_BYCOMMAND);
}

void UpdateFilterMenu() {
  HMENU menu = MainWindow().main_menu;
  if (!menu) return;
  const UINT previous_next = CurrentFilterMenu().next_command;
  for (UINT id = kCmdFirstCategoryItem; id < previous_next; ++id)
    DeleteMenu(menu, id, MF_BYCOMMAND);
  const FilterMenu& filter = RebuildFilterMenu(Tasks());
  for (const FilterMenuItem& item : filter.category_items) {
    InsertMenuW(menu, kCmdMultipleCategories,
                MF_BYCOMMAND | MF_STRING | Flag(item.checked, MF_CHECKED, MF_UNCHECKED),
                item.command, item.text.c_str());
  }
  CheckMenuItem(menu, kCmdAllCategories,
                MF_BYCOMMAND | Flag(filter.all_categories_checked, MF_CHECKED, MF_UNCHECKED));
}

void PrepareMenus() {
  if (MainWindow().main_menu) PrepareListMenu(MainWindow().main_menu);
  if (MainWindow().quick_menu) PrepareQuickEntryMenu(MainWindow().quick_menu);
}

}  // namespace velmo::app
