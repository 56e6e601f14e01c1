// The Task record: the in-memory copy of one record of the tasks database, and
// the task table that holds them in database order.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/oletime.h"
#include "platform/wintypes.h"

namespace velmo {

enum Importance : LONG { kImportanceLow = 0, kImportanceNormal = 1, kImportanceHigh = 2 };
enum Sensitivity : LONG { kSensitivityNormal = 0, kSensitivityPrivate = 2 };
enum NotesState : WORD { kNoNotes = 0, kHasNotes = 1, kLongNotesEndingInBracket = 2 };

// Search-match bits, set only while the Search view is current.
constexpr DWORD kSearchMatchNotes = 1;
constexpr DWORD kSearchMatchSubject = 2;

// The fields a record's values give, apart from its texts.
struct TaskRecordValues {
  CEOID oid = 0;  // 0 marks a freed slot
  DATE date_completed = kNoDate;
  DATE due_date = kNoDate;
  DATE start_date = kNoDate;
  DATE reminder_time = kNoDate;
  LONG importance = kImportanceNormal;
  LONG sensitivity = kSensitivityNormal;
  WORD complete = 0;
  WORD recurring = 0;
  WORD reminder_set = 0;
  WORD notes_state = kNoNotes;
  WORD team_task = 0;
  DATE pending_reminder_time = kNoDate;
  LONG reminder_base_flag = 0;  // non-zero: the reminder counts back from the due date
  LONG reminder_minutes = 0;
  LONG reminder_options = 0;  // -1: the default notification actions
  DWORD notification_handle = 0;
};

struct Task : TaskRecordValues {
  // The texts and what is found in them. A load may fill these on a second
  // thread while the first fills the values of the next tasks, so they start a
  // cache line of their own: the two threads never write the same line.
  alignas(64) std::wstring subject;
  std::wstring categories;
  std::wstring phone_number;  // first telephone number found; empty when none
  std::wstring reminder_sound;
  LONG web_link_count = 0;
  LONG mail_link_count = 0;
  DWORD search_match = 0;
};

// The interactive load keeps at most this many tasks.
constexpr size_t kMaxTasks = 2550;

// The task table: records in database order.
using TaskTable = std::vector<std::unique_ptr<Task>>;

}  // namespace velmo
