// Compare: one comparison routine per kind of key, chosen from a table by the key.
#include "list/sort_compare.h"

#include <cmath>
#include <iterator>

#include "list/collation_key_cache.h"
#include "platform/lstrcmp.h"

namespace velmo {
namespace {

constexpr bool IsSet(DATE d) { return d != kNoDate; }

// Both values present: a before b is -1, reversed when descending.
int Ordered(bool a_first, SHORT direction) {
  const int r = a_first ? -1 : 1;
  return direction == kSortDescending ? -r : r;
}

// The task that lacks a value: first when ascending, last in the other directions.
int MissingA(SHORT direction) { return direction == kSortAscending ? -1 : 1; }
int MissingB(SHORT direction) { return -MissingA(direction); }

int CompareNumbers(LONG a, LONG b, SHORT direction) {
  if (a == b) return 0;
  return Ordered(a < b, direction);
}

int CompareFlags(bool a, bool b, SHORT direction) {
  if (a == b) return 0;
  return Ordered(!a, direction);
}

// By the collation keys when both are given, else by the collator.
const std::string& KeyOf(const std::wstring& text, LazyTextKey* slot) {
  if (!slot->key) slot->key = &CachedCollationKey(text);
  return *slot->key;
}

int CompareTexts(const std::wstring& a, LazyTextKey* a_key, const std::wstring& b,
                 LazyTextKey* b_key, SHORT direction) {
  const int c = a_key && b_key ? KeyOf(a, a_key).compare(KeyOf(b, b_key)) : CollateText(a, b);
  if (c == 0) return 0;
  if (a.empty()) return MissingA(direction);
  if (b.empty()) return MissingB(direction);
  return Ordered(c < 0, direction);
}

int CompareDates(DATE a, DATE b, SHORT direction) {
  if (a == b) return 0;
  if (!IsSet(a)) return MissingA(direction);
  if (!IsSet(b)) return MissingB(direction);
  return Ordered(a < b, direction);
}

// Dates that only some tasks have: a task without one is missing as a whole.
int CompareOptionalDates(bool a_has, DATE a, bool b_has, DATE b, SHORT direction) {
  if (!a_has && !b_has) return 0;
  if (!a_has) return MissingA(direction);
  if (!b_has) return MissingB(direction);
  return CompareDates(a, b, direction);
}

// A task with the collation keys of its texts, when the caller made them.
struct Row {
  const Task& task;
  TaskTextKeys* keys;
};

LazyTextKey* SubjectKey(const Row& r) { return r.keys ? &r.keys->subject : nullptr; }
LazyTextKey* CategoriesKey(const Row& r) { return r.keys ? &r.keys->categories : nullptr; }

int ByNone(const Row&, const Row&, SHORT) { return 0; }
int ByPriority(const Row& a, const Row& b, SHORT d) {
  return CompareNumbers(a.task.importance, b.task.importance, d);
}
int ByStatus(const Row& a, const Row& b, SHORT d) {
  return CompareFlags(a.task.complete != 0, b.task.complete != 0, d);
}
int BySubject(const Row& a, const Row& b, SHORT d) {
  return CompareTexts(a.task.subject, SubjectKey(a), b.task.subject, SubjectKey(b), d);
}
int ByStartDate(const Row& a, const Row& b, SHORT d) {
  return CompareDates(StartSortDate(a.task), StartSortDate(b.task), d);
}
int ByDueDate(const Row& a, const Row& b, SHORT d) {
  return CompareDates(DueSortDate(a.task), DueSortDate(b.task), d);
}
int ByDateCompleted(const Row& a, const Row& b, SHORT d) {
  return CompareOptionalDates(a.task.complete != 0, a.task.date_completed, b.task.complete != 0,
                              b.task.date_completed, d);
}
int ByReminderTime(const Row& a, const Row& b, SHORT d) {
  return CompareOptionalDates(a.task.reminder_set != 0, a.task.reminder_time,
                              b.task.reminder_set != 0, b.task.reminder_time, d);
}
int BySensitivity(const Row& a, const Row& b, SHORT d) {
  return CompareNumbers(a.task.sensitivity, b.task.sensitivity, d);
}
int ByTeamTask(const Row& a, const Row& b, SHORT d) {
  return CompareFlags(a.task.team_task != 0, b.task.team_task != 0, d);
}
int ByCategories(const Row& a, const Row& b, SHORT d) {
  return CompareTexts(a.task.categories, CategoriesKey(a), b.task.categories, CategoriesKey(b), d);
}

using KeyCompare = int (*)(const Row&, const Row&, SHORT);

// By key, 0 .. 10.
constexpr KeyCompare kKeyCompares[] = {ByNone,        ByPriority,      ByStatus,       BySubject,
                                       ByStartDate,   ByDueDate,       ByDateCompleted, ByReminderTime,
                                       BySensitivity, ByTeamTask,      ByCategories};
static_assert(std::size(kKeyCompares) == kLastSortKey + 1);

// By key, 0 .. 10.
constexpr SHORT kDefaultDirections[] = {1, 1, 0, 0, 1, 1, 1, 1, 1, 1, 0};
static_assert(std::size(kDefaultDirections) == kLastSortKey + 1);

constexpr bool IsKey(SHORT key) { return key >= 0 && key <= kLastSortKey; }
constexpr bool IsDirection(SHORT d) { return d >= kSortAscending && d <= kSortAscendingNoneLast; }

// The reminder time when it falls on the same day as `date`, else `date`.
DATE RefinedByReminder(const Task& task, DATE date) {
  if (task.reminder_set == 0) return date;
  return std::trunc(task.reminder_time) == std::trunc(date) ? task.reminder_time : date;
}

}  // namespace

int CompareKeyed(const Task& a, TaskTextKeys* a_keys, const Task& b, TaskTextKeys* b_keys,
                 SHORT key, SHORT direction) {
  if (!IsKey(key) || !IsDirection(direction)) return 0;
  return kKeyCompares[key](Row{a, a_keys}, Row{b, b_keys}, direction);
}

int Compare(const Task& a, const Task& b, SHORT key, SHORT direction) {
  return CompareKeyed(a, nullptr, b, nullptr, key, direction);
}

DATE StartSortDate(const Task& task) { return RefinedByReminder(task, task.start_date); }

DATE DueSortDate(const Task& task) {
  if (task.reminder_set != 0 && !IsSet(task.due_date)) return task.reminder_time;
  return RefinedByReminder(task, task.due_date);
}

SHORT DefaultSortDirection(SHORT key) {
  return IsKey(key) ? kDefaultDirections[key] : SHORT{kSortAscending};
}

}  // namespace velmo
