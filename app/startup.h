// The program's entry: command line, single instance, hand-over to a running
// instance, the string-resource check, the shared state, and the run.
#pragma once

#include <string_view>

#include "platform/wintypes.h"

namespace velmo::app {

// Class and title of the main window; also the caption of the start-up messages.
constexpr const wchar_t* kMainWindowClass = L"Velmo ToDo List";
constexpr const wchar_t* kInstanceMutexName = L"_VELMO_TODO_MUTEX_";

// Runs the program for a command line (the arguments, no program name). Returns
// the exit code: the quit code after a normal run, 0 in every other case but a
// device root that cannot be used (1).
int RunProgram(std::wstring_view command_line);

// Shows a start-up failure with the error icon, captioned with the program's name.
void ShowStartupError(std::wstring_view text);

}  // namespace velmo::app
