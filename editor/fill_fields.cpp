#include "editor/fill_fields.h"

#include "editor/recurrence_choices.h"
#include "editor/recurrence_words.h"
#include "editor/recurrence_writer.h"

namespace velmo {
namespace {

constexpr size_t kDeviceNotesLimit = 31744;
constexpr double kMinutesPerDay = 1440.0;

DATE AtMinutes(DATE day, DWORD minutes) {
  return static_cast<double>(WholeDay(day)) + static_cast<double>(minutes) / kMinutesPerDay;
}

std::wstring TakeString(ITask* task, HRESULT (ITask::*get)(BSTR*)) {
  BSTR text = nullptr;
  std::wstring out;
  if (SUCCEEDED((task->*get)(&text)) && text) out.assign(text, SysStringLen(text));
  SysFreeString(text);
  return out;
}

// The importance values 0-2 are the list's indexes; anything else is Normal.
int PriorityIndexOf(LONG importance) {
  return importance >= olImportanceLow && importance <= olImportanceHigh
             ? static_cast<int>(importance)
             : 1;
}

void FillDates(ITask* task, const Settings& settings, DATE now, EditorFields* f) {
  DATE start = kNoDate, due = kNoDate, reminder = kNoDate;
  VARIANT_BOOL reminder_set = VARIANT_FALSE;
  task->get_StartDate(&start);
  task->get_DueDate(&due);
  task->get_ReminderTime(&reminder);
  task->get_ReminderSet(&reminder_set);
  const bool has_reminder = reminder_set != VARIANT_FALSE && reminder != kNoDate;
  const DATE today = WholeDay(now);
  f->start = f->due = f->reminder = DateField{kNoDate, today, true};

  if (due != kNoDate) {
    f->due.value = f->due.fallback = due;
  } else if (has_reminder) {
    f->due.fallback = WholeDay(reminder);
  }
  if (start != kNoDate) {
    f->start.value = f->start.fallback = start;
  } else if (!(due == kNoDate && !has_reminder)) {
    f->start.fallback = f->due.fallback;
  }
  if (has_reminder) {
    f->remembered_reminder = f->reminder.value = f->reminder.fallback = reminder;
  } else {
    DATE remembered = reminder;
    if (remembered == kNoDate) {
      remembered = now;
      if (start != kNoDate && start > now) {
        remembered = AtMinutes(start, settings.reminder_time_for_new);
      } else if (due != kNoDate) {
        remembered = AtMinutes(due, settings.reminder_time_for_new);
      }
    }
    f->remembered_reminder = f->reminder.fallback = remembered;
  }
  f->reminder.enabled = due != kNoDate;
}

void FillRecurrence(ITask* task, DATE today, EditorFields* f) {
  f->occurs = OccursList{};
  f->occurs_choice = kOccursOnce;
  f->no_end = true;
  f->pattern.reset();
  VARIANT_BOOL recurring = VARIANT_FALSE;
  IRecurrencePattern* live = nullptr;
  if (SUCCEEDED(task->get_IsRecurring(&recurring)) && recurring != VARIANT_FALSE &&
      SUCCEEDED(task->GetRecurrencePattern(&live)) && live) {
    RecurrencePattern pattern;
    poom::ReadPattern(live, &pattern);
    live->get_Occurrences(&pattern.Occurrences);
    live->Release();
    f->pattern = pattern;
  }
  const DATE base = OccursBaseDate(*f, today);
  FillOccursList(&f->occurs, base);
  f->recurrence_end = DateField{kNoDate, base, true};
  if (f->pattern) {
    SelectOccursChoice(&f->occurs, MatchRecurrence(&*f->pattern, base).choice);
    f->occurs_choice = f->occurs.selection;
    f->no_end = f->pattern->NoEndDate != FALSE;
    if (!f->no_end) {
      f->recurrence_end.value = f->pattern->PatternEndDate;
      f->occurrences_shown = OccurrenceCount(*f->pattern);
      f->occurrences_text = OccurrencesText(f->occurrences_shown);
    }
  }
  f->end_enabled = f->occurs_choice != kOccursOnce && f->recurrence_enabled;
  f->recurrence_end.enabled = f->end_enabled;
}

}  // namespace

bool NotesLookTruncated(const std::wstring& notes) {
  return notes.size() > kDeviceNotesLimit && notes.back() == L']';
}

HRESULT FillFieldsFromTask(ITask* task, const Settings& settings, DATE now, EditorFields* f) {
  if (!task) return E_POINTER;
  f->subject = TakeString(task, &ITask::get_Subject);
  LONG importance = olImportanceNormal;
  task->get_Importance(&importance);
  f->priority_index = PriorityIndexOf(importance);
  FillDates(task, settings, now, f);
  f->categories = TakeString(task, &ITask::get_Categories);
  f->notes = TakeString(task, &ITask::get_Body);
  f->notes_truncated = NotesLookTruncated(f->notes);
  VARIANT_BOOL flag = VARIANT_FALSE;
  task->get_Complete(&flag);
  f->completed = flag != VARIANT_FALSE;
  f->recurrence_enabled = !f->completed;
  FillRecurrence(task, WholeDay(now), f);
  LONG sensitivity = olNormal;
  task->get_Sensitivity(&sensitivity);
  f->private_checked = sensitivity != olNormal;
  f->sensitivity_index = sensitivity == olPrivate ? 1 : 0;
  flag = VARIANT_FALSE;
  task->get_TeamTask(&flag);
  f->team_task = flag != VARIANT_FALSE;
  return S_OK;
}

void FillNewTaskDefaults(const Settings& settings, const CategoryList& filter, DATE now,
                         EditorFields* f) {
  const DATE today = WholeDay(now);
  if (settings.filtered_cat_for_new == 1 && filter.count() == 1) {
    f->categories = filter.entries.front().name;  // No Category: the empty name
  } else {
    f->categories = settings.categories_for_new;
  }
  f->private_checked = settings.sensitivity_for_new != 0;
  f->sensitivity_index = settings.sensitivity_for_new == olPrivate ? 1 : 0;
  f->team_task = settings.team_task_for_new == 1;
  f->priority_index = settings.importance_for_new == 0 ? 0 : settings.importance_for_new == 2 ? 2 : 1;
  f->reminder_on_due = settings.reminder_for_new == 1;
  f->start = f->due = DateField{kNoDate, today, true};
  f->remembered_reminder = AtMinutes(today, settings.reminder_time_for_new);
  f->reminder = DateField{kNoDate, f->remembered_reminder, false};
  f->occurs = OccursList{};
  FillOccursList(&f->occurs, today);
  f->recurrence_end = DateField{kNoDate, today, false};
  f->end_enabled = false;
}

}  // namespace velmo
