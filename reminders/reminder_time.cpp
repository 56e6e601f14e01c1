#include "reminders/reminder_time.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace velmo {
namespace {
constexpr double kMinutesPerDay = 1440.0;
constexpr double kHoursPerDay = 24.0;
}  // namespace

DATE AtTimeOfDay(DATE date, DWORD minutes_after_midnight) {
  const DWORD hour = minutes_after_midnight / 60;
  const DWORD minute = minutes_after_midnight % 60;
  return static_cast<DATE>(WholeDay(date)) + (hour * 60.0 + minute) / kMinutesPerDay;
}

DATE ReminderTimeOf(const Task& task, const Settings& s) {
  DATE reminder = kNoDate;
  if (task.reminder_base_flag != 0) {
    if (task.due_date != kNoDate) reminder = task.due_date - task.reminder_minutes / kMinutesPerDay;
  } else {
    reminder = task.start_date - task.reminder_minutes / kMinutesPerDay;
  }
  if (reminder == kNoDate) return reminder;
  if (task.reminder_minutes == kMinutesAtDefaultTime) return AtTimeOfDay(reminder, s.reminder_time);
  return reminder + s.reminder_delta / kHoursPerDay;
}

LONG ReminderMinutesFor(const Task& task, DATE reminder, const Settings& s) {
  const DATE base = task.reminder_base_flag != 0 ? task.due_date : task.start_date;
  const double minutes = (base - reminder) * kMinutesPerDay;
  const double nudged = minutes >= 0 ? minutes + 0.1 : minutes - 0.1;
  // Dates far outside the calendar must not overflow the stored 32 bits.
  const double total = std::trunc(nudged) + s.reminder_delta * 60.0;
  return static_cast<LONG>(std::clamp(total, double{INT32_MIN}, double{INT32_MAX}));
}

}  // namespace velmo
