// Quick entry: a task made from one line typed into the entry box, with the
// properties carried by the check marks of the quick-entry menu (priority,
// sensitivity, team task, reminder), a due date and categories chosen while in
// entry mode.
#pragma once

#include <string>
#include <string_view>

#include "platform/poom.h"
#include "settings/settings.h"

namespace velmo {

// Commands of the quick-entry menu whose check marks the mode holds.
constexpr UINT kCmdQuickHigh = 40013;
constexpr UINT kCmdQuickNormal = 40014;
constexpr UINT kCmdQuickLow = 40015;
constexpr UINT kCmdQuickSensitivityNormal = 39993;
constexpr UINT kCmdQuickSensitivityPrivate = 39995;
constexpr UINT kCmdQuickTeamTask = 40017;
constexpr UINT kCmdQuickReminder = 40117;
// "Due Date..." is checked once a due date is chosen.
constexpr UINT kCmdQuickDueDate = 40016;

// Commands the box sends the main window.
constexpr UINT kCmdQuickEntryEnter = 40084;
constexpr UINT kCmdFirstTask = 40156;
constexpr UINT kCmdLastTask = 40157;

struct QuickEntryMode {
  bool active = false;
  bool high = false;
  bool normal = false;
  bool low = false;
  bool sensitivity_normal = false;
  bool sensitivity_private = false;
  bool team_task = false;
  bool reminder = false;
  DATE due_date = kNoDate;               // none unless chosen in entry mode
  std::wstring categories = L"<NoCat>";  // "<NoCat>": none
};

// The program-wide mode of the entry box.
QuickEntryMode& CurrentQuickEntry();

// The mode as entry starts: the checks of the new-task settings, and their
// categories (the filter in force instead, when "FilteredCatForNew" is on and
// there is one).
QuickEntryMode StartQuickEntryMode(const Settings& s, std::wstring_view filter_text);

// A quick-entry menu command: priority and sensitivity are radio choices, team
// task and reminder toggle. Returns false (nothing changed) for other commands.
bool ApplyQuickEntryCommand(QuickEntryMode& mode, UINT command);
// Whether the menu item of `command` carries a check mark.
bool QuickEntryChecked(const QuickEntryMode& mode, UINT command);

// The reminder a quick task gets from its due date.
struct QuickReminder {
  bool set = false;
  DATE time = kNoDate;     // written to the task
  DATE pending = kNoDate;  // kept for the next re-read of the task, or none
};
// The due day at "ReminderTimeForNew", moved earlier by "ReminderDelta" hours.
// When the moved time still falls on or after the due day, the task gets the due
// day at 00:00 and the unmoved time is kept pending. No due date: no reminder.
QuickReminder QuickEntryReminder(const QuickEntryMode& mode, const Settings& s);

// Creates, fills and saves the task, then writes the mode's categories straight
// into its record (announced to the main window). Returns the failure of the
// creation (nothing made) or of the save (*save_failed set); *oid receives the
// new task's identifier.
HRESULT CreateQuickTask(IPOutlookApp* app, const std::wstring& subject,
                        const QuickEntryMode& mode, const Settings& s, CEOID* oid,
                        bool* save_failed = nullptr);

}  // namespace velmo
