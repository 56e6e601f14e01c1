// The read position of a database handle and the records read ahead of it.
//
// A sequential walk (seek to the beginning, then one read per record) fetches
// records in runs with one statement per run instead of one per record; the run
// is a snapshot that is dropped whenever this process writes to the volume, the
// handle seeks or polls for changes, or it is older than kMaxAgeMs, so a walk never
// sees data older than that.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/cedb_volume.h"

namespace velmo::cedb {

class Cursor {
 public:
  // Identifiers above every record's: "past the end".
  static constexpr std::uint64_t kEnd = UINT64_MAX;

  // The first record at or after position `from` (the record's identifier and
  // stored bytes), fetching a run when the held one does not cover it. False at
  // the end (found false) or on a failure (failure set).
  bool Fetch(Volume* volume, CEOID db, std::uint64_t from, bool* found, CEOID* oid,
             const BYTE** bytes, size_t* size);

  // Fetches only the record `oid` (for a single read after a seek to it).
  bool FetchOne(Volume* volume, CEOID db, CEOID oid, bool* found);

  void Drop() { valid_ = false; }

 private:
  struct Row {
    CEOID oid;
    size_t offset;
    size_t size;
  };
  static constexpr size_t kMaxRows = 4096;
  static constexpr size_t kMaxBytes = 512 * 1024;
  static constexpr std::int64_t kMaxAgeMs = 250;

  bool Covers(const Volume& volume, std::uint64_t from) const;
  bool Fill(Volume* volume, CEOID db, std::uint64_t from, size_t max_rows);

  bool valid_ = false;
  std::uint64_t from_ = 0;     // the run holds every record in [from_, through_]
  std::uint64_t through_ = 0;
  std::uint64_t generation_ = 0;
  std::int64_t fetched_ms_ = 0;
  std::vector<Row> rows_;
  size_t next_row_ = 0;  // where the next sequential read's row should be
  std::string bytes_;
};

}  // namespace velmo::cedb
