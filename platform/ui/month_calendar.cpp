// The month calendar: the month's title between arrows, the locale's day
// names from its first day of the week, and the weeks, the chosen day marked
// and today underlined. Laid out from its client size on every paint, so it
// follows a resized dialog.
#include "platform/ui/month_calendar.h"

#include <algorithm>
#include <string>

#include "platform/locale.h"
#include "platform/ui/calendar_days.h"
#include "platform/ui/control_look.h"
#include "platform/ui/gdi.h"
#include "platform/ui/message_queue.h"
#include "platform/ui/messages.h"
#include "platform/ui/screen.h"
#include "platform/ui/ui_internal.h"
#include "platform/ui/virtual_keys.h"
#include "platform/ui/window.h"

namespace velmo::ui::internal {
namespace {

constexpr int kColumn = 3;                    // cells per day: two digits and a gap
constexpr int kGridWidth = 7 * kColumn - 1;
constexpr int kFirstWeekRow = 2;              // under the title and the day names

struct KeyMove {
  UINT vk;
  int days;
  int months;
};

// PageUp/PageDown reach the program as the volume keys in a terminal.
constexpr KeyMove kMoves[] = {
    {VK_LEFT, -1, 0},      {VK_RIGHT, 1, 0},       {VK_UP, -7, 0},
    {VK_DOWN, 7, 0},       {VK_PRIOR, 0, -1},      {VK_NEXT, 0, 1},
    {VK_TVOLUMEUP, 0, -1}, {VK_TVOLUMEDOWN, 0, 1},
};

struct MonthCalData : ControlData {
  SYSTEMTIME selected{};
  SYSTEMTIME today{};
  bool today_set = false;
};

MonthCalData* Data(HWND hwnd) { return ControlOf<MonthCalData>(hwnd); }

SYSTEMTIME TodayOf(const MonthCalData* d) { return d->today_set ? d->today : Today(); }

bool SameDay(const SYSTEMTIME& a, const SYSTEMTIME& b) {
  return a.wYear == b.wYear && a.wMonth == b.wMonth && a.wDay == b.wDay;
}

SYSTEMTIME DayOnly(SYSTEMTIME st) {
  st.wHour = st.wMinute = st.wSecond = st.wMilliseconds = 0;
  return WithWeekday(st);
}

// Monday 0 .. Sunday 6, as the locale counts its first day of the week.
int FirstDayOfWeek() {
  wchar_t buffer[8] = {};
  if (GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_IFIRSTDAYOFWEEK, buffer, 8) <= 0) return 0;
  return std::clamp(buffer[0] - L'0', 0, 6);
}

// A day name cut to the two cells of its column.
std::wstring ShortDayName(int monday_based) {
  wchar_t buffer[40] = {};
  GetLocaleInfoW(LOCALE_USER_DEFAULT, static_cast<LCTYPE>(LOCALE_SABBREVDAYNAME1 + monday_based),
                 buffer, 40);
  std::wstring name;
  for (const wchar_t* p = buffer; *p && TextWidth(name + *p) <= 2; ++p) name += *p;
  return name;
}

std::wstring MonthTitle(const SYSTEMTIME& st) {
  wchar_t buffer[80] = {};
  GetDateFormatW(LOCALE_USER_DEFAULT, DATE_YEARMONTH, &st, nullptr, buffer, 80);
  return buffer;
}

void Select(HWND hwnd, MonthCalData* d, const SYSTEMTIME& day) {
  d->selected = DayOnly(day);
  MarkScreenDirty();
  NMSELCHANGE nm{};
  nm.stSelStart = nm.stSelEnd = d->selected;
  NotifyParent(hwnd, &nm.nmhdr, MCN_SELCHANGE);
}

void OnKeyDown(HWND hwnd, UINT vk) {
  MonthCalData* d = Data(hwnd);
  if (!d) return;
  if (vk == VK_RETURN) {
    NMSELCHANGE nm{};
    nm.stSelStart = nm.stSelEnd = d->selected;
    NotifyParent(hwnd, &nm.nmhdr, MCN_SELECT);
    return;
  }
  for (const KeyMove& m : kMoves) {
    if (m.vk != vk) continue;
    SYSTEMTIME day = d->selected;
    if ((m.days && AddDays(&day, m.days)) || (m.months && AddMonths(&day, m.months))) {
      Select(hwnd, d, day);
    }
    return;
  }
}

void DrawCentred(HDC hdc, int left, int width, int y, const std::wstring& text) {
  DrawCells(hdc, left + std::max(0, (width - TextWidth(text)) / 2), y, text);
}

void Paint(HWND hwnd) {
  PAINTSTRUCT ps;
  HDC hdc = BeginPaint(hwnd, &ps);
  MonthCalData* d = Data(hwnd);
  RECT rc;
  GetClientRect(hwnd, &rc);
  if (d && rc.right > 0 && rc.bottom > 0) {
    ControlColours plain = ColoursFor(hwnd, false);
    FillWith(hdc, rc, plain);
    UseColours(hdc, plain);
    int left = std::max<int>(0, (rc.right - kGridWidth) / 2);
    int top = std::max<int>(0, (rc.bottom - (kFirstWeekRow + 6)) / 2);
    DrawCells(hdc, left, top, L"◂");
    DrawCells(hdc, left + kGridWidth - 1, top, L"▸");
    DrawCentred(hdc, left, kGridWidth, top, MonthTitle(d->selected));
    int first = FirstDayOfWeek();
    for (int c = 0; c < 7; ++c) {
      DrawCells(hdc, left + c * kColumn, top + 1, ShortDayName((first + c) % 7));
    }
    SYSTEMTIME day = d->selected;
    day.wDay = 1;
    day = WithWeekday(day);
    int column = ((day.wDayOfWeek + 6) % 7 - first + 7) % 7;
    SYSTEMTIME today = TodayOf(d);
    bool focused = GetFocus() == hwnd;
    int days = DaysInMonth(day.wYear, day.wMonth);
    for (int n = 1; n <= days; ++n, ++column) {
      day.wDay = static_cast<WORD>(n);
      int y = top + kFirstWeekRow + column / 7;
      bool selected = n == d->selected.wDay;
      UseColours(hdc, ColoursFor(hwnd, selected && focused));
      BYTE attrs = (SameDay(day, today) ? kAttrUnderline : 0) |
                   (selected && !focused ? kAttrReverse : 0);
      velmo::ui::SetTextAttributes(hdc, attrs);
      std::wstring number = (n < 10 ? L" " : L"") + std::to_wstring(n);
      DrawCells(hdc, left + (column % 7) * kColumn, y, number);
    }
    velmo::ui::SetTextAttributes(hdc, 0);
  }
  EndPaint(hwnd, &ps);
}

bool CopyDay(LPARAM lparam, const SYSTEMTIME& day) {
  auto* out = reinterpret_cast<SYSTEMTIME*>(lparam);
  if (!out) return false;
  *out = day;
  return true;
}

}  // namespace

