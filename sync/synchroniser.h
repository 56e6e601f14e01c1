// The synchroniser that keeps the folder in step with the server (vdirsyncer
// by default): run as a child process with a bounded wait.
#pragma once

#include <string>

namespace velmo::sync {

inline constexpr char kDefaultSyncCommand[] = "vdirsyncer sync";

// Runs command (a command line for /bin/sh, as the user wrote it) and waits
// at most timeout_seconds; a command still running then is stopped (its
// whole process group). True when it ran and exited with 0; otherwise false
// with `error` saying what happened.
bool RunSynchroniser(const std::string& command, int timeout_seconds, std::string* error);

}  // namespace velmo::sync
