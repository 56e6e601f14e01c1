// The arithmetic between a task's stored reminder (minutes before its base date)
// and the reminder time the program shows. The settings add two things: the
// reminder difference ("ReminderDelta", hours) that makes up for a desktop whose
// reminders run at another time, and the default time of day ("ReminderTime").
#pragma once

#include "platform/wintypes.h"
#include "settings/settings.h"
#include "store/task.h"

namespace velmo {

// Stored minutes that mean "on the day, at the default reminder time".
constexpr LONG kMinutesAtDefaultTime = 64799;

// The day of `date` at the time of day `minutes_after_midnight`.
DATE AtTimeOfDay(DATE date, DWORD minutes_after_midnight);

// The reminder time of a record as read: the base date (the due date when the
// base flag is set, else the start date, even when absent) less the minutes,
// then moved to the default time (minutes 64799) or by the reminder difference.
// kNoDate when the base flag is set and there is no due date.
DATE ReminderTimeOf(const Task& task, const Settings& s = CurrentSettings());

// The minutes to store for a wanted reminder time: the whole minutes from the
// reminder to the base date, rounded away from a tenth of a minute so that
// conversion noise never loses a minute, plus the reminder difference.
LONG ReminderMinutesFor(const Task& task, DATE reminder, const Settings& s = CurrentSettings());

}  // namespace velmo
