// Why a task could not be saved: the object model refuses inconsistent dates
// with a bare result code, so the editor explains the refusal from the values
// it committed, checking a fixed list of rules in order.
#pragma once

#include <string>

#include "platform/oletime.h"
#include "platform/wintypes.h"

namespace velmo {

// The object model's refusals.
constexpr HRESULT kReminderTimeRefused = static_cast<HRESULT>(0x80040067u);
constexpr HRESULT kDatesRefused = static_cast<HRESULT>(0x80040068u);

// What one commit wrote (kNoDate: not set) and how the save ended.
struct SaveOutcome {
  DATE start = kNoDate;
  DATE due = kNoDate;
  DATE reminder = kNoDate;  // before the reminder difference is applied
  LONG occurrences = 0;     // as the recurrence writer returned it
  HRESULT result = S_OK;
};

struct SaveFailureMessage {
  UINT caption_id;
  std::wstring caption;
  std::wstring text;
};

// The message box a failed save shows (OK button, stop icon). Rules that look
// only at the dates win over the result code.
SaveFailureMessage DescribeSaveFailure(const SaveOutcome& outcome);

}  // namespace velmo
