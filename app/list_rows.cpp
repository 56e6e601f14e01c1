#include "app/list_rows.h"

#include <algorithm>

#include "app/main_window_state.h"
#include "list/view_rows.h"
#include "list/view_title.h"
#include "platform/ui/list_view.h"
#include "platform/ui/window.h"
#include "store/task_table.h"

namespace velmo::app {
namespace {

HWND List() { return MainWindow().list; }

}  // namespace

void DetachListRows() {
  DetachedRows& detached = MainWindow().detached;
  if (detached.on) return;
  const Task* task = SelectedTask();
  detached = {true, task ? task->oid : 0, SelectedRow()};
  if (List()) ListView_DeleteAllItems(List());
}

int RebuildList() {
  HWND list = List();
  if (!list) return 0;
  DetachListRows();
  const DetachedRows before = MainWindow().detached;
  const CEOID selected_oid = before.oid;
  const int selected_row = before.row;
  MainWindow().detached = {};

  const std::vector<const Task*> rows = SortedViewRows(Tasks(), kNoDate);
  LVITEMW item{};
  item.mask = LVIF_PARAM;
  int kept = -1;
  for (const Task* task : rows) {
    item.lParam = reinterpret_cast<LPARAM>(task);
    const int row = ListView_InsertItem(list, &item);
    if (selected_oid && task->oid == selected_oid) kept = row;
    ++item.iItem;
  }
  const int count = static_cast<int>(rows.size());
  if (count > 0) SelectRow(kept >= 0 ? kept : std::clamp(selected_row, 0, count - 1));
  UpdateTitle();
  return count;
}

void UpdateTitle() {
  if (MainWindow().window) SetWindowTextW(MainWindow().window, ListTitle(RowCount()).c_str());
}

int RowCount() { return List() ? ListView_GetItemCount(List()) : 0; }

const Task* RowTask(int row) {
  if (!List() || row < 0 || row >= RowCount()) return nullptr;
  LVITEMW item{};
  item.mask = LVIF_PARAM;
  item.iItem = row;
  if (!ListView_GetItem(List(), &item)) return nullptr;
  return reinterpret_cast<const Task*>(item.lParam);
}

int SelectedRow() { return List() ? ListView_GetNextItem(List(), -1, LVNI_SELECTED) : -1; }

const Task* SelectedTask() { return RowTask(SelectedRow()); }

bool SelectRow(int row) {
  HWND list = List();
  if (!list || row < 0 || row >= RowCount()) return false;
  ListView_SetItemState(list, row, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
  ListView_EnsureVisible(list, row, FALSE);
  return true;
}

bool SelectTaskRow(CEOID oid) {
  if (!List() || !oid) return false;
  const int rows = RowCount();
  for (int row = 0; row < rows; ++row) {
    const Task* task = RowTask(row);
    if (task && task->oid == oid) return SelectRow(row);
  }
  return false;
}

void MoveSelection(int delta) {
  const int rows = RowCount();
  if (rows == 0) return;
  const int from = SelectedRow();
  SelectRow(std::clamp(from < 0 ? 0 : from + delta, 0, rows - 1));
}

void MoveSelectionByPage(int direction) {
  const int page = List() ? std::max(1, ListView_GetCountPerPage(List())) : 1;
  MoveSelection(direction * page);
}

}  // namespace velmo::app
