#include "app/due_date_command.h"

#include "app/main_window_state.h"
#include "editor/commit.h"
#include "editor/commit_dialog_hooks.h"
#include "editor/commit_values.h"
#include "list/quick_entry.h"
#include "platform/clock.h"
#include "platform/oletime.h"
#include "platform/ui/month_calendar.h"
#include "platform/ui/window.h"
#include "res/strings.h"
#include "settings/settings.h"
#include "store/connection.h"
#include "store/task_table.h"

namespace velmo::app {
namespace {

constexpr UINT kDueDateTitle = 485;  // "Due Date"

// The day chosen, starting from `shown` (today when it is no date); false
// when the calendar was cancelled.
bool PickDay(DATE shown, DATE* chosen) {
  SYSTEMTIME st{};
  if (!VariantTimeToSystemTime(shown == kNoDate ? NowAsDate() : shown, &st)) return false;
  const std::wstring title = res::Text(kDueDateTitle);
  DATE day = kNoDate;
  if (!PickDateInCalendar(MainWindow().window, title.c_str(), &st) ||
      !SystemTimeToVariantTime(&st, &day))
    return false;
  *chosen = static_cast<DATE>(WholeDay(day));
  return true;
}

}  // namespace

void ChangeDueDate(CEOID oid) {
  const int index = FindTask(oid);
  if (index < 0 || !Store().app) return;
  const Task& record = *Tasks()[static_cast<size_t>(index)];
  DATE due = kNoDate;
  if (!PickDay(record.due_date, &due)) return;
  const CommitHooks hooks = DialogCommitHooks(nullptr, MainWindow().window);
  EditorValues values;
  ITask* item = nullptr;
  if (FAILED(Store().app->GetItemFromOid(oid, &item)) || !item) {
    // Gone since the list read it: the commit says so in words.
    CommitTaskById(Store().app, oid, values, hooks);
    return;
  }
  const HRESULT read = EditorValuesOfTask(item, record, CurrentSettings(), &values);
  item->Release();
  if (FAILED(read)) return;
  values.due = due;
  CommitTaskById(Store().app, oid, values, hooks);
}

void ChooseQuickEntryDueDate() {
  QuickEntryMode& mode = CurrentQuickEntry();
  DATE due = kNoDate;
  if (mode.active && PickDay(mode.due_date, &due)) mode.due_date = due;
  if (MainWindow().entry) SetFocus(MainWindow().entry);
}

}  // namespace velmo::app
