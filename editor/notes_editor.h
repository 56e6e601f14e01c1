// The notes editor: a task's notes full-screen in a multi-line edit, with word
// wrap on or off, find and find next, selection, cut, copy and paste.
#pragma once

#include <string>

#include "platform/ui/types.h"

namespace velmo {

// Edits *notes under `title`; true (with *notes changed) on Done, false on Cancel.
bool EditNotesFullScreen(HWND owner, LPCWSTR title, std::wstring* notes);

}  // namespace velmo
