// The end of a synchronisation as the platform marks it: every program
// registered with CeRunAppAtEvent for NOTIFICATION_EVENT_SYNC_END is started
// with its command line ("AppRunAfterSync"). A registered program that no
// longer exists is skipped and its registration dropped.
#pragma once

#include <string>
#include <vector>

namespace velmo::sync {

struct AfterSyncReport {
  int started = 0;
  std::vector<std::string> dropped;   // programs that were gone
  std::vector<std::string> problems;  // programs that failed
};

// Starts each registered program and waits for it (at most timeout_seconds each).
AfterSyncReport StartAfterSyncPrograms(int timeout_seconds);

}  // namespace velmo::sync
