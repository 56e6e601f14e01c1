#include "platform/cedb_cursor.h"

#include <time.h>

#include <algorithm>

namespace velmo::cedb {
namespace {

// Milliseconds of the coarse monotonic clock: cheap enough to ask on every read.
std::int64_t CoarseNowMs() {
  timespec now{};
  clock_gettime(CLOCK_MONOTONIC_COARSE, &now);
  return std::int64_t{now.tv_sec} * 1000 + now.tv_nsec / 1000000;
}

}  // namespace

bool Cursor::Covers(const Volume& volume, std::uint64_t from) const {
  return valid_ && generation_ == volume.generation() && from >= from_ && from <= through_ &&
         CoarseNowMs() - fetched_ms_ < kMaxAgeMs;
}

// Reads records from `from` on until max_rows or kMaxBytes (at least one record).
// length(props) is read before the bytes, so a large record past the limit is
// never loaded.
bool Cursor::Fill(Volume* volume, CEOID db, std::uint64_t from, size_t max_rows) {
  valid_ = false;
  rows_.clear();
  bytes_.clear();
  // The room for a whole run at once: growing by doubling would copy the run
  // into fresh memory several times, each copy costing page faults.
  bytes_.reserve(kMaxBytes);
  Query query = volume->Prepare(Sql::kFetchFrom);
  query.Bind(1, db).Bind(2, static_cast<std::int64_t>(std::min<std::uint64_t>(from, INT64_MAX)));
  std::uint64_t through = kEnd;
  while (query.Step()) {
    size_t size = static_cast<size_t>(query.Int(1));
    if (rows_.size() == max_rows || (!rows_.empty() && bytes_.size() + size > kMaxBytes)) {
      through = rows_.back().oid;
      break;
    }
    const BYTE* data = query.Blob(2);
    size = query.Bytes(2);
    rows_.push_back({static_cast<CEOID>(query.Int(0)), bytes_.size(), size});
    bytes_.append(reinterpret_cast<const char*>(data), size);
  }
  if (!query.ok() || query.failed()) return false;
  valid_ = true;
  from_ = from;
  through_ = through;
  generation_ = volume->generation();
  fetched_ms_ = CoarseNowMs();
  return true;
}

bool Cursor::Fetch(Volume* volume, CEOID db, std::uint64_t from, bool* found, CEOID* oid,
                   const BYTE** bytes, size_t* size) {
  if (!Covers(*volume, from) && !Fill(volume, db, from, kMaxRows)) return false;
  // A sequential walk asks for the row after the last one served: try it first.
  auto row = rows_.begin() + static_cast<std::ptrdiff_t>(std::min(next_row_, rows_.size()));
  bool hint_fits = (row == rows_.end() || row->oid >= from) && (row == rows_.begin() || row[-1].oid < from);
  if (!hint_fits)
    row = std::lower_bound(rows_.begin(), rows_.end(), from,
                           [](const Row& r, std::uint64_t v) { return r.oid < v; });
  next_row_ = static_cast<size_t>(row - rows_.begin()) + 1;
  *found = row != rows_.end();
  if (*found) {
    *oid = row->oid;
    *bytes = reinterpret_cast<const BYTE*>(bytes_.data()) + row->offset;
    *size = row->size;
  }
  return true;
}

bool Cursor::FetchOne(Volume* volume, CEOID db, CEOID oid, bool* found) {
  if (!Fill(volume, db, oid, 1)) return false;
  *found = !rows_.empty() && rows_.front().oid == oid;
  return true;
}

}  // namespace velmo::cedb
