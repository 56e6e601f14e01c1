// The Rename dialog: the task's subject in an edit field, "Done" and "Cancel".
#pragma once

#include <string>

#include "platform/ui/types.h"

namespace velmo::app {

// Shows `subject` for editing; true with the new text on "Done".
bool AskNewSubject(HWND owner, std::wstring* subject);

}  // namespace velmo::app
