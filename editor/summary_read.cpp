#include "editor/summary_read.h"

#include "store/direct_writes.h"
#include "store/task_recurrence.h"

namespace velmo {
namespace {

HRESULT ReadText(HRESULT (ITask::*get)(BSTR*), ITask* item, std::wstring* out) {
  BSTR text = nullptr;
  const HRESULT hr = (item->*get)(&text);
  if (SUCCEEDED(hr) && text) out->assign(text);
  SysFreeString(text);
  return hr;
}

HRESULT ReadFlag(HRESULT (ITask::*get)(VARIANT_BOOL*), ITask* item, bool* out) {
  VARIANT_BOOL value = VARIANT_FALSE;
  const HRESULT hr = (item->*get)(&value);
  *out = SUCCEEDED(hr) && value != VARIANT_FALSE;
  return hr;
}

}  // namespace

HRESULT ReadSummaryTask(ITask* item, SummaryTask* t) {
  if (!item || !t) return E_POINTER;
  HRESULT first = S_OK;
  for (HRESULT step :
       {ReadText(&ITask::get_Subject, item, &t->subject), item->get_Importance(&t->importance),
        item->get_StartDate(&t->start), item->get_DueDate(&t->due),
        ReadFlag(&ITask::get_ReminderSet, item, &t->reminder_set),
        item->get_ReminderTime(&t->reminder), item->get_Sensitivity(&t->sensitivity),
        ReadFlag(&ITask::get_TeamTask, item, &t->team_task),
        ReadFlag(&ITask::get_Complete, item, &t->complete),
        item->get_DateCompleted(&t->completed), ReadText(&ITask::get_Body, item, &t->notes),
        ReadRecurrenceFromItem(item, &t->recurring, &t->pattern)}) {
    if (FAILED(step) && SUCCEEDED(first)) first = step;
  }
  // A record without categories is a task of No Category, not a failure.
  ReadTaskCategories(item, &t->categories);
  return first;
}

}  // namespace velmo
