// The editor's "Call History" insert: a call chosen from the phone's call
// history goes in at the caret as the "CallInsertMode" setting says (who was
// called, the number, when, and whether it came in, went out or was missed),
// so that the number put in a task is a link of the task.
#pragma once

#include <string>
#include <vector>

#include "links/vcard.h"
#include "platform/call_log.h"

namespace velmo {

enum CallInsertMode : DWORD {
  kCallNameAndNumber = 0,
  kCallName = 1,  // the number when the caller is not in the address book
  kCallNumber = 2,
  kCallNameAndTime = 3,
  kCallNumberAndTime = 4,
  kCallEverything = 5,
};
constexpr DWORD kCallInsertModeCount = 6;
// The modes' names for the settings page's "Insert call as:" list, in mode order.
constexpr UINT kFirstCallInsertModeText = 43116;
// "Incoming call", "Outgoing call", "Missed call", in CallKind order.
constexpr UINT kFirstCallKindText = 43122;

// A call as the history shows it: the record and the name the address book
// gives its number (empty when none does).
struct CallEntry {
  CallRecord record;
  std::wstring name;
};

// The calls with their names found among `contacts`: a number matches when
// its digits do, or when both have at least kSameNumberDigits digits and the
// last ones agree (a number kept with and without its country code).
constexpr size_t kSameNumberDigits = 9;
std::vector<CallEntry> NameCalls(const std::vector<CallRecord>& calls, const std::vector<Contact>& contacts);

// "Missed call", "Incoming call" or "Outgoing call".
std::wstring CallKindText(CallKind kind);
// The call's date and time in the user's short-date and time pictures.
std::wstring CallTimeText(const CallRecord& call);

// The text for a call; parts it lacks are left out (a mode outside the list
// counts as the last, the default).
std::wstring CallInsertText(const CallEntry& call, DWORD mode);

}  // namespace velmo
