// A task's reminder as a VALARM: minutes before the due date (TRIGGER with
// RELATED=END) or before the start date (RELATED=START). The reminder's
// options and sound, which iCalendar has no place for, go in X- properties of
// the task.
#pragma once

#include <libical/ical.h>

#include <string>

#include "platform/poom_task.h"

namespace velmo::sync {

// The VALARM the task's reminder is read from and written over: the task's
// first one with a trigger. Null when there is none.
icalcomponent* ReminderAlarm(icalcomponent* vtodo);

// Sets reminder_set, reminder_minutes and reminder_from_due from the alarm
// (start and due of `values` already read).
void ReadReminder(icalcomponent* alarm, poom::TaskValues* values);

// The VALARM text (BEGIN:VALARM ... END:VALARM, CRLF lines) of a set reminder.
std::string ReminderAlarmText(const poom::TaskValues& values);

}  // namespace velmo::sync
