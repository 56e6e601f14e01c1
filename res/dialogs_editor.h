// The task editor's two layouts (dialog 20005, full, with a label over each
// field; dialog 20006, compact, with a glyph beside each field) and its soft-key
// menu 205. Both layouts use the same control identifiers.
#pragma once

#include "res/dialog_table.h"
#include "res/menu_table.h"

namespace velmo::res {

namespace editor_id {
constexpr int kSubject = 40180;
constexpr int kPriority = 40183;
constexpr int kPriorityUpDown = 40184;
constexpr int kStart = 40186;
constexpr int kDue = 40188;
constexpr int kSeparator = 40189;
constexpr int kNotes = 40190;
constexpr int kNotesUpDown = 40191;
constexpr int kCompleted = 40192;
constexpr int kOccurs = 40194;
constexpr int kOccursUpDown = 40195;
constexpr int kRecurrenceEnd = 40197;
constexpr int kOccurrences = 40198;
constexpr int kOccurrencesUpDown = 40199;
constexpr int kReminder = 40201;
constexpr int kPrivate = 40202;
constexpr int kTeamTask = 40204;
constexpr int kCategories = 40206;
constexpr int kCategoriesUpDown = 40207;
constexpr int kSensitivity = 40317;
constexpr int kSensitivityUpDown = 40318;
}  // namespace editor_id

constexpr UINT kDialogEditFull = 20005;
constexpr UINT kDialogEditCompact = 20006;
constexpr UINT kMenuEditor = 205;

extern const DialogDef kEditFullDialog;
extern const DialogDef kEditCompactDialog;
extern const SoftKeyBarDef kEditorBar;  // "Done" and "Menu" (menu 205)

// The "Select Day" entries: their texts are the weekday names of the days two
// to seven days ahead.
constexpr UINT kSelectDayFirst = 40097;
constexpr UINT kSelectDayLast = 40102;

}  // namespace velmo::res
