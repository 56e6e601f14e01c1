// The call history offered by the editor's "Call History" insert and the
// quick-entry box's talk key: the calls in a list over the whole dialog,
// newest first; "Insert" (or Enter) takes the focused one, "Cancel" none.
#pragma once

#include "res/dialog_table.h"
#include "res/menu_table.h"

namespace velmo::res {

constexpr int kCallHistoryList = 100;
extern const DialogDef kCallHistoryDialog;
extern const SoftKeyBarDef kCallHistoryBar;

}  // namespace velmo::res
