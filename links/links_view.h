// The Links View: the task's subject and notes in the text view that marks
// their links; the action key acts on the chosen link as the task's menu
// would (with the same question), "Edit" ends the view with 40000 for the
// main window, "Cancel" and the back key with 0.
#pragma once

#include "links/link_actions.h"
#include "platform/ui/types.h"

namespace velmo {

INT_PTR ShowLinksView(HWND owner, const LinkTask& task);

}  // namespace velmo
