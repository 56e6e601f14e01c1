#include "reminders/reminder_check.h"

#include "platform/clock.h"
#include "platform/notify.h"
#include "platform/poom.h"
#include "reminders/reminder_time.h"
#include "reminders/task_notification.h"
#include "settings/settings.h"
#include "store/connection.h"
#include "store/direct_writes.h"

namespace velmo {
namespace {

bool SameDay(DATE a, DATE b) { return WholeDay(a) == WholeDay(b); }

// The reminder time the task should have, given the one its record gives (C).
DATE WantedReminder(const Task& task, const ReadContext& context) {
  const StoreConnection& store = Store();
  const DATE computed = task.reminder_time;
  if (context.reread && context.entry_pending != kNoDate) return context.entry_pending;
  if (store.pending_reminder_time != kNoDate && store.pending_reminder_time != 0.0)
    return store.pending_reminder_time;
  if (task.reminder_minutes != 0) return computed;
  if (context.reread) {
    // A reminder set at a time of day survives a change that only moved the day.
    const DATE previous = context.previous_reminder;
    return previous != kNoDate && SameDay(previous, computed) ? previous : computed;
  }
  if (!task.reminder_set) return computed;
  const DATE existing = NotificationTime(task.notification_handle);
  if (existing != kNoDate && SameDay(existing, computed)) return existing;
  return AtTimeOfDay(computed, CurrentSettings().reminder_time);
}

// A recurring task's pattern must not start before the task's base date, or
// the moved reminder would fall before the series.
void MovePatternStart(const Task& task) {
  IPOutlookApp* app = Store().app;
  ITask* item = nullptr;
  if (!app || FAILED(app->GetItemFromOid(task.oid, &item)) || !item) return;
  IRecurrencePattern* pattern = nullptr;
  if (SUCCEEDED(item->GetRecurrencePattern(&pattern)) && pattern) {
    const DATE base = task.start_date != kNoDate ? task.start_date : task.due_date;
    DATE start = kNoDate;
    if (SUCCEEDED(pattern->get_PatternStartDate(&start)) && start < base) {
      pattern->put_PatternStartDate(base);
      item->Save();
    }
    pattern->Release();
  }
  item->Release();
}

}  // namespace

void CheckReminder(Task* task, const ReadContext& context) {
  StoreConnection& store = Store();
  if (store.copy_flag) task->notification_handle = 0;  // a copy must not share its source's

  const DATE wanted = WantedReminder(*task, context);
  const bool changed = wanted != task->reminder_time;
  if (changed) {
    if (task->recurring) MovePatternStart(*task);
    task->reminder_minutes = ReminderMinutesFor(*task, wanted);
    task->reminder_time = wanted;
  }

  const DWORD old_handle = task->notification_handle;
  if (task->reminder_set && NowAsDate() <= wanted) {
    task->notification_handle = SetTaskNotification(task);
    if (changed || task->notification_handle != old_handle) WriteReminderHandle(*task);
  } else {
    if (task->notification_handle != 0) {
      CeClearUserNotification(notify::HandleOf(task->notification_handle));
      task->notification_handle = 0;
    }
    // Without a change the record keeps the handle of the removed notification.
    if (changed) WriteReminderHandle(*task);
  }

  store.pending_reminder_time = kNoDate;
  store.copy_flag = false;
}

}  // namespace velmo
