// The request a second instance hands over to the running one: the copy-data
// record it sends (WM_COPYDATA) and the decoding of that record on arrival.
#pragma once

#include <array>

#include "app/command_line.h"
#include "platform/wintypes.h"

namespace velmo::app {

// dwData of the copy-data record.
enum HandoverCode : DWORD {
  kHandoverSelect = 0,         // select the task (payload: its identifier)
  kHandoverToday = 2,          // show the Today view
  kHandoverDefaultView = 3,    // show the default view
  kHandoverNewTask = 4,        // start a new task
  kHandoverSelectAndOpen = 5,  // select the task, then open it (other senders only)
  kHandoverAfterSync = 100,    // nothing to do
};

// The payload of code 0: the identifier as "%lu" in UTF-16, of which exactly
// kSelectPayloadBytes are sent (a 10-digit identifier goes without terminator).
constexpr DWORD kSelectPayloadBytes = 20;

// A copy-data record and the buffer its payload lives in.
struct OutgoingHandover {
  std::array<char16_t, 11> text{};  // ten characters and room for the terminator
  COPYDATASTRUCT record{};
};

// Builds the record for a start request. False for no request (nothing is sent;
// the running instance's dialogs are dismissed instead).
bool BuildHandover(const StartRequest& start, OutgoingHandover* out);

// A request as the running instance carries it out.
struct HandoverRequest {
  DWORD code = kHandoverAfterSync;
  CEOID task_oid = 0;  // codes 0 and 5
};

// Decodes a received record. size is the record's cbData as sent (negative or
// above 40 bytes counts as 40); at most available bytes are read from bytes.
HandoverRequest DecodeHandover(ULONG_PTR code, DWORD size, const BYTE* bytes, size_t available);

// The running instance ignores code 100 entirely (no dialog dismissal either).
constexpr bool IsIgnoredHandover(DWORD code) { return code == kHandoverAfterSync; }

}  // namespace velmo::app
