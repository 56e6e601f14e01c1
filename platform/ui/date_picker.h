// The date picker (class DATETIMEPICK_CLASSW): one line showing a date, or a
// date and time, in the picture set with DTM_SETFORMATW (locale pictures such
// as "ddd dd/MM/yy" and "HH:mm", joined by plain text). With DTS_SHOWNONE it has
// a none state, drawn as an unchecked box and the picture's blanks.
// Left/Right move between the picture's fields, the number keys type into the
// focused field, Space (or "*") switches between none and a date: from none it
// takes the default date last given with DTM_SETSYSTEMTIME GDT_VALID, else
// today. Up/Down and Enter are left to the dialog (the owner opens the month
// calendar). Each change reaches the parent as WM_NOTIFY DTN_DATETIMECHANGE
// (NMDATETIMECHANGE). A typed field out of its range is refused with the
// warning beep and keeps its old value.
//
// DTM_SETSYSTEMTIME with GDT_NONE clears the picker (keeping its default);
// with GDT_VALID it shows the date and makes it the default.
//
// Typing: digits collect in the focused field until they make its full width
// or no further digit could keep them in range; then they are taken (and the
// focus moves to the next field) or refused. Leaving the field, losing the
// focus or DTM_GETSYSTEMTIME take digits still waiting. Backspace removes a
// waiting digit; "a"/"p" choose the half of the day in a "tt" field. The
// weekday ("ddd") follows the day and takes no focus. Years run 1601-4500.
// Without DTM_SETFORMATW the picture is the locale's short date
// (DTS_LONGDATEFORMAT: long date, DTS_TIMEFORMAT: time).
#pragma once

#include "platform/ui/types.h"

constexpr wchar_t DATETIMEPICK_CLASSW[] = L"SysDateTimePick32";

constexpr DWORD DTS_SHORTDATEFORMAT = 0x0000;
constexpr DWORD DTS_UPDOWN = 0x0001;
constexpr DWORD DTS_SHOWNONE = 0x0002;
constexpr DWORD DTS_LONGDATEFORMAT = 0x0004;
constexpr DWORD DTS_TIMEFORMAT = 0x0009;

constexpr UINT DTM_FIRST = 0x1000;
constexpr UINT DTM_GETSYSTEMTIME = DTM_FIRST + 1;
constexpr UINT DTM_SETSYSTEMTIME = DTM_FIRST + 2;
constexpr UINT DTM_SETFORMATW = DTM_FIRST + 50;

constexpr WPARAM GDT_ERROR = static_cast<WPARAM>(-1);
constexpr WPARAM GDT_VALID = 0;
constexpr WPARAM GDT_NONE = 1;

constexpr UINT DTN_FIRST = static_cast<UINT>(-760);
constexpr UINT DTN_DATETIMECHANGE = DTN_FIRST + 1;

struct NMDATETIMECHANGE {
  NMHDR nmhdr;
  DWORD dwFlags;  // GDT_VALID or GDT_NONE
  SYSTEMTIME st;
};
