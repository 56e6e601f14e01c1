// The phone's call history: the call records the Linux phones' dialler (GNOME
// Calls) keeps in $XDG_DATA_HOME/calls/records.db, one row of the table
// "calls" per call (the number or address called, whether it came in, and
// ISO 8601 UTC stamps of its start, answer and end). The file belongs to the
// dialler: it is opened read-only and never written. No file, another
// program's file or a damaged one is simply no call history.
#pragma once

#include <string>
#include <vector>

#include "platform/wintypes.h"

namespace velmo {

// Most calls read, newest first.
constexpr size_t kMaxCallRecords = 200;

enum class CallKind { kIncoming, kOutgoing, kMissed };

struct CallRecord {
  std::wstring number;  // as the dialler kept it ("tel:" taken off)
  SYSTEMTIME start{};   // local time
  CallKind kind = CallKind::kOutgoing;
};

// The dialler's file for this user.
std::string CallLogPath();

// The calls with a start, newest first, at most kMaxCallRecords; empty
// when there is no readable call history.
std::vector<CallRecord> ReadCallLog();

// Whether ReadCallLog would return anything (one row looked at).
bool CallLogHasEntries();

}  // namespace velmo
