// The reminder check of a task just read: settles the reminder time the task
// should have, keeps exactly one platform notification for a reminder still to
// come, and writes the notification handle and the minutes back to the record
// when they changed.
#pragma once

#include "store/task.h"

namespace velmo {

// What the re-read knew of the entry before the record was read again.
struct ReadContext {
  bool reread = false;             // an entry of the table was refreshed
  DATE previous_reminder = kNoDate;  // its reminder time before the read
  DATE entry_pending = kNoDate;      // its pending reminder time
};

// Runs the check on `task` (read successfully just now). Uses and then clears
// the connection's pending reminder time and copy flag.
void CheckReminder(Task* task, const ReadContext& context);

}  // namespace velmo
