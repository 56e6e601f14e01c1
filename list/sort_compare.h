// Ordering two tasks by one sort key in one direction.
#pragma once

#include <string>

#include "platform/wintypes.h"
#include "store/task.h"

namespace velmo {

enum SortKey : SHORT {
  kSortNone = 0,
  kSortPriority = 1,
  kSortStatus = 2,
  kSortSubject = 3,
  kSortStartDate = 4,
  kSortDueDate = 5,
  kSortDateCompleted = 6,
  kSortReminderTime = 7,
  kSortSensitivity = 8,
  kSortTeamTask = 9,
  kSortCategories = 10,
};
constexpr SHORT kLastSortKey = kSortCategories;

enum SortDirection : SHORT {
  kSortAscending = 0,
  kSortDescending = 1,
  kSortAscendingNoneLast = 2,
};

// String numbers of the key and direction texts.
constexpr UINT kSortKeyTextBase = 480;  // + key
constexpr UINT SortDirectionText(SHORT direction) {
  return direction == kSortDescending ? 493 : direction == kSortAscendingNoneLast ? 492 : 491;
}

// -1 when a goes first, 1 when b does, 0 when the key does not tell them apart.
// Descending reverses every comparison of two present values; a missing value
// goes first when ascending and last otherwise. Unknown keys and directions
// compare equal.
int Compare(const Task& a, const Task& b, SHORT key, SHORT direction);

// The collation key of one of a task's texts, looked up when a comparison first
// needs it and kept for the rest of a sort, so that thousands of comparisons
// need not each consult the collator (list/collation_key_cache.h).
struct LazyTextKey {
  const std::string* key = nullptr;
};
struct TaskTextKeys {
  LazyTextKey subject;
  LazyTextKey categories;
};

// Compare with the texts ordered by their keys (null: by the collator); the keys
// are filled in as they are needed.
int CompareKeyed(const Task& a, TaskTextKeys* a_keys, const Task& b, TaskTextKeys* b_keys,
                 SHORT key, SHORT direction);

// The dates keys 4 and 5 sort by: the reminder time stands in for the start or
// due date on the same day, so the reminder orders a day's tasks.
DATE StartSortDate(const Task& task);
DATE DueSortDate(const Task& task);

// The direction a key gets when it is chosen: descending for None, Priority and
// the dates, Sensitivity and Team task; ascending for Status, Subject and
// Categories (and for unknown keys).
SHORT DefaultSortDirection(SHORT key);

}  // namespace velmo
