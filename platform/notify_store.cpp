#include "platform/notify_store.h"

#include "platform/device.h"
#include "platform/lasterror.h"

namespace velmo::notify {
namespace {

constexpr int kBusyTimeoutMs = 5000;

// Tables of every user of the file; each part adds its own with IF NOT EXISTS.
constexpr const char* kSchema =
    "CREATE TABLE IF NOT EXISTS run_at_event("
    "  app TEXT NOT NULL,"
    "  event INTEGER NOT NULL,"
    "  PRIMARY KEY(app, event));";

thread_local std::string t_failure;

sqlite3* Fail(sqlite3* db, DWORD error, const std::string& text) {
  sqlite3_close(db);
  t_failure = text;
  SetLastError(error);
  return nullptr;
}

}  // namespace

std::string StoreFilePath() { return (device::Root() / "notify.db").string(); }

std::string StoreFailure() { return t_failure; }

sqlite3* OpenStore() {
  const std::string path = StoreFilePath();
  if (!device::EnsureRoot())
    return Fail(nullptr, ERROR_ACCESS_DENIED,
                "cannot use the notifications file " + path + ": the device root is not writable");
  sqlite3* db = nullptr;
  if (sqlite3_open_v2(path.c_str(), &db, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr) !=
      SQLITE_OK)
    return Fail(db, ERROR_ACCESS_DENIED, "cannot open the notifications file " + path);
  sqlite3_busy_timeout(db, kBusyTimeoutMs);
  char* message = nullptr;
  const int rc = sqlite3_exec(db, (std::string("PRAGMA journal_mode=WAL;") + kSchema).c_str(),
                              nullptr, nullptr, &message);
  if (rc != SQLITE_OK) {
    const std::string cause = message ? message : sqlite3_errstr(rc);
    sqlite3_free(message);
    const bool busy = (rc & 0xFF) == SQLITE_BUSY || (rc & 0xFF) == SQLITE_LOCKED;
    return Fail(db, busy ? ERROR_LOCK_VIOLATION : ERROR_INVALID_DATA,
                "cannot use the notifications file " + path + ": " + cause);
  }
  t_failure.clear();
  return db;
}

}  // namespace velmo::notify
