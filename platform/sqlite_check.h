// The verdict on one of the device's SQLite files, found without writing into
// it: missing, sound, damaged (with SQLite's own findings), another program's,
// or unreadable.
#pragma once

#include <string>

namespace velmo {

enum class FileVerdict { kSound, kMissing, kDamaged, kForeign, kUnreadable };

struct FileCheck {
  FileVerdict verdict = FileVerdict::kUnreadable;
  std::string detail;  // what was found, in words; empty for a sound file
};

// Opens the file read-only, asks identity_sql (one row, one column, true when
// the file is the kind expected) and runs SQLite's integrity check.
FileCheck CheckSqliteFile(const std::string& path, const std::string& identity_sql);

// "sound", "missing", "damaged", ... for a verdict.
const char* VerdictName(FileVerdict verdict);

}  // namespace velmo
