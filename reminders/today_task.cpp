#include "reminders/today_task.h"

#include <cmath>

#include "list/view_rules.h"
#include "platform/clock.h"
#include "store/task_table.h"

namespace velmo {

TodayTaskState& TodayTask() {
  static TodayTaskState state;
  return state;
}

void UpdateTodayTask(bool foreground) {
  TodayTaskState& state = TodayTask();
  state.icon_shown = false;
  state.first_today = 0;
  const DATE today = std::trunc(NowAsDate());
  for (const auto& task : Tasks()) {
    if (!task || task->oid == 0 || task->complete) continue;
    if (EffectiveDueDate(*task) == today || task->start_date == today) {
      state.first_today = task->oid;
      break;
    }
  }
  state.icon_shown = state.first_today != 0 && foreground;
}

void ClearTodayTask() { TodayTask() = TodayTaskState{}; }

}  // namespace velmo
