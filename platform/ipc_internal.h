// Pieces shared by the files of the ipc module: the runtime folder, error
// mapping, logging and socket I/O bounded by a deadline. Not for other modules.
#pragma once

#include <sys/types.h>

#include <chrono>
#include <string>

#include "platform/wintypes.h"

namespace velmo::ipc::internal {

using Deadline = std::chrono::steady_clock::time_point;
Deadline DeadlineIn(int timeout_ms);

// The platform error for an errno value.
DWORD ErrorFromErrno(int error);

// One line to the log sink.
void Log(const std::string& line);

// Makes the runtime folder (mode 0700) and checks that it is a folder of this
// user that nobody else may enter. False with the last error set (and logged)
// when it is not.
bool EnsureRuntimeDirectory();

// Reads or writes exactly size bytes of a non-blocking socket before the
// deadline. 0 on success, else an errno value (ETIMEDOUT, ECONNRESET for an early
// end of the stream). got (optional) receives the number of bytes read.
int ReadFull(int fd, void* buffer, size_t size, Deadline deadline, size_t* got = nullptr);
int WriteFull(int fd, const void* buffer, size_t size, Deadline deadline);

// The user of the process at the other end of a connected Unix socket.
bool PeerUid(int fd, uid_t* uid);

}  // namespace velmo::ipc::internal
