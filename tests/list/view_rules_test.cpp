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

const DATE kNoon = May15(12);

struct Case {
  const char* name;
  Task task;
  std::function<void(Settings&)> set;  // the settings that differ from the defaults
  bool shown;
  DATE ref = kNoon;
};

void RunCases(UINT view, const std::vector<Case>& cases) {
  for (const Case& c : cases) {
    Settings s;
    s.today_in_past = 0;
    s.today_in_future = 0;
    if (c.set) c.set(s);
    EXPECT_EQ(c.shown, TaskInView(c.task, c.ref, view, s)) << c.name;
  }
}

auto Set(DWORD Settings::*field, DWORD value) {
  return [field, value](Settings& s) { s.*field = value; };
}

TEST(ViewRules, Overdue) {
  RunCases(kViewOverdue, {
      {"due yesterday", T().Due(Day(-1)), {}, true},
      {"due today, TodayInPast 0", T().Due(Day(0)), {}, false},
      {"due today, TodayInPast 1", T().Due(Day(0)), Set(&Settings::today_in_past, 1), true},
      {"due today, TodayInPast 2", T().Due(Day(0)), Set(&Settings::today_in_past, 2), true},
      {"due tomorrow", T().Due(Day(1)), Set(&Settings::today_in_past, 1), false},
      {"completed, due last week", T().Due(Day(-7)).Done(Day(-1)), {}, false},
      {"undated", T(), {}, false},
      {"only a reminder, yesterday", T().Reminder(Day(-1, 9)), {}, true},
      {"only a reminder, today", T().Reminder(Day(0, 9)), {}, false},
      {"due yesterday, at midnight", T().Due(Day(-1)), {}, true, May15(0)},
      {"due the same day, a second before midnight", T().Due(Day(-1)), {}, false,
       MakeDate(2024, 5, 14, 23, 59, 59)},
      {"a start date does not make it overdue", T().Start(Day(-3)), {}, false},
  });
}

TEST(ViewRules, NextDaysAndFuture) {
  const auto n_days = [](DWORD n, DWORD today_in_future = 0) {
    return [n, today_in_future](Settings& s) {
      s.n_days = n;
      s.today_in_future = today_in_future;
    };
  };
  RunCases(kViewNextDays, {
      {"NDays 1: tomorrow", T().Due(Day(1)), n_days(1), true},
      {"NDays 1: the day after", T().Due(Day(2)), n_days(1), false},
      {"NDays 1: today", T().Due(Day(0)), n_days(1), false},
      {"NDays 1: today with TodayInFuture", T().Due(Day(0)), n_days(1, 1), true},
      {"NDays 1: yesterday with TodayInFuture", T().Due(Day(-1)), n_days(1, 1), false},
      {"NDays 5: fifth day", T().Due(Day(5)), n_days(5), true},
      {"NDays 5: sixth day", T().Due(Day(6)), n_days(5), false},
      {"NDays 1: a reminder exactly 24 hours ahead", T().Reminder(Day(1, 12)), n_days(1), true},
      {"NDays 1: a reminder 24 hours ahead of 23:59", T().Reminder(Day(1, 23, 59)), n_days(1), true,
       May15(23, 59)},
      {"NDays 1: two days ahead of 23:59", T().Due(Day(2)), n_days(1), false, May15(23, 59)},
      {"NDays 1: at midnight, tomorrow", T().Due(Day(1)), n_days(1), true, May15(0)},
      {"completed", T().Due(Day(1)).Done(Day(0)), n_days(5), false},
      {"undated", T(), n_days(5), false},
  });
  RunCases(kViewFuture, {
      {"future: next year", T().Due(Day(365)), {}, true},
      {"future: only a reminder, tomorrow", T().Reminder(Day(1, 8)), {}, true},
      {"future: today", T().Due(Day(0)), {}, false},
      {"future: today with TodayInFuture", T().Due(Day(0)), Set(&Settings::today_in_future, 1), true},
      {"future: today with TodayInFuture 7", T().Due(Day(0)), Set(&Settings::today_in_future, 7), true},
      {"future: yesterday", T().Due(Day(-1)), Set(&Settings::today_in_future, 1), false},
      {"future: completed", T().Due(Day(3)).Done(Day(0)), {}, false},
  });
}

