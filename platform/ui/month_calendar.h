// The month calendar (class MONTHCAL_CLASSW): one month as a grid of weeks with
// the locale's day names, the chosen day marked, today underlined. Arrows move
// by a day (Left/Right) and a week (Up/Down), PageUp/PageDown by a month; the
// parent hears WM_NOTIFY MCN_SELCHANGE on each move and MCN_SELECT on Enter.
//
// The grid is laid out from the control's size on each paint, centred, so it
// follows a resized dialog. PageUp/PageDown reach a terminal program as the
// volume keys, which move by a month too.
//
// PickDateInCalendar runs it as a modal dialog: `title` in the title line, Enter
// (or the left soft key) chooses, Esc cancels.
#pragma once

#include "platform/ui/types.h"

constexpr wchar_t MONTHCAL_CLASSW[] = L"SysMonthCal32";

constexpr UINT MCM_FIRST = 0x1000;
constexpr UINT MCM_GETCURSEL = MCM_FIRST + 1;
constexpr UINT MCM_SETCURSEL = MCM_FIRST + 2;
constexpr UINT MCM_SETTODAY = MCM_FIRST + 12;
constexpr UINT MCM_GETTODAY = MCM_FIRST + 13;

constexpr UINT MCN_FIRST = static_cast<UINT>(-750);
constexpr UINT MCN_SELCHANGE = MCN_FIRST + 1;
constexpr UINT MCN_SELECT = MCN_FIRST + 4;

struct NMSELCHANGE {
  NMHDR nmhdr;
  SYSTEMTIME stSelStart;
  SYSTEMTIME stSelEnd;
};

// True with *date set to the chosen day (time of day kept from *date) when the
// user chose one; false when cancelled or the dialog could not be made.
bool PickDateInCalendar(HWND owner, LPCWSTR title, SYSTEMTIME* date);
