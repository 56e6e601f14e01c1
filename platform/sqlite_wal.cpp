#include "platform/sqlite_wal.h"

#include <chrono>
#include <thread>

namespace velmo {

int UseWriteAheadLog(sqlite3* db, int timeout_ms) {
  constexpr auto kPause = std::chrono::milliseconds(2);
  const auto deadline = std::chrono::steady_clock::now() + std::chrono::milliseconds(timeout_ms);
  for (;;) {
    const int rc = sqlite3_exec(db, "PRAGMA journal_mode=WAL", nullptr, nullptr, nullptr);
    if ((rc & 0xFF) != SQLITE_BUSY || std::chrono::steady_clock::now() >= deadline) return rc;
    std::this_thread::sleep_for(kPause);
  }
}

}  // namespace velmo
