// The call history as a list to choose from, and the text of the call the
// user chose for the place it goes in.
#pragma once

#include <string>
#include <vector>

#include "editor/call_insert.h"
#include "platform/ui/types.h"

namespace velmo {

// A call's row: who (the name, else the number), when, and its kind.
std::wstring CallRowText(const CallEntry& call);

// Shows the calls; the index of the chosen one, -1 when the user cancelled.
int ChooseCall(HWND owner, const std::vector<CallEntry>& calls);

// The phone's calls named from the address book, offered to the user; the
// chosen one's text as "CallInsertMode" says, empty when there is no call
// history or nothing was chosen.
std::wstring PickCallText(HWND owner);

}  // namespace velmo
