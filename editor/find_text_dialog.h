// The prompt of "Find..." in the notes editor: "Find what:" over a text field,
// "Done" and "Cancel".
#pragma once

#include <string>

#include "platform/ui/types.h"

namespace velmo {

// Shows `text` for editing; true with the typed text on "Done".
bool AskFindText(HWND owner, std::wstring* text);

}  // namespace velmo
