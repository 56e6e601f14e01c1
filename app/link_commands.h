// The main window's link commands on the selected task: its link items
// ("Dial %1", "Msg to %1", its addresses), "Phone/Email/URL" and the Links View.
#pragma once

#include "platform/ui/types.h"

namespace velmo::app {

// Puts the selected task's links at the top of the task menu (after the last
// ones were removed).
void AddSelectedTaskLinks(HMENU task_menu);

// 40118-40121, 40165 and 40166.
void RunSelectedTaskLink(UINT command);

}  // namespace velmo::app
