#include <string>

#include "platform/beep.h"
#include "platform/clock.h"
#include "platform/locale.h"
#include "platform/oletime.h"
#include "platform/ui/colours.h"
#include "platform/ui/date_picker.h"
#include "platform/ui/month_calendar.h"
#include "platform/ui/virtual_keys.h"
#include "tests/ui/ui_fixture.h"

namespace velmo::testing {
namespace {

constexpr int kPickerId = 20, kCalendarId = 21;

SYSTEMTIME Day(int year, int month, int day, int hour = 0, int minute = 0) {
  SYSTEMTIME st{};
  st.wYear = static_cast<WORD>(year);
  st.wMonth = static_cast<WORD>(month);
  st.wDay = static_cast<WORD>(day);
  st.wHour = static_cast<WORD>(hour);
  st.wMinute = static_cast<WORD>(minute);
  return st;
}

std::wstring Shown(const SYSTEMTIME& st) {
  return std::to_wstring(st.wYear) + L"-" + std::to_wstring(st.wMonth) + L"-" +
         std::to_wstring(st.wDay) + L" " + std::to_wstring(st.wHour) + L":" +
         std::to_wstring(st.wMinute);
}

class DateControlsTest : public UiTest {
 protected:
  DateControlsTest() {
    handlers_[WM_NOTIFY] = [&](HWND, UINT, WPARAM, LPARAM l, bool*) -> LRESULT {
      auto* hdr = reinterpret_cast<const NMHDR*>(l);
      notes_.push_back(hdr->code);
      if (hdr->code == DTN_DATETIMECHANGE) {
        last_flags_ = reinterpret_cast<const NMDATETIMECHANGE*>(l)->dwFlags;
      }
      return 0;
    };
    main_ = MakeMain();
  }

  HWND MakePicker(DWORD style, const wchar_t* picture, const SYSTEMTIME& date) {
    HWND picker = MakeChild(main_, kPickerId, 1, 1, 30, 1, DATETIMEPICK_CLASSW, style | WS_TABSTOP);
    SendMessageW(picker, DTM_SETFORMATW, 0, reinterpret_cast<LPARAM>(picture));
    SendMessageW(picker, DTM_SETSYSTEMTIME, GDT_VALID, reinterpret_cast<LPARAM>(&date));
    SetFocus(picker);
    Pump();
    return picker;
  }
  // '<' and '>' are Left and Right; everything else is typed.
  void Keys(const wchar_t* keys) {
    for (const wchar_t* k = keys; *k; ++k) {
      if (*k == L'<' || *k == L'>') {
        screen_.TypeKey(*k == L'<' ? VK_LEFT : VK_RIGHT);
      } else {
        screen_.TypeText(std::wstring_view(k, 1));
      }
    }
    Pump();
  }
  SYSTEMTIME Value(HWND picker, WPARAM* kind) {
    SYSTEMTIME st{};
    *kind = static_cast<WPARAM>(SendMessageW(picker, DTM_GETSYSTEMTIME, 0, reinterpret_cast<LPARAM>(&st)));
    return st;
  }
  // The first highlighted column of a screen row, or -1.
  int MarkedAt(int y) const {
    for (int x = 0; x < screen_.width(); ++x) {
      if (screen_.at(x, y).bg == GetSysColor(COLOR_HIGHLIGHT)) return x;
    }
    return -1;
  }

