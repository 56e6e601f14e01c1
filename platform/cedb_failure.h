// Failures of the database calls: the last error, and a sentence for
// velmo::cedb::LastFailure() that names the volume file when the file is the cause.
#pragma once

#include <string>

#include "platform/wintypes.h"

namespace velmo::cedb {

// Sets the last error and the failure sentence of this thread.
void SetFailure(DWORD error, std::string sentence);

// The same for an SQLite result code met on a volume file: locked, damaged, full,
// not writable, each with its last error.
void SetSqliteFailure(int sqlite_code, const std::string& file, const char* detail);

}  // namespace velmo::cedb
