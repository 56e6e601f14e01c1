// The selected task's links at the top of its menu: "Dial %1", "Msg to %1",
// the e-mail address, the web address, then a separator over the usual items.
#pragma once

#include "links/link_actions.h"
#include "platform/ui/types.h"

namespace velmo {

// Longest text of a phone item.
constexpr size_t kMaxPhoneItemChars = 100;

// Inserts the task's link items at the top of the menu (the caller removed
// the last ones). Returns the number of items inserted, separators included.
int AddLinkItems(HMENU menu, const LinkTask& task);

}  // namespace velmo
