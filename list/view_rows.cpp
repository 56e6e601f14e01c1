#include "list/view_rows.h"

#include "list/belongs.h"
#include "list/list_state.h"
#include "list/sort_rows.h"
#include "platform/clock.h"

namespace velmo {
namespace {

bool Listable(const std::unique_ptr<Task>& task) { return task && task->oid != 0; }

}  // namespace

std::vector<const Task*> ViewRows(const TaskTable& table, DATE ref) {
  if (ref == kNoDate) ref = NowAsDate();
  const UINT view = CurrentView();
  std::vector<const Task*> rows;
  rows.reserve(table.size());
  for (const auto& task : table)
    if (Listable(task) && BelongsToView(*task, ref, view)) rows.push_back(task.get());
  return rows;
}

std::vector<const Task*> SortedViewRows(const TaskTable& table, DATE ref) {
  std::vector<const Task*> rows = ViewRows(table, ref);
  SortRows(rows);
  return rows;
}

bool ViewIsEmpty(const TaskTable& table, UINT view, DATE ref) {
  if (ref == kNoDate) ref = NowAsDate();
  for (const auto& task : table)
    if (Listable(task) && BelongsToView(*task, ref, view)) return false;
  return true;
}

}  // namespace velmo
