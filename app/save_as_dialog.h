// "Save As...": asks for the name of the file to write, offering one.
#pragma once

#include <string>

#include "platform/ui/types.h"

namespace velmo::app {

// True with *name what the user typed (at least one character); false on Cancel.
bool AskSaveAsFileName(HWND owner, std::wstring* name);

}  // namespace velmo::app
