// Which view shows which task, on the boundaries of the day and of the settings.
#include <gtest/gtest.h>

#include <functional>

#include "list/view_ids.h"
#include "list/view_rules.h"
#include "tests/list/list_fixture.h"

namespace velmo {
namespace {

using testing::Day;
using testing::May15;
using testing::T;

struct Case {
  const char* name;
  UINT view;
  Task task;
  DATE ref;
  std::function<void(Settings&)> set;  // the settings that differ from the defaults
  bool shown;
};

void RunCases(const std::vector<Case>& cases) {
  for (const Case& c : cases) {
    Settings s;
    s.today_in_past = 0;
    s.today_in_future = 0;
    if (c.set) c.set(s);
    EXPECT_EQ(c.shown, TaskInView(c.task, c.ref, c.view, s)) << c.name;
  }
}

auto Set(DWORD Settings::*field, DWORD value) {
  return [field, value](Settings& s) { s.*field = value; };
}

const DATE kNoon = May15(12);

TEST(ViewRules, Overdue) {
  RunCases({
      {"due yesterday", kViewOverdue, T().Due(Day(-1)), kNoon, nullptr, true},
      {"due today, TodayInPast 0", kViewOverdue, T().Due(Day(0)), kNoon, nullptr, false},
      {"due today, TodayInPast 1", kViewOverdue, T().Due(Day(0)), kNoon,
       Set(&Settings::today_in_past, 1), true},
      {"due today, TodayInPast 2", kViewOverdue, T().Due(Day(0)), kNoon,
       Set(&Settings::today_in_past, 2), true},
      {"due tomorrow", kViewOverdue, T().Due(Day(1)), kNoon, Set(&Settings::today_in_past, 1),
       false},
      {"completed, due last week", kViewOverdue, T().Due(Day(-7)).Done(Day(-1)), kNoon, nullptr,
       false},
      {"undated", kViewOverdue, T(), kNoon, nullptr, false},
      {"only a reminder, yesterday", kViewOverdue, T().Reminder(Day(-1, 9)), kNoon, nullptr,
       true},
      {"only a reminder, today", kViewOverdue, T().Reminder(Day(0, 9)), kNoon, nullptr, false},
      {"due yesterday, at midnight", kViewOverdue, T().Due(Day(-1)), May15(0), nullptr, true},
      {"due the same day, a second before midnight", kViewOverdue, T().Due(Day(-1)),
       MakeDate(2024, 5, 14, 23, 59, 59), nullptr, false},
      {"a start date does not make it overdue", kViewOverdue, T().Start(Day(-3)), kNoon, nullptr,
       false},
  });
}

TEST(ViewRules, NextDaysAndFuture) {
  const auto n_days = [](DWORD n, DWORD today_in_future = 0) {
    return [n, today_in_future](Settings& s) {
      s.n_days = n;
      s.today_in_future = today_in_future;
    };
  };
  RunCases({
      {"NDays 1: tomorrow", kViewNextDays, T().Due(Day(1)), kNoon, n_days(1), true},
      {"NDays 1: the day after", kViewNextDays, T().Due(Day(2)), kNoon, n_days(1), false},
      {"NDays 1: today", kViewNextDays, T().Due(Day(0)), kNoon, n_days(1), false},
      {"NDays 1: today with TodayInFuture", kViewNextDays, T().Due(Day(0)), kNoon, n_days(1, 1),
       true},
      {"NDays 1: yesterday with TodayInFuture", kViewNextDays, T().Due(Day(-1)), kNoon,
       n_days(1, 1), false},
      {"NDays 5: fifth day", kViewNextDays, T().Due(Day(5)), kNoon, n_days(5), true},
      {"NDays 5: sixth day", kViewNextDays, T().Due(Day(6)), kNoon, n_days(5), false},
      {"NDays 1: a reminder exactly 24 hours ahead", kViewNextDays, T().Reminder(Day(1, 12)),
       kNoon, n_days(1), true},
      {"NDays 1: a reminder 24 hours ahead of 23:59", kViewNextDays, T().Reminder(Day(1, 23, 59)),
       May15(23, 59), n_days(1), true},
      {"NDays 1: two days ahead of 23:59", kViewNextDays, T().Due(Day(2)), May15(23, 59),
       n_days(1), false},
      {"NDays 1: at midnight, tomorrow", kViewNextDays, T().Due(Day(1)), May15(0), n_days(1),
       true},
      {"completed", kViewNextDays, T().Due(Day(1)).Done(Day(0)), kNoon, n_days(5), false},
      {"undated", kViewNextDays, T(), kNoon, n_days(5), false},
      {"future: next year", kViewFuture, T().Due(Day(365)), kNoon, nullptr, true},
      {"future: only a reminder, tomorrow", kViewFuture, T().Reminder(Day(1, 8)), kNoon, nullptr,
       true},
      {"future: today", kViewFuture, T().Due(Day(0)), kNoon, nullptr, false},
      {"future: today with TodayInFuture", kViewFuture, T().Due(Day(0)), kNoon,
       Set(&Settings::today_in_future, 1), true},
      {"future: today with TodayInFuture 7", kViewFuture, T().Due(Day(0)), kNoon,
       Set(&Settings::today_in_future, 7), true},
      {"future: yesterday", kViewFuture, T().Due(Day(-1)), kNoon,
       Set(&Settings::today_in_future, 1), false},
      {"future: completed", kViewFuture, T().Due(Day(3)).Done(Day(0)), kNoon, nullptr, false},
  });
}

TEST(ViewRules, Active) {
  const auto a_days = [](DWORD n, DWORD undated = 0) {
    return [n, undated](Settings& s) {
      s.a_days = n;
      s.undated_in_active = undated;
    };
  };
  RunCases({
      {"ADays 2: starts the day after tomorrow", kViewActive, T().Start(Day(2)).Due(Day(4)), kNoon,
       a_days(2), true},
      {"ADays 2: starts in three days", kViewActive, T().Start(Day(3)).Due(Day(4)), kNoon,
       a_days(2), false},
      {"ADays 0: starts tomorrow", kViewActive, T().Start(Day(1)).Due(Day(4)), kNoon, a_days(0),
       false},
      {"ADays 0: starts today", kViewActive, T().Start(Day(0)).Due(Day(4)), kNoon, a_days(0),
       true},
      {"ADays 2: no start, due in two days", kViewActive, T().Due(Day(2)), kNoon, a_days(2), true},
      {"ADays 2: no start, due in three days", kViewActive, T().Due(Day(3)), kNoon, a_days(2),
       false},
      {"ADays 2: start in range wins over a far due date", kViewActive,
       T().Start(Day(1)).Due(Day(30)), kNoon, a_days(2), true},
      {"overdue", kViewActive, T().Due(Day(-5)), kNoon, a_days(0), true},
      {"started, no due date", kViewActive, T().Start(Day(-2)), kNoon, a_days(7), false},
      {"started, no due date, UndatedInActive", kViewActive, T().Start(Day(-2)), kNoon,
       a_days(7, 1), true},
      {"starts later, no due date, UndatedInActive", kViewActive, T().Start(Day(9)), kNoon,
       a_days(7, 1), false},
      {"undated", kViewActive, T(), kNoon, a_days(7), false},
      {"undated, UndatedInActive", kViewActive, T(), kNoon, a_days(7, 1), true},
      {"only a reminder is not undated", kViewActive, T().Reminder(Day(1, 9)), kNoon, a_days(7),
       true},
      {"completed", kViewActive, T().Due(Day(0)).Done(Day(0)), kNoon, a_days(7, 1), false},
  });
}

TEST(ViewRules, Today) {
  const auto show_completed = Set(&Settings::show_completed, 1);
  const auto hide_completed = Set(&Settings::show_completed, 0);
  RunCases({
      {"due today", kViewToday, T().Due(Day(0)), kNoon, nullptr, true},
      {"due today, TodayInPast and TodayInFuture off", kViewToday, T().Due(Day(0)), kNoon,
       nullptr, true},
      {"starts today", kViewToday, T().Start(Day(0)).Due(Day(3)), kNoon, nullptr, true},
      {"running through today", kViewToday, T().Start(Day(-3)).Due(Day(3)), kNoon, nullptr, true},
      {"ended yesterday", kViewToday, T().Start(Day(-3)).Due(Day(-1)), kNoon, nullptr, false},
      {"starts tomorrow", kViewToday, T().Start(Day(1)).Due(Day(3)), kNoon, nullptr, false},
      {"started, no due date", kViewToday, T().Start(Day(-1)), kNoon, nullptr, false},
      {"reminder today late, due next week", kViewToday, T().Due(Day(7)).Reminder(Day(0, 23)),
       kNoon, nullptr, true},
      {"reminder tomorrow", kViewToday, T().Due(Day(7)).Reminder(Day(1, 0)), kNoon, nullptr,
       false},
      {"only a reminder today", kViewToday, T().Reminder(Day(0, 8)), kNoon, nullptr, true},
      {"due yesterday", kViewToday, T().Due(Day(-1)), kNoon, nullptr, false},
      {"completed today, ShowCompleted 1", kViewToday, T().Due(Day(-4)).Done(Day(0, 9)), kNoon,
       show_completed, true},
      {"completed today, ShowCompleted 0", kViewToday, T().Due(Day(-4)).Done(Day(0, 9)), kNoon,
       hide_completed, false},
      {"completed yesterday", kViewToday, T().Due(Day(0)).Done(Day(-1, 23)), kNoon, show_completed,
       false},
      {"completed, due today", kViewToday, T().Due(Day(0)).Done(Day(-2)), kNoon, show_completed,
       false},
  });
}

TEST(ViewRules, AllCompletedUndatedSearchAndOthers) {
  const auto search = [](bool subjects, bool notes) {
    return [subjects, notes](Settings& s) {
      s.search_subjects = subjects;
      s.search_notes = notes;
    };
  };
  const Task done = testing::TaskSpec{}.Oid(1).Due(Day(-3)).Done(Day(-1));
  RunCases({
      {"all: open", kViewAllTasks, T().Due(Day(-3)), kNoon, nullptr, true},
      {"all: completed, ShowCompleted 1", kViewAllTasks, done, kNoon,
       Set(&Settings::show_completed, 1), true},
      {"all: completed, ShowCompleted 0", kViewAllTasks, done, kNoon,
       Set(&Settings::show_completed, 0), false},
      {"all: completed, ShowCompleted 2", kViewAllTasks, done, kNoon,
       Set(&Settings::show_completed, 2), false},
      {"completed: completed", kViewCompleted, done, kNoon, Set(&Settings::show_completed, 0),
       true},
      {"completed: open", kViewCompleted, T(), kNoon, nullptr, false},
      {"undated: undated", kViewUndated, T(), kNoon, nullptr, true},
      {"undated: only a start", kViewUndated, T().Start(Day(-1)), kNoon, nullptr, false},
      {"undated: only a reminder", kViewUndated, T().Reminder(Day(2)), kNoon, nullptr, false},
      {"undated: completed", kViewUndated, T().Done(Day(0)), kNoon, nullptr, false},
      {"search: notes mark", kViewSearch, T().Marks(kSearchMatchNotes), kNoon, search(true, true),
       true},
      {"search: notes mark, notes off", kViewSearch, T().Marks(kSearchMatchNotes), kNoon,
       search(true, false), false},
      {"search: subject mark", kViewSearch, T().Marks(kSearchMatchSubject), kNoon,
       search(true, true), true},
      {"search: subject mark, subjects off", kViewSearch, T().Marks(kSearchMatchSubject), kNoon,
       search(false, true), false},
      {"search: completed with a mark", kViewSearch, T().Done(Day(0)).Marks(kSearchMatchSubject),
       kNoon, search(true, false), true},
      {"search: no mark", kViewSearch, T(), kNoon, search(true, true), false},
      {"no such view", 40099, T().Done(Day(0)), kNoon, nullptr, true},
      {"no such view below", 0, T(), kNoon, nullptr, true},
  });
}

TEST(ViewRules, EffectiveDueDate) {
  EXPECT_EQ(Day(3), EffectiveDueDate(T().Due(Day(3))));
  EXPECT_EQ(Day(3), EffectiveDueDate(T().Due(Day(3)).Reminder(Day(1, 9))));
  EXPECT_EQ(Day(1), EffectiveDueDate(T().Reminder(Day(1, 9, 30))));
  EXPECT_EQ(kNoDate, EffectiveDueDate(T()));
  Task off = T().Reminder(Day(1, 9));
  off.reminder_set = 0;
  EXPECT_EQ(kNoDate, EffectiveDueDate(off));
  // Before 1900 the whole day truncates toward zero, to the later midnight.
  EXPECT_EQ(-1.0, EffectiveDueDate(T().Reminder(-1.25)));
}

}  // namespace
}  // namespace velmo