  locale::ScopedLocale locale_{"en_US"};
  ScopedClock clock_{MakeDate(2026, 11, 23, 14, 5)};
  HWND main_;
  std::vector<UINT> notes_;  // the codes of WM_NOTIFY the parent heard
  DWORD last_flags_ = 0xFF;  // of the last DTN_DATETIMECHANGE
};

TEST_F(DateControlsTest, TypedFieldsOutOfRangeAreRefusedWithTheBeepAndKeepTheFocus) {
  HWND picker = MakePicker(0, L"dd/MM/yyyy", Day(2026, 11, 23));
  struct Step { const wchar_t* keys; const wchar_t* drawn; int beeps; int marked; } const steps[] = {
      {L"31", L"23/11/2026", 1, 0},    // November has 30 days; the day keeps the focus
      {L"05", L"05/11/2026", 1, 3},    // taken; on to the month
      {L"13", L"05/11/2026", 2, 3},
      {L"00", L"05/11/2026", 3, 3},
      {L"2", L"05/02/2026", 3, 6},     // 2 cannot grow into a month: taken at once
      {L"1500", L"05/02/2026", 4, 6},
      {L"2028", L"05/02/2028", 4, 6},
      {L"<<29", L"29/02/2028", 4, 3},  // a leap year
      {L"<", L"29/02/2028", 4, 0},
      {L"9", L"09/02/2028", 4, 3},
      {L"<1", L" 1/02/2028", 4, 0},    // a digit waiting for the next
  };
  unsigned beeps = platform::BeepCount();
  for (const Step& s : steps) {
    Keys(s.keys);
    EXPECT_EQ(screen_.Row(2).substr(1, 10), s.drawn) << s.keys;
    EXPECT_EQ(platform::BeepCount() - beeps, static_cast<unsigned>(s.beeps)) << s.keys;
    EXPECT_EQ(MarkedAt(2), 1 + s.marked) << s.keys;
  }
  SetFocus(main_);  // leaving takes the waiting digit
  Pump();
  WPARAM kind;
  EXPECT_EQ(Shown(Value(picker, &kind)), L"2028-2-1 0:0");
  EXPECT_EQ(kind, GDT_VALID);
  EXPECT_EQ(notes_.size(), 6u) << "one change for each value taken";
  EXPECT_EQ(MarkedAt(2), -1) << "no mark without the focus";
}

TEST_F(DateControlsTest, NoneStateSwitchesToTheDefaultDateOrToday) {
  struct Case { bool with_default; const wchar_t* keys; const wchar_t* drawn; WPARAM kind; } const cases[] = {
      {true, L"", L"☐ --/--/----", GDT_NONE},
      {true, L" ", L"☑ 24/12/2026", GDT_VALID},
      {true, L" *", L"☐ --/--/----", GDT_NONE},
      {true, L"01", L"☑ 01/12/2026", GDT_VALID},  // typing switches it on
      {false, L"*", L"☑ 23/11/2026", GDT_VALID},
  };
  for (const Case& c : cases) {
    notes_.clear();
    HWND picker = MakePicker(DTS_SHOWNONE, L"dd/MM/yyyy", Day(2026, 12, 24));
    if (!c.with_default) {
      DestroyWindow(picker);
      picker = MakeChild(main_, kPickerId, 1, 1, 30, 1, DATETIMEPICK_CLASSW, DTS_SHOWNONE);
      SendMessageW(picker, DTM_SETFORMATW, 0, reinterpret_cast<LPARAM>(L"dd/MM/yyyy"));
      SetFocus(picker);
    }
    SendMessageW(picker, DTM_SETSYSTEMTIME, GDT_NONE, 0);
    Keys(c.keys);
    EXPECT_EQ(screen_.Row(2).substr(1, 12), c.drawn) << c.keys;
    WPARAM kind;
    Value(picker, &kind);
    EXPECT_EQ(kind, c.kind) << c.keys;
    if (!notes_.empty()) {
      EXPECT_EQ(last_flags_, c.kind) << c.keys;
    }
    DestroyWindow(picker);
  }
}

TEST_F(DateControlsTest, DateAndTimeSkipsTheWeekdayAndTakesTheHalfOfTheDay) {
  HWND picker = MakePicker(0, L"ddd dd/MM/yy hh:mm tt", Day(2026, 11, 23, 14, 5));
  EXPECT_EQ(screen_.Row(2).substr(1, 21), L"Mon 23/11/26 02:05 PM");
  EXPECT_EQ(MarkedAt(2), 1 + 4) << "the focus starts on the day";
  Keys(L"<");
  EXPECT_EQ(MarkedAt(2), 1 + 4) << "the weekday takes no focus";
  Keys(L">>>11>a>a");
  EXPECT_EQ(screen_.Row(2).substr(1, 21), L"Mon 23/11/26 11:05 AM");
  Keys(L"<<<<<26");
  WPARAM kind;
  EXPECT_EQ(Shown(Value(picker, &kind)), L"2026-11-26 11:5");
  EXPECT_EQ(screen_.Row(2).substr(1, 3), L"Thu") << "the weekday follows the day";
  EnableWindow(picker, FALSE);
  Pump();
  EXPECT_EQ(screen_.at(1, 2).fg, GetSysColor(COLOR_GRAYTEXT));
  EXPECT_EQ(MarkedAt(2), -1);
}

TEST_F(DateControlsTest, CalendarKeysMoveByDayWeekAndMonth) {
  HWND calendar = MakeChild(main_, kCalendarId, 0, 0, 40, 10, MONTHCAL_CLASSW, WS_TABSTOP);
  SetFocus(calendar);
  struct Case { SYSTEMTIME from; UINT vk; SYSTEMTIME to; } const cases[] = {
      {Day(2026, 11, 23), VK_RIGHT, Day(2026, 11, 24)},  {Day(2026, 11, 1), VK_LEFT, Day(2026, 10, 31)},
      {Day(2026, 11, 28), VK_DOWN, Day(2026, 12, 5)},   {Day(2026, 1, 3), VK_UP, Day(2025, 12, 27)},
      {Day(2028, 1, 31), VK_NEXT, Day(2028, 2, 29)},     {Day(2026, 3, 31), VK_TVOLUMEUP, Day(2026, 2, 28)},
      {Day(2026, 12, 15), VK_TVOLUMEDOWN, Day(2027, 1, 15)}, {Day(2026, 5, 15), VK_PRIOR, Day(2026, 4, 15)},
  };
  for (const Case& c : cases) {
    notes_.clear();
    SendMessageW(calendar, MCM_SETCURSEL, 0, reinterpret_cast<LPARAM>(&c.from));
    screen_.TypeKey(c.vk);
    Pump();
    SYSTEMTIME got{};
    SendMessageW(calendar, MCM_GETCURSEL, 0, reinterpret_cast<LPARAM>(&got));
    EXPECT_EQ(Shown(got), Shown(c.to)) << Shown(c.from) << " key " << c.vk;
    EXPECT_EQ(notes_, std::vector<UINT>{MCN_SELCHANGE});
  }
  screen_.TypeKey(VK_RETURN);
  Pump();
  EXPECT_EQ(notes_.back(), MCN_SELECT);
}

TEST_F(DateControlsTest, CalendarDrawsTheLocaleWeekTodayAndTheChosenDay) {
  struct Case { const char* locale; const wchar_t* names; const wchar_t* first_week; } const cases[] = {
      {"en_US", L"Su Mo Tu We Th Fr Sa", L" 1  2  3  4  5  6  7"},
      {"en_GB", L"Mo Tu We Th Fr Sa Su", L"                   1"},
  };
  for (const Case& c : cases) {
    locale::ScopedLocale pinned(c.locale);
    HWND calendar = MakeChild(main_, kCalendarId, 0, 0, 40, 10, MONTHCAL_CLASSW, WS_TABSTOP);
    SYSTEMTIME day = Day(2026, 11, 24);
    SendMessageW(calendar, MCM_SETCURSEL, 0, reinterpret_cast<LPARAM>(&day));
    SetFocus(calendar);
    Pump();
    // The grid is 20 cells wide, centred: columns 10-29, rows 2-9 of the screen.
    EXPECT_TRUE(screen_.Row(2).find(L"November 2026") != std::wstring::npos) << c.locale;
    EXPECT_EQ(screen_.Row(3).substr(10, 20), c.names) << c.locale;
    EXPECT_EQ(screen_.Row(4).substr(10, 20), c.first_week) << c.locale;
    POINT today = screen_.Find(L"23"), chosen = screen_.Find(L"24");
    EXPECT_TRUE(screen_.at(today.x, today.y).attrs & ui::kAttrUnderline) << c.locale;
    EXPECT_EQ(screen_.at(chosen.x, chosen.y).bg, GetSysColor(COLOR_HIGHLIGHT)) << c.locale;
    EXPECT_NE(screen_.at(today.x, today.y).bg, GetSysColor(COLOR_HIGHLIGHT)) << c.locale;
    DestroyWindow(calendar);
  }
}

TEST_F(DateControlsTest, CalendarDialogChoosesKeepsTheTimeCancelsAndFollowsTheTerminal) {
  SYSTEMTIME date = Day(2026, 11, 23, 9, 30);
  screen_.AddIdleStep([&] {
    EXPECT_EQ(screen_.Row(0).substr(0, 9), L" Due Date");
    EXPECT_EQ(screen_.Row(3).substr(10, 2), L"Su");
    screen_.Resize(60, 16);
    screen_.AddIdleStep([&] {
      EXPECT_EQ(screen_.Row(5).substr(20, 2), L"Su") << "centred again";
      screen_.TypeKey(VK_DOWN);
      screen_.TypeKey(VK_RETURN);
    });
  });
  EXPECT_TRUE(PickDateInCalendar(main_, L"Due Date", &date));
  EXPECT_EQ(Shown(date), L"2026-11-30 9:30");
  screen_.AddIdleStep([&] {
    screen_.TypeKey(VK_RIGHT);
    screen_.TypeKey(VK_ESCAPE);
  });
  EXPECT_FALSE(PickDateInCalendar(main_, L"Due Date", &date));
  EXPECT_EQ(Shown(date), L"2026-11-30 9:30");
  screen_.TypeKey(VK_LEFT);
  screen_.TypeKey(VK_TSOFT1);
  EXPECT_TRUE(PickDateInCalendar(main_, L"Start Date", &date));
  EXPECT_EQ(Shown(date), L"2026-11-29 9:30");
  EXPECT_FALSE(screen_.stalled());
}

}  // namespace
}  // namespace velmo::testing
