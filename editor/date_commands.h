// The editor's date commands: "Yesterday", "Today", "Tomorrow", the six
// "Select Day" entries, "Start Date", "Due Date", and the day before or after
// (the volume keys), each giving the focused date field a new date.
#pragma once

#include <string>

#include "editor/editor_fields.h"
#include "platform/wintypes.h"

namespace velmo {

constexpr UINT kCmdYesterday = 40094;
constexpr UINT kCmdToday = 40095;
constexpr UINT kCmdTomorrow = 40096;
constexpr UINT kCmdSelectDayFirst = 40097;  // today + 2 .. 40102 today + 7
constexpr UINT kCmdSelectDayLast = 40102;
constexpr UINT kCmdStartDate = 40103;
constexpr UINT kCmdDueDate = 40104;
constexpr UINT kCmdPreviousDay = 40105;
constexpr UINT kCmdNextDay = 40106;
constexpr UINT kCmdDatePicker = 40107;

bool IsDateCommand(UINT command);

// The date `command` gives the field, or kNoDate when it gives none (the start
// or due date asked for is empty). The time of day is cleared, except that the
// reminder keeps its own (or the remembered reminder's when it is empty).
DATE DateForCommand(UINT command, DateFieldKind field, const EditorFields& fields, DATE today);

// The text of a "Select Day" entry: the weekday name of its day.
std::wstring SelectDayText(UINT command, DATE today);

}  // namespace velmo
