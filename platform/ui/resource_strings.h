// The running program's string table as the window system sees it: the texts
// the platform's own controls show (the message box's and the calendar's soft
// keys) are the program's resources, looked up by number through the function
// the program hands over when its table is linked in.
#pragma once

#include <string>

#include "platform/wintypes.h"

namespace velmo::ui {

// Returns the text of a string resource, or nullptr when there is none.
using StringLookup = const wchar_t* (*)(UINT id);

void SetStringLookup(StringLookup lookup);

// The resource's text; empty when it is absent or no table was handed over.
std::wstring ResourceText(UINT id);

}  // namespace velmo::ui
