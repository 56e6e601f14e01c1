// "Due Date...": a day chosen in the month calendar becomes the due date of
// the selected task (saved through the commit, so that its reminder and dates
// are checked as the editor checks them), or, in entry mode, of the task being
// typed.
#pragma once

#include "platform/cedb.h"

namespace velmo::app {

// The calendar opens on the task's due date, or today when it has none. A
// refused save shows the reason and changes nothing.
void ChangeDueDate(CEOID oid);

// The calendar opens on the day chosen before, or today; the day chosen is
// the new task's due date, and its reminder follows the entry menu's mark.
void ChooseQuickEntryDueDate();

}  // namespace velmo::app
