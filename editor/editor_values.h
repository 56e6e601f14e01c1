// What the task editor's fields hold when Done is chosen: the values the commit
// writes into the task, read from the controls by the dialog, or given on the
// command line by `velmo add` and `velmo edit`.
#pragma once

#include <optional>
#include <string>

#include "platform/recurrence_pattern.h"
#include "platform/oletime.h"
#include "platform/wintypes.h"

namespace velmo {

struct EditorValues {
  std::wstring subject;
  int priority_index = 1;  // the Priority list: 0 Low, 1 Normal, 2 High
  DATE start = kNoDate;    // kNoDate: the picker is empty
  DATE due = kNoDate;
  DATE reminder = kNoDate;  // the reminder picker, date and time; kNoDate: empty
  // The last reminder the reminder picker held; read when the picker is empty.
  DATE remembered_reminder = kNoDate;
  int occurs_choice = 0;             // 0 "Occurs once" .. 12, 13 "Custom pattern"
  DATE recurrence_end = kNoDate;     // kNoDate: no end
  // For choice 13: the pattern to keep (its start and end are rewritten). When
  // absent the task's own pattern is kept.
  std::optional<RecurrencePattern> custom_pattern;
  bool compact_layout = false;  // sensitivity from the Private box, not the list
  int sensitivity_index = 0;    // full layout: 0 Normal, 1 Private
  bool private_checked = false; // compact layout
  bool team_task = false;
  bool completed = false;
  std::wstring categories;
  std::wstring notes;
};

}  // namespace velmo
