// The views around the task editor: the task summary (its page, soft keys and
// menu) and the recurrence dialog for custom patterns, as tables.
#pragma once

#include "res/dialog_table.h"
#include "res/menu_table.h"

namespace velmo::res {

// The task summary: one page control filling the dialog.
constexpr wchar_t kTaskSummaryPageClass[] = L"velmo_TaskSummaryPage";
constexpr int kTaskSummaryPage = 100;
extern const DialogDef kTaskSummaryDialog;
extern const SoftKeyBarDef kTaskSummaryBar;  // "Edit", and "Menu" with the task's commands

constexpr UINT kTextSummaryTitle = 41800;        // "Task Summary"
constexpr UINT kTextSummaryPriority = 41801;     // "Priority:"
constexpr UINT kTextSummaryStart = 41802;        // "Start:"
constexpr UINT kTextSummaryDue = 41803;          // "Due:"
constexpr UINT kTextSummaryReminder = 41804;     // "Reminder:"
constexpr UINT kTextSummaryOccurs = 41805;       // "Occurs:"
constexpr UINT kTextSummaryCategories = 41806;   // "Categories:"
constexpr UINT kTextSummarySensitivity = 41807;  // "Sensitivity:"
constexpr UINT kTextSummaryCompleted = 41808;    // "Completed:"
constexpr UINT kTextSummaryActive = 41809;       // "Not completed"
constexpr UINT kTextSummaryNotes = 41810;        // "Notes:"

// The recurrence dialog's controls. A spinner list is a list box followed by
// its up-down; a number field an edit followed by its up-down.
enum RecurrenceControl : int {
  kRecurType = 200,      // the pattern type (spinner list)
  kRecurInterval = 202,  // every n days, weeks, months or years (number)
  kRecurUnit = 204,      // "day(s)" .. "year(s)" after the interval
  kRecurFirstDay = 210,  // seven check boxes, Sunday first
  kRecurDayOfMonth = 220,  // (number)
  kRecurInstance = 222,    // "1st" .. "Last" (spinner list)
  kRecurMonth = 224,       // January .. December (spinner list)
  kRecurEnd = 230,         // no end, an end date, a number of occurrences (spinner list)
  kRecurEndDate = 232,     // date picker
  kRecurCount = 233,       // occurrences (number)
  kRecurDescription = 240,  // the pattern in words, as it now stands
  kRecurNext = 241,         // its next occurrence
};
extern const DialogDef kRecurrenceDialog;

constexpr UINT kTextRecurrenceTitle = 41820;  // "Recurrence"
constexpr UINT kTextRecurTypeFirst = 41830;   // "Daily" .. "Yearly on a weekday", type order
constexpr UINT kTextRecurUnitFirst = 41836;   // "day(s)", "week(s)", "month(s)", "year(s)"
constexpr UINT kTextRecurEndFirst = 41840;    // "No end", "Until a date", "After a number of occurrences"

}  // namespace velmo::res
