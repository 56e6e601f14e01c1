// A phone's call history for a test: XDG_DATA_HOME and TZ (UTC) set for the
// test's own device root, and calls/records.db written there the way GNOME
// Calls' object mapper lays it out (a version table, the "calls" table of
// version 1 and the "protocol" column version 2 added, stamps as ISO 8601 UTC
// text).
#pragma once

#include <sqlite3.h>
#include <stdlib.h>
#include <time.h>

#include <filesystem>
#include <optional>
#include <string>

#include "tests/support/temp_root.h"

namespace velmo::testing {

constexpr const char* kGnomeCallsSchema =
    "CREATE TABLE _gom_version (version INTEGER PRIMARY KEY ASC,"
    " date DATETIME DEFAULT (STRFTIME('%s','now')) NOT NULL);"
    "INSERT INTO _gom_version (version) VALUES (1);"
    "CREATE TABLE calls ('id' INTEGER PRIMARY KEY AUTOINCREMENT, 'target' TEXT, 'inbound' BOOLEAN,"
    " 'start' DATETIME, 'answered' DATETIME, 'end' DATETIME);"
    "ALTER TABLE calls ADD COLUMN 'protocol' TEXT;"
    "INSERT INTO _gom_version (version) VALUES (2);";

class PhoneEnvironment {
 public:
  explicit PhoneEnvironment(const std::filesystem::path& root) : data_(root / "data") {
    for (size_t i = 0; i < 2; ++i) {
      const char* old = getenv(kNames[i]);
      saved_[i] = old ? std::optional<std::string>(old) : std::nullopt;
    }
    setenv("XDG_DATA_HOME", data_.c_str(), 1);
    setenv("TZ", "UTC", 1);
    tzset();
  }
  ~PhoneEnvironment() {
    for (size_t i = 0; i < 2; ++i)
      if (saved_[i]) setenv(kNames[i], saved_[i]->c_str(), 1); else unsetenv(kNames[i]);
    tzset();
  }
  std::filesystem::path RecordsPath() const { return data_ / "calls" / "records.db"; }

  // A records.db holding `sql` run after `schema`.
  void WriteRecords(const std::string& sql, const char* schema = kGnomeCallsSchema) const {
    std::filesystem::create_directories(RecordsPath().parent_path());
    sqlite3* db = nullptr;
    ASSERT_EQ(sqlite3_open(RecordsPath().c_str(), &db), SQLITE_OK);
    const std::string all = std::string(schema) + sql;
    EXPECT_EQ(sqlite3_exec(db, all.c_str(), nullptr, nullptr, nullptr), SQLITE_OK) << sqlite3_errmsg(db);
    sqlite3_close(db);
  }

 private:
  static constexpr const char* kNames[2] = {"XDG_DATA_HOME", "TZ"};
  std::filesystem::path data_;
  std::optional<std::string> saved_[2];
};

// Calls in the dialler's columns, oldest first: who, whether it came in, its
// start and its answer (NULL for none).
constexpr const char* kFourCalls =
    "INSERT INTO calls (target, inbound, start, answered, end, protocol) VALUES"
    " ('+49 151 23456789', 1, '2026-11-20T09:15:00Z', '2026-11-20T09:15:07Z', '2026-11-20T09:20:00Z', 'tel'),"
    " ('tel:0301234567', 0, '2026-11-21T18:30:05.123456Z', NULL, '2026-11-21T18:31:00Z', 'tel'),"
    " ('112', 1, '2026-11-22T07:00:00Z', NULL, '2026-11-22T07:00:20Z', 'tel'),"
    " ('0170999', 1, '2026-11-19T10:00:00Z', '1970-01-01T00:00:00Z', '2026-11-19T10:00:09Z', 'tel'),"
    " ('', 1, '2026-11-23T07:00:00Z', NULL, NULL, 'tel'),"
    " ('sip:anna@example.org', 0, NULL, NULL, NULL, 'sip');";

}  // namespace velmo::testing
