// Compare: one comparison routine per kind of key, chosen from a table by the key.
#include "list/sort_compare.h"

#include <cmath>
#include <iterator>

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

int CompareTexts(const std::wstring& a, const std::wstring& b, SHORT direction) {
  const int c = CollateText(a, b);
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

int ByNone(const Task&, const Task&, SHORT) { return 0; }
int ByPriority(const Task& a, const Task& b, SHORT d) {
  return CompareNumbers(a.importance, b.importance, d);
}
int ByStatus(const Task& a, const Task& b, SHORT d) {
  return CompareFlags(a.complete != 0, b.complete != 0, d);
}
int BySubject(const Task& a, const Task& b, SHORT d) { return CompareTexts(a.subject, b.subject, d); }
int ByStartDate(const Task& a, const Task& b, SHORT d) {
  return CompareDates(StartSortDate(a), StartSortDate(b), d);
}
int ByDueDate(const Task& a, const Task& b, SHORT d) {
  return CompareDates(DueSortDate(a), DueSortDate(b), d);
}
int ByDateCompleted(const Task& a, const Task& b, SHORT d) {
  return CompareOptionalDates(a.complete != 0, a.date_completed, b.complete != 0,
                              b.date_completed, d);
}
int ByReminderTime(const Task& a, const Task& b, SHORT d) {
  return CompareOptionalDates(a.reminder_set != 0, a.reminder_time, b.reminder_set != 0,
                              b.reminder_time, d);
}
int BySensitivity(const Task& a, const Task& b, SHORT d) {
  return CompareNumbers(a.sensitivity, b.sensitivity, d);
}
int ByTeamTask(const Task& a, const Task& b, SHORT d) {
  return CompareFlags(a.team_task != 0, b.team_task != 0, d);
}
int ByCategories(const Task& a, const Task& b, SHORT d) {
  return CompareTexts(a.categories, b.categories, d);
}

using KeyCompare = int (*)(const Task&, const Task&, SHORT);

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

int Compare(const Task& a, const Task& b, SHORT key, SHORT direction) {
  if (!IsKey(key) || !IsDirection(direction)) return 0;
  return kKeyCompares[key](a, b, direction);
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
