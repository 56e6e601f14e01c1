// CeRunAppAtEvent: start-on-event registrations in the notifications file.
#include <memory>

#include "platform/lasterror.h"
#include "platform/notify.h"
#include "platform/notify_store.h"
#include "platform/wstr.h"

namespace velmo::notify {
namespace {

struct CloseDb {
  void operator()(sqlite3* db) const { sqlite3_close(db); }
};
using Db = std::unique_ptr<sqlite3, CloseDb>;

struct CloseStatement {
  void operator()(sqlite3_stmt* s) const { sqlite3_finalize(s); }
};
using Stmt = std::unique_ptr<sqlite3_stmt, CloseStatement>;

Stmt Prepare(sqlite3* db, const char* sql) {
  sqlite3_stmt* s = nullptr;
  sqlite3_prepare_v2(db, sql, -1, &s, nullptr);
  return Stmt(s);
}

DWORD ErrorOf(int rc) {
  return (rc & 0xFF) == SQLITE_BUSY ? ERROR_LOCK_VIOLATION : ERROR_WRITE_FAULT;
}

// The command line of each event an application can be started at.
struct EventCommandLine {
  LONG event;
  const wchar_t* command_line;
};
constexpr EventCommandLine kEventCommandLines[] = {
    {NOTIFICATION_EVENT_SYNC_END, L"AppRunAfterSync"},
};

}  // namespace

const wchar_t* RunAtEventCommandLine(LONG event) {
  for (const EventCommandLine& e : kEventCommandLines)
    if (e.event == event) return e.command_line;
  return L"";
}

bool ListRunAppAtEvent(LONG event, std::vector<RunAtEventRegistration>* out) {
  out->clear();
  Db db(OpenStore());
  if (!db) return false;
  Stmt s = Prepare(db.get(), "SELECT app FROM run_at_event WHERE event = ? ORDER BY rowid");
  if (!s) {
    SetLastError(ERROR_INVALID_DATA);
    return false;
  }
  sqlite3_bind_int64(s.get(), 1, event);
  int rc;
  while ((rc = sqlite3_step(s.get())) == SQLITE_ROW)
    out->push_back({FromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(s.get(), 0))), event});
  if (rc != SQLITE_DONE) {
    SetLastError(ErrorOf(rc));
    return false;
  }
  return true;
}

}  // namespace velmo::notify

BOOL CeRunAppAtEvent(LPCWSTR app, LONG event) {
  using namespace velmo::notify;
  if (!app || !*app || event < 0) {
    SetLastError(ERROR_INVALID_PARAMETER);
    return FALSE;
  }
  Db db(OpenStore());
  if (!db) return FALSE;
  Stmt s = Prepare(db.get(), event == NOTIFICATION_EVENT_NONE
                                 ? "DELETE FROM run_at_event WHERE app = ?"
                                 : "INSERT OR IGNORE INTO run_at_event(app, event) VALUES(?, ?)");
  if (!s) {
    SetLastError(ERROR_INVALID_DATA);
    return FALSE;
  }
  const std::string utf8 = velmo::ToUtf8(app);
  sqlite3_bind_text(s.get(), 1, utf8.c_str(), -1, SQLITE_TRANSIENT);
  if (event != NOTIFICATION_EVENT_NONE) sqlite3_bind_int64(s.get(), 2, event);
  const int rc = sqlite3_step(s.get());
  if (rc != SQLITE_DONE) {
    SetLastError(ErrorOf(rc));
    return FALSE;
  }
  return TRUE;
}