LRESULT MonthCalProc(HWND hwnd, UINT msg, WPARAM wparam, LPARAM lparam) {
  if (msg == WM_NCCREATE) {
    if (WindowData* w = Find(hwnd)) {
      auto data = std::make_unique<MonthCalData>();
      data->selected = Today();
      w->control = std::move(data);
    }
    return TRUE;
  }
  MonthCalData* d = Data(hwnd);
  if (!d) return DefWindowProcW(hwnd, msg, wparam, lparam);
  const auto* given = reinterpret_cast<const SYSTEMTIME*>(lparam);
  switch (msg) {
    case WM_PAINT:
      Paint(hwnd);
      return 0;
    case WM_GETDLGCODE:
      // Up/Down move by a week; Enter chooses the day.
      return DLGC_WANTARROWS | (wparam == VK_RETURN ? DLGC_WANTALLKEYS : 0);
    case WM_KEYDOWN:
      OnKeyDown(hwnd, static_cast<UINT>(wparam));
      return 0;
    case WM_SETFOCUS:
    case WM_KILLFOCUS:
    case WM_ENABLE:
      MarkScreenDirty();
      return 0;
    case MCM_GETCURSEL:
      return CopyDay(lparam, d->selected);
    case MCM_SETCURSEL:
      if (!given || !IsValidDay(DayOnly(*given))) return FALSE;
      d->selected = DayOnly(*given);
      MarkScreenDirty();
      return TRUE;
    case MCM_GETTODAY:
      return CopyDay(lparam, TodayOf(d));
    case MCM_SETTODAY:
      d->today_set = given && IsValidDay(DayOnly(*given));
      if (d->today_set) d->today = DayOnly(*given);
      MarkScreenDirty();
      return 0;
    default:
      return DefWindowProcW(hwnd, msg, wparam, lparam);
  }
}

}  // namespace velmo::ui::internal
