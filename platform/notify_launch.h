// Starting the application of a notification: directly, or in a new terminal
// window when the program must open one of its own.
#pragma once

#include <string>
#include <vector>

namespace velmo::notify {

// Whether the program file can be started: an executable path, or a bare name
// found on PATH.
bool ApplicationExists(const std::wstring& application);

// The terminal that opens a program in a window of its own: $TERMINAL (which may
// carry options), else x-terminal-emulator; each followed by "-e".
std::vector<std::string> TerminalCommand();

// The argument vector that starts application with its command line (split at
// white space), in a terminal when asked.
std::vector<std::string> LaunchCommand(const std::wstring& application,
                                       const std::wstring& arguments, bool in_terminal);

// Starts the command in a session of its own without waiting for it. False with
// a description in *error when it cannot be started.
bool StartDetached(const std::vector<std::string>& command, std::string* error);

}  // namespace velmo::notify
