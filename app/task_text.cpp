#include "app/task_text.h"

#include "app/task_changes.h"
#include "editor/summary_read.h"

namespace velmo::app {

std::wstring TaskText(const SummaryTask& task) {
  std::wstring text;
  for (const SummaryLine& line : SummaryLines(task, kTaskTextWidth)) {
    std::wstring l = LineText(line);
    l.erase(l.find_last_not_of(L' ') + 1);
    text += l;
    text += L'\n';
  }
  return text;
}

bool ReadTaskText(CEOID oid, SummaryTask* task, std::wstring* text) {
  ITask* item = nullptr;
  if (FAILED(OpenTaskItem(oid, &item)) || !item) return false;
  const HRESULT read = ReadSummaryTask(item, task);
  item->Release();
  if (FAILED(read)) return false;
  *text = TaskText(*task);
  return true;
}

}  // namespace velmo::app
