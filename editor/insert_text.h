// The texts the editor's "Insert" entries put at the caret: a date of the task
// or today as a short or long date, the time, the date and time, a tab, and the
// stored "My Text" phrases.
#pragma once

#include <string>
#include <vector>

#include "editor/editor_fields.h"
#include "settings/settings.h"

namespace velmo {

constexpr UINT kCmdMyText = 40085;
constexpr UINT kCmdContact = 40086;
constexpr UINT kCmdCallHistory = 40092;
constexpr UINT kCmdInsertTime = 40140;
constexpr UINT kCmdInsertDateTime = 40141;
constexpr UINT kCmdShortDateFirst = 40142;  // Today, Start, Due, Reminder, Start and End of Recurrence
constexpr UINT kCmdLongDateFirst = 40148;
constexpr UINT kCmdLongDateLast = 40153;
constexpr UINT kCmdTab = 47000;

bool IsInsertCommand(UINT command);

// The text of an insert entry; empty when the date it names is not set.
std::wstring InsertText(UINT command, const EditorFields& fields, DATE now);

// The "My Text" phrases (Txt1..Txt20, then NTxt1..NTxt4) that are not empty.
std::vector<std::wstring> MyTexts(const Settings& settings);

}  // namespace velmo
