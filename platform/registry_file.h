// The registry's SQLite file: one connection per process to <root>/registry.db,
// reopened when the device root changes, with the schema, the mapping of SQLite
// results to registry error codes, and a small statement wrapper. Used by the
// registry calls only.
#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/wintypes.h"

namespace velmo::registry {

constexpr std::int64_t kCurrentUserId = 1;
constexpr std::int64_t kLocalMachineId = 2;

// A prepared statement. On destruction it is reset and kept for the next
// Statement of the same text on the same connection (sql must live as long as
// the Statement).
class Statement {
 public:
  Statement(sqlite3* db, const char* sql);
  ~Statement();
  Statement(const Statement&) = delete;
  Statement& operator=(const Statement&) = delete;

  Statement& Bind(int index, std::int64_t value);
  Statement& Bind(int index, std::string_view text);
  Statement& BindBlob(int index, const std::vector<BYTE>& bytes);
  int Step();  // SQLITE_ROW, SQLITE_DONE or an error
  int Prepared() const { return prepare_result_; }
  std::int64_t Int(int column) const;
  std::string Text(int column) const;
  std::vector<BYTE> Blob(int column) const;

 private:
  const char* sql_;
  sqlite3_stmt* stmt_ = nullptr;
  int prepare_result_;
};

// The open registry file of the current root, or null with the error code in
// *error (and LastFailure() set). The connection stays owned by the module.
sqlite3* Connection(LONG* error);

// Runs body inside BEGIN IMMEDIATE ... COMMIT (rolled back when body fails).
// body returns ERROR_SUCCESS or an error code; SQLite failures are mapped.
template <typename Body>
LONG InTransaction(sqlite3* db, Body body);

// The registry error code for a SQLite result, recording the failure text.
LONG MapSqliteError(sqlite3* db, int result);

// Records the failure text of this thread (empty clears it).
void SetFailure(std::string text);

// Test hook: how long a call waits for another process's lock, in milliseconds.
void SetBusyTimeoutForTesting(int milliseconds);

template <typename Body>
LONG InTransaction(sqlite3* db, Body body) {
  int rc = sqlite3_exec(db, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr);
  if (rc != SQLITE_OK) return MapSqliteError(db, rc);
  LONG result = body();
  if (result == ERROR_SUCCESS) {
    rc = sqlite3_exec(db, "COMMIT", nullptr, nullptr, nullptr);
    if (rc == SQLITE_OK) return ERROR_SUCCESS;
    result = MapSqliteError(db, rc);
  }
  sqlite3_exec(db, "ROLLBACK", nullptr, nullptr, nullptr);
  return result;
}

}  // namespace velmo::registry