TEST(ViewRules, Active) {
  const auto a_days = [](DWORD n, DWORD undated = 0) {
    return [n, undated](Settings& s) {
      s.a_days = n;
      s.undated_in_active = undated;
    };
  };
  RunCases(kViewActive, {
      {"ADays 2: starts the day after tomorrow", T().Start(Day(2)).Due(Day(4)), a_days(2), true},
      {"ADays 2: starts in three days", T().Start(Day(3)).Due(Day(4)), a_days(2), false},
      {"ADays 0: starts tomorrow", T().Start(Day(1)).Due(Day(4)), a_days(0), false},
      {"ADays 0: starts today", T().Start(Day(0)).Due(Day(4)), a_days(0), true},
      {"ADays 2: no start, due in two days", T().Due(Day(2)), a_days(2), true},
      {"ADays 2: no start, due in three days", T().Due(Day(3)), a_days(2), false},
      {"ADays 2: start in range wins over a far due date", T().Start(Day(1)).Due(Day(30)), a_days(2), true},
      {"overdue", T().Due(Day(-5)), a_days(0), true},
      {"started, no due date", T().Start(Day(-2)), a_days(7), false},
      {"started, no due date, UndatedInActive", T().Start(Day(-2)), a_days(7, 1), true},
      {"starts later, no due date, UndatedInActive", T().Start(Day(9)), a_days(7, 1), false},
      {"undated", T(), a_days(7), false},
      {"undated, UndatedInActive", T(), a_days(7, 1), true},
      {"only a reminder is not undated", T().Reminder(Day(1, 9)), a_days(7), true},
      {"completed", T().Due(Day(0)).Done(Day(0)), a_days(7, 1), false},
  });
}

TEST(ViewRules, Today) {
  const auto show_completed = Set(&Settings::show_completed, 1);
  const auto hide_completed = Set(&Settings::show_completed, 0);
  RunCases(kViewToday, {
      {"due today", T().Due(Day(0)), {}, true},
      {"starts today", T().Start(Day(0)).Due(Day(3)), {}, true},
      {"running through today", T().Start(Day(-3)).Due(Day(3)), {}, true},
      {"ended yesterday", T().Start(Day(-3)).Due(Day(-1)), {}, false},
      {"starts tomorrow", T().Start(Day(1)).Due(Day(3)), {}, false},
      {"started, no due date", T().Start(Day(-1)), {}, false},
      {"reminder today late, due next week", T().Due(Day(7)).Reminder(Day(0, 23)), {}, true},
      {"reminder tomorrow", T().Due(Day(7)).Reminder(Day(1, 0)), {}, false},
      {"only a reminder today", T().Reminder(Day(0, 8)), {}, true},
      {"due yesterday", T().Due(Day(-1)), {}, false},
      {"completed today, ShowCompleted 1", T().Due(Day(-4)).Done(Day(0, 9)), show_completed, true},
      {"completed today, ShowCompleted 0", T().Due(Day(-4)).Done(Day(0, 9)), hide_completed, false},
      {"completed yesterday", T().Due(Day(0)).Done(Day(-1, 23)), show_completed, false},
      {"completed, due today", T().Due(Day(0)).Done(Day(-2)), show_completed, false},
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
  RunCases(kViewAllTasks, {
      {"all: open", T().Due(Day(-3)), {}, true},
      {"all: completed, ShowCompleted 1", done, Set(&Settings::show_completed, 1), true},
      {"all: completed, ShowCompleted 0", done, Set(&Settings::show_completed, 0), false},
      {"all: completed, ShowCompleted 2", done, Set(&Settings::show_completed, 2), false},
  });
  RunCases(kViewCompleted, {
      {"completed: completed", done, Set(&Settings::show_completed, 0), true},
      {"completed: open", T(), {}, false},
  });
  RunCases(kViewUndated, {
      {"undated: undated", T(), {}, true},
      {"undated: only a start", T().Start(Day(-1)), {}, false},
      {"undated: only a reminder", T().Reminder(Day(2)), {}, false},
      {"undated: completed", T().Done(Day(0)), {}, false},
  });
  RunCases(kViewSearch, {
      {"search: notes mark", T().Marks(kSearchMatchNotes), search(true, true), true},
      {"search: notes mark, notes off", T().Marks(kSearchMatchNotes), search(true, false), false},
      {"search: subject mark", T().Marks(kSearchMatchSubject), search(true, true), true},
      {"search: subject mark, subjects off", T().Marks(kSearchMatchSubject), search(false, true), false},
      {"search: completed with a mark", T().Done(Day(0)).Marks(kSearchMatchSubject),
       search(true, false), true},
      {"search: no mark", T(), search(true, true), false},
  });
  RunCases(40099, {{"no such view", T().Done(Day(0)), {}, true}});
  RunCases(0, {{"no such view below", T(), {}, true}});
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
