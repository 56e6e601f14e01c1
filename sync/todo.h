// One task as the folder holds it: its UID and the task's values read from a
// VTODO file, with the names of the iCalendar properties each value lives in.
#pragma once

#include <ctime>
#include <string>
#include <string_view>

#include "platform/poom_task.h"

namespace velmo::sync {

// Files larger than this are not read: no task holds that much.
constexpr std::size_t kMaxTodoFileBytes = 4u << 20;

struct Todo {
  std::string uid;
  poom::TaskValues values;
  bool custom_rule = false;  // an RRULE the pattern holds only roughly
  std::time_t changed = 0;   // LAST-MODIFIED, else DTSTAMP; 0 when neither
};

// Reads the one VTODO of a file's text. False with `error` saying what is
// wrong (not iCalendar, an event, several tasks, no UID...).
bool ReadTodo(std::string_view text, Todo* out, std::string* error);

// Writes a task's file: `kept` is the file's text as last synchronised (empty
// for a task never written), `kept_values` what it reads as. Only the
// properties of the values that differ are written anew; every other line,
// unknown properties included, stays as it was, byte for byte. LAST-MODIFIED
// and DTSTAMP are renewed when anything changed.
std::string WriteTodo(std::string_view kept, const poom::TaskValues& kept_values,
                      const poom::TaskValues& values, const std::string& uid);

// The kept text with its UID replaced (a copy of a task that lost a conflict).
std::string WithUid(std::string_view kept, const std::string& uid);

// Whether two tasks' values are the same for the folder (dates to the second).
bool SameValues(const poom::TaskValues& a, const poom::TaskValues& b);
// A fingerprint of the values, equal for values SameValues calls the same.
std::uint64_t ValuesFingerprint(const poom::TaskValues& values);

}  // namespace velmo::sync
