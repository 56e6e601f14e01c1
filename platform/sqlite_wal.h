// Write-ahead logging for the platform's SQLite files (the volumes, the
// registry, the notifications), switched on safely when several processes open
// a new file at once.
#pragma once

#include <sqlite3.h>

namespace velmo {

// Puts the connection's file into write-ahead logging; returns SQLite's result.
// Switching a file's journal mode needs a moment alone with it, and SQLite does
// not wait for that through the busy handler: when another process is making or
// switching the same file at that moment, the switch answers "busy" at once. It
// is then tried again, a few milliseconds apart, until timeout_ms has passed.
int UseWriteAheadLog(sqlite3* db, int timeout_ms);

}  // namespace velmo
