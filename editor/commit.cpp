// Done in the task editor: the editor's values written into the task item one
// property after another in a fixed order, the item saved (or, when its notes
// were edited on the device, replaced by a fresh copy), then the team flag and
// the categories written straight into its record. A refused save is explained
// by the failure rules.
#include "editor/commit.h"

#include <string>

#include "editor/recurrence_choices.h"
#include "editor/recurrence_writer.h"
#include "platform/cedb.h"
#include "platform/clock.h"
#include "platform/lasterror.h"
#include "settings/settings.h"
#include "store/connection.h"
#include "store/direct_writes.h"
#include "store/task_recurrence.h"

namespace velmo {
namespace {

constexpr DATE kReminderWindowDays = 45;
constexpr int kPrivateIndex = 1;  // the Sensitivity list: 0 Normal, 1 Private

// Holds the one reference the commit was given and lets it go on every path.
class HeldTask {
 public:
  explicit HeldTask(ITask* task) : task_(task) {}
  ~HeldTask() {
    if (task_) task_->Release();
  }
  HeldTask(const HeldTask&) = delete;
  HeldTask& operator=(const HeldTask&) = delete;
  ITask* get() const { return task_; }
  void Replace(ITask* other) {
    task_->Release();
    task_ = other;
  }

 private:
  ITask* task_;
};

bool Set(DATE d) { return d != kNoDate; }
DATE DayOf(DATE d) { return static_cast<DATE>(WholeDay(d)); }
VARIANT_BOOL Flag(bool b) { return b ? VARIANT_TRUE : VARIANT_FALSE; }

// The Priority list's index 0 Low, 2 High; anything else Normal.
LONG ImportanceOf(int index) {
  if (index == 0) return olImportanceLow;
  if (index == 2) return olImportanceHigh;
  return olImportanceNormal;
}

LONG SensitivityOf(const EditorValues& v) {
  const bool is_private = v.compact_layout ? v.private_checked : v.sensitivity_index == kPrivateIndex;
  return is_private ? olPrivate : olNormal;
}

// An empty reminder picker still leaves the task a reminder time, drawn from
// its own dates: the remembered reminder while it lies within 45 days before
// the due date (or the start date), else the due day at the new-task time.
DATE ReminderFromTaskDates(DATE remembered, DATE start, DATE due, DWORD time_for_new) {
  const DATE d = DayOf(remembered);
  if (Set(remembered) && due - kReminderWindowDays <= d && d <= due) return remembered;
  if (Set(remembered) && Set(start) && start - kReminderWindowDays <= d && d <= start) return remembered;
  return due + (time_for_new / 60) / 24.0 + (time_for_new % 60) / 1440.0;
}

// The reminder as the record keeps it: moved back by the desktop's reminder
// difference, except that a reminder on or after the due day is kept as a bare
// date, its real time (*full) handed to the notification through the pending
// full reminder.
DATE StoredReminderTime(DATE reminder, DATE start, DATE due, LONG delta_hours, DATE* full) {
  const DATE shifted = reminder - delta_hours / 24.0;
  const DATE d = DayOf(shifted);
  if (d >= due || (d == start && shifted < due - kReminderWindowDays)) {
    *full = reminder;
    return DayOf(reminder);
  }
  return shifted;
}

// Whether the body the item holds differs from the new notes.
bool NotesChanged(ITask* task, const std::wstring& notes) {
  BSTR old = nullptr;
  const bool had_old = SUCCEEDED(task->get_Body(&old)) && old != nullptr;
  const bool changed = had_old ? notes != std::wstring(old, SysStringLen(old)) : !notes.empty();
  SysFreeString(old);
  return changed;
}

LONG WriteRecurrence(ITask* task, const EditorValues& v, DATE base) {
  if (v.occurs_choice == kCustomPattern && v.custom_pattern) {
    IRecurrencePattern* pattern = nullptr;
    if (SUCCEEDED(task->GetRecurrencePattern(&pattern)) && pattern) {
      poom::WritePattern(*v.custom_pattern, pattern);
      pattern->Release();
    }
  }
  return WriteRecurrenceToItem(task, v.occurs_choice, base, v.recurrence_end);
}

bool ItemRecursAgain(ITask* task) {
  bool recurring = false;
  RecurrencePattern pattern;
  return SUCCEEDED(ReadRecurrenceFromItem(task, &recurring, &pattern)) && RecursAgain(recurring, pattern);
}

}  // namespace

HRESULT CommitTask(const EditorValues& v, ITask* item, bool is_new, const CommitHooks& hooks) {
  if (!item) return E_POINTER;
  HeldTask task(item);
  const Settings& s = CurrentSettings();

  const DATE now = NowAsDate();
  item->put_Importance(ImportanceOf(v.priority_index));
  const DATE start = Set(v.start) ? DayOf(v.start) : kNoDate;
  item->put_StartDate(start);
  const DATE due = Set(v.due) ? DayOf(v.due) : kNoDate;
  item->put_DueDate(due);
  Store().pending_reminder_time = 0.0;

  bool reminder_set = false;
  DATE reminder = kNoDate;
  if (Set(v.reminder)) {
    reminder_set = true;
    reminder = v.reminder;
    if (reminder < now) {
      if (!hooks.confirm_past_reminder || !hooks.confirm_past_reminder()) {
        if (hooks.focus_reminder) hooks.focus_reminder();
        return kDatesRefused;
      }
      reminder_set = false;  // the time is still written below
    }
  } else if (Set(due)) {
    reminder = ReminderFromTaskDates(v.remembered_reminder, start, due, s.reminder_time_for_new);
  }
  item->put_ReminderSet(Flag(reminder_set));
  if (Set(reminder))
    item->put_ReminderTime(
        StoredReminderTime(reminder, start, due, s.reminder_delta, &Store().pending_reminder_time));

  const bool notes_changed = !is_new && s.notes_synchro == 1 && NotesChanged(item, v.notes);
  item->put_Body(v.notes.c_str());
  item->put_Subject(v.subject.c_str());
  const std::wstring& categories = v.categories;  // written after the save

  const LONG occurrences = WriteRecurrence(item, v, RecurrenceBaseDate(start, due, DayOf(now)));
  item->put_Sensitivity(SensitivityOf(v));
  item->put_TeamTask(Flag(v.team_task));

  VARIANT_BOOL was_complete = VARIANT_FALSE;
  item->get_Complete(&was_complete);
  // Completing an occurrence of a series that goes on is the main window's
  // work once the rest is saved.
  const bool completion_deferred = v.completed && !was_complete && ItemRecursAgain(item);
  if (!completion_deferred) {
    if (v.completed && s.del_reminder_on_complete == 1) item->put_ReminderSet(VARIANT_FALSE);
    item->put_Complete(Flag(v.completed));
  }

  // The record and its extra properties go to disk in one transaction: one
  // flush per save, and no half-saved task if the machine stops between them.
  const bool batched = cedb::BeginWriteBatch(&Store().volume);
  HRESULT result = S_OK;
  if (notes_changed) {
    // A fresh item carries notes edited on the device whole to the desktop.
    ITask* copy = nullptr;
    result = item->Copy(&copy);
    if (SUCCEEDED(result) && copy) {
      item->Delete();
      task.Replace(copy);
    }
  } else {
    result = item->Save();
  }

  if (SUCCEEDED(result)) {
    WriteTaskTeamFlag(task.get(), v.team_task ? 1 : 0, false);
    WriteTaskCategories(task.get(), categories.c_str(), false);
  }
  if (batched && !cedb::EndWriteBatch(&Store().volume) && SUCCEEDED(result)) result = FailureFromLastError();
  if (SUCCEEDED(result)) {
    Store().task_saved = true;
    CEOID oid = 0;
    task.get()->get_Oid(&oid);
    if (hooks.saved) hooks.saved(oid, completion_deferred);
    return S_OK;
  }
  // Nothing was saved: no re-read is to take this reminder.
  Store().pending_reminder_time = kNoDate;
  if (hooks.show_failure) hooks.show_failure(DescribeSaveFailure({start, due, reminder, occurrences, result}));
  return result;
}

HRESULT CommitTaskById(IPOutlookApp* app, CEOID oid, const EditorValues& values, const CommitHooks& hooks) {
  if (!app) return E_POINTER;
  ITask* item = nullptr;
  const HRESULT got = oid == 0 ? app->CreateItem(olTaskItem, &item) : app->GetItemFromOid(oid, &item);
  if (SUCCEEDED(got) && item) return CommitTask(values, item, oid == 0, hooks);
  const HRESULT failure = FAILED(got) ? got : E_FAIL;
  // The record went away while it was being edited: said so whatever the dates.
  if (oid != 0 && hooks.show_failure) hooks.show_failure(DescribeSaveFailure({.result = failure}));
  return failure;
}

}  // namespace velmo
