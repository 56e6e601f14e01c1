#include "platform/call_log.h"

#include <sqlite3.h>

#include <cstdlib>
#include <ctime>
#include <memory>

#include "platform/wstr.h"

namespace velmo {
namespace {

struct CloseDb {
  void operator()(sqlite3* db) const { sqlite3_close(db); }
};
struct Finalize {
  void operator()(sqlite3_stmt* s) const { sqlite3_finalize(s); }
};
using Db = std::unique_ptr<sqlite3, CloseDb>;
using Statement = std::unique_ptr<sqlite3_stmt, Finalize>;

constexpr int kBusyTimeoutMs = 200;

// A stamp the dialler left unset is written as NULL, empty or the epoch;
// julianday() of anything else is past 2 January 1970. A withheld number has
// no target: nothing to insert.
constexpr const char* kCallsSql =
    "SELECT target, inbound, CAST(strftime('%s', start) AS INTEGER),"
    " coalesce(julianday(answered) > 2440589.5, 0)"
    " FROM calls WHERE julianday(start) IS NOT NULL AND coalesce(target, '') <> ''"
    " ORDER BY julianday(start) DESC, id DESC LIMIT ?";

Db OpenReadOnly() {
  sqlite3* raw = nullptr;
  // SQLITE_OPEN_READONLY never makes the file; a missing one fails here.
  const int rc = sqlite3_open_v2(CallLogPath().c_str(), &raw, SQLITE_OPEN_READONLY, nullptr);
  Db db(raw);
  if (rc != SQLITE_OK) return nullptr;
  sqlite3_busy_timeout(raw, kBusyTimeoutMs);
  return db;
}

SYSTEMTIME LocalTime(sqlite3_int64 seconds) {
  const std::time_t t = static_cast<std::time_t>(seconds);
  std::tm tm{};
  SYSTEMTIME st{};
  if (!localtime_r(&t, &tm)) return st;
  st.wYear = static_cast<WORD>(tm.tm_year + 1900);
  st.wMonth = static_cast<WORD>(tm.tm_mon + 1);
  st.wDayOfWeek = static_cast<WORD>(tm.tm_wday);
  st.wDay = static_cast<WORD>(tm.tm_mday);
  st.wHour = static_cast<WORD>(tm.tm_hour);
  st.wMinute = static_cast<WORD>(tm.tm_min);
  st.wSecond = static_cast<WORD>(tm.tm_sec);
  return st;
}

std::wstring NumberOf(const unsigned char* target) {
  std::string text = target ? reinterpret_cast<const char*>(target) : "";
  if (text.rfind("tel:", 0) == 0) text.erase(0, 4);
  return FromUtf8(text);
}

std::vector<CallRecord> Read(size_t limit) {
  std::vector<CallRecord> calls;
  Db db = OpenReadOnly();
  if (!db) return calls;
  sqlite3_stmt* raw = nullptr;
  if (sqlite3_prepare_v2(db.get(), kCallsSql, -1, &raw, nullptr) != SQLITE_OK) return calls;
  Statement s(raw);
  sqlite3_bind_int64(raw, 1, static_cast<sqlite3_int64>(limit));
  int rc = SQLITE_ROW;
  while ((rc = sqlite3_step(raw)) == SQLITE_ROW) {
    CallRecord call;
    call.number = NumberOf(sqlite3_column_text(raw, 0));
    if (call.number.empty()) continue;  // "tel:" alone: nothing to insert
    const bool inbound = sqlite3_column_int(raw, 1) != 0;
    const bool answered = sqlite3_column_int(raw, 3) != 0;
    call.kind = !inbound ? CallKind::kOutgoing : answered ? CallKind::kIncoming : CallKind::kMissed;
    call.start = LocalTime(sqlite3_column_int64(raw, 2));
    calls.push_back(std::move(call));
  }
  if (rc != SQLITE_DONE) calls.clear();  // a damaged file is no call history
  return calls;
}

}  // namespace

std::string CallLogPath() {
  if (const char* data = std::getenv("XDG_DATA_HOME"); data && *data)
    return std::string(data) + "/calls/records.db";
  const char* home = std::getenv("HOME");
  return std::string(home && *home ? home : "/tmp") + "/.local/share/calls/records.db";
}

std::vector<CallRecord> ReadCallLog() { return Read(kMaxCallRecords); }

bool CallLogHasEntries() { return !Read(1).empty(); }

}  // namespace velmo
