#include "editor/commit_values.h"

#include <string>

#include "editor/recurrence_words.h"
#include "platform/clock.h"
#include "store/task_recurrence.h"

namespace velmo {
namespace {

constexpr int kPrivateIndex = 1;
constexpr std::wstring_view kNoCategory = L"<NoCat>";

int PriorityIndexOf(LONG importance) {
  return importance >= olImportanceLow && importance <= olImportanceHigh ? static_cast<int>(importance) : 1;
}

std::wstring Text(HRESULT (ITask::*get)(BSTR*), ITask* item) {
  BSTR text = nullptr;
  std::wstring out;
  if (SUCCEEDED((item->*get)(&text)) && text) out.assign(text, SysStringLen(text));
  SysFreeString(text);
  return out;
}

bool Flag(HRESULT (ITask::*get)(VARIANT_BOOL*), ITask* item) {
  VARIANT_BOOL value = VARIANT_FALSE;
  return SUCCEEDED((item->*get)(&value)) && value != VARIANT_FALSE;
}

DATE AtMinutes(DATE day, DWORD minutes) {
  return static_cast<DATE>(WholeDay(day)) + (minutes / 60) / 24.0 + (minutes % 60) / 1440.0;
}

// An unset reminder is remembered from the task's own reminder time; a task
// without one is reminded today, or on its later start or its due day at the
// new-task time.
DATE RememberedReminder(const Task& record, DATE start, DATE due, DATE now, DWORD time_for_new) {
  if (record.reminder_time != kNoDate) return record.reminder_time;
  if (start != kNoDate && start > now) return AtMinutes(start, time_for_new);
  if (due != kNoDate) return AtMinutes(due, time_for_new);
  return now;
}

void ApplySensitivity(LONG sensitivity, EditorValues* v) {
  v->private_checked = sensitivity != olNormal;
  v->sensitivity_index = sensitivity == olPrivate ? kPrivateIndex : 0;
}

}  // namespace

HRESULT EditorValuesOfTask(ITask* item, const Task& record, const Settings& s, EditorValues* v) {
  if (!item || !v) return E_POINTER;
  *v = EditorValues{};
  v->compact_layout = s.edit_compact == 1;
  v->subject = Text(&ITask::get_Subject, item);
  LONG importance = olImportanceNormal;
  item->get_Importance(&importance);
  v->priority_index = PriorityIndexOf(importance);
  item->get_DueDate(&v->due);
  item->get_StartDate(&v->start);
  if (record.reminder_set) {
    v->reminder = record.reminder_time;
    v->remembered_reminder = record.reminder_time;
  } else {
    v->remembered_reminder = RememberedReminder(record, v->start, v->due, NowAsDate(), s.reminder_time_for_new);
  }
  v->categories = record.categories;
  v->notes = Text(&ITask::get_Body, item);
  v->completed = Flag(&ITask::get_Complete, item);

  bool recurring = false;
  RecurrencePattern pattern;
  const HRESULT read = ReadRecurrenceFromItem(item, &recurring, &pattern);
  if (FAILED(read)) return read;
  if (recurring) {
    const DATE base = v->start != kNoDate ? v->start : v->due != kNoDate ? v->due : pattern.PatternStartDate;
    v->occurs_choice = MatchRecurrence(&pattern, base).choice;
    v->recurrence_end = pattern.NoEndDate ? kNoDate : pattern.PatternEndDate;
  }

  LONG sensitivity = olNormal;
  item->get_Sensitivity(&sensitivity);
  ApplySensitivity(sensitivity, v);
  v->team_task = Flag(&ITask::get_TeamTask, item);
  return S_OK;
}

EditorValues NewTaskEditorValues(const Settings& s, std::wstring_view filter) {
  EditorValues v;
  v.compact_layout = s.edit_compact == 1;
  v.priority_index = PriorityIndexOf(static_cast<LONG>(s.importance_for_new));
  v.private_checked = s.sensitivity_for_new != 0;
  v.sensitivity_index = static_cast<LONG>(s.sensitivity_for_new) == olPrivate ? kPrivateIndex : 0;
  v.team_task = s.team_task_for_new == 1;
  const bool one_category = !filter.empty() && filter.find(L',') == std::wstring_view::npos;
  if (s.filtered_cat_for_new == 1 && one_category)
    v.categories = filter == kNoCategory ? std::wstring() : std::wstring(filter);
  else
    v.categories = s.categories_for_new;
  return v;
}

}  // namespace velmo
