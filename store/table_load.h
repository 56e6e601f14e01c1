// The sequential read shared by the table's load and the after-synchronisation
// pass.
#pragma once

#include <cstddef>

#include "categories/category_filter.h"
#include "platform/wintypes.h"

namespace velmo {

inline bool SameFileTime(const FILETIME& a, const FILETIME& b) {
  return a.dwLowDateTime == b.dwLowDateTime && a.dwHighDateTime == b.dwHighDateTime;
}

// Seeks to the first record and reads `count` records one after another into
// the table (a record that cannot be read is skipped but counted), each with
// the reminder check when asked, and marks the categories of each task read
// when given a marking. False when the checks' writes were lost.
bool ReadRecords(size_t count, bool check_reminder, CategoryUseMarking* marking);

}  // namespace velmo
