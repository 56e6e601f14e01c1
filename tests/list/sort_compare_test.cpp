// One key at a time: the order of present values, the missing rule in all three
// directions, and the dates the reminder refines.
#include <gtest/gtest.h>

#include "list/sort_compare.h"
#include "tests/list/list_fixture.h"

namespace velmo {
namespace {

using testing::Day;
using testing::T;

constexpr SHORT kAsc = kSortAscending;
constexpr SHORT kDesc = kSortDescending;
constexpr SHORT kNoneLast = kSortAscendingNoneLast;

// Texts compare in the order of the program's locale.
class SortCompare : public ::testing::Test {
  locale::ScopedLocale locale_{"en_US"};
};

struct Pair { const char* name; SHORT key; Task lesser, greater; };  // ascending puts `lesser` first

// Every key with two present values: ascending puts `lesser` first, descending
// `greater`, and none-last behaves as ascending.
TEST_F(SortCompare, PresentValuesInEachDirection) {
  const Pair pairs[] = {
      {"priority", kSortPriority, T().Priority(kImportanceLow), T().Priority(kImportanceHigh)},
      {"status", kSortStatus, T(), T().Done(Day(0))},
      {"subject", kSortSubject, T().Subject(L"apple"), T().Subject(L"Banana")},
      {"subject, case", kSortSubject, T().Subject(L"task"), T().Subject(L"Task")},
      {"start", kSortStartDate, T().Start(Day(1)), T().Start(Day(2))},
      {"due", kSortDueDate, T().Due(Day(-2)), T().Due(Day(5))},
      {"completed", kSortDateCompleted, T().Done(Day(-1)), T().Done(Day(0, 1))},
      {"reminder", kSortReminderTime, T().Reminder(Day(0, 9)), T().Reminder(Day(0, 15))},
      {"sensitivity", kSortSensitivity, T(), T().Private()},
      {"team", kSortTeamTask, T(), T().Team()},
      {"categories", kSortCategories, T().Categories(L"Home"), T().Categories(L"Work")},
  };
  for (const Pair& p : pairs) {
    for (SHORT d : {kAsc, kNoneLast}) {
      EXPECT_EQ(-1, Compare(p.lesser, p.greater, p.key, d)) << p.name << " direction " << d;
      EXPECT_EQ(1, Compare(p.greater, p.lesser, p.key, d)) << p.name << " direction " << d;
    }
    EXPECT_EQ(1, Compare(p.lesser, p.greater, p.key, kDesc)) << p.name;
    EXPECT_EQ(-1, Compare(p.greater, p.lesser, p.key, kDesc)) << p.name;
    for (SHORT d : {kAsc, kDesc, kNoneLast}) {
      EXPECT_EQ(0, Compare(p.lesser, p.lesser, p.key, d)) << p.name;
      EXPECT_EQ(0, Compare(p.greater, p.greater, p.key, d)) << p.name;
    }
  }
}

struct Missing { const char* name; SHORT key; Task without, with; };  // `without` lacks the value

// The task without a value: first ascending, last descending and none-last;
// two tasks without one are equal.
TEST_F(SortCompare, MissingRuleForEveryKeyThatCanMissAValue) {
  const Missing cases[] = {
      {"subject", kSortSubject, T(), T().Subject(L"B")},
      {"categories", kSortCategories, T(), T().Categories(L"Work")},
      {"start", kSortStartDate, T().Due(Day(1)), T().Start(Day(-100))},
      {"due", kSortDueDate, T().Start(Day(1)), T().Due(Day(-100))},
      {"due, against a reminder only", kSortDueDate, T(), T().Reminder(Day(3, 9))},
      {"completed, open", kSortDateCompleted, T().Due(Day(0)), T().Done(Day(-100))},
      {"completed, no date", kSortDateCompleted, T().Done(kNoDate), T().Done(Day(-100))},
      {"reminder", kSortReminderTime, T().Due(Day(0)), T().Reminder(Day(-100))},
  };
  struct Expect { SHORT direction; int without_vs_with; } expects[] = {
      {kAsc, -1}, {kDesc, 1}, {kNoneLast, 1}};
  for (const Missing& c : cases) {
    for (const Expect& e : expects) {
      EXPECT_EQ(e.without_vs_with, Compare(c.without, c.with, c.key, e.direction))
          << c.name << " direction " << e.direction;
      EXPECT_EQ(-e.without_vs_with, Compare(c.with, c.without, c.key, e.direction))
          << c.name << " direction " << e.direction;
      EXPECT_EQ(0, Compare(c.without, c.without, c.key, e.direction)) << c.name;
    }
  }
}

TEST_F(SortCompare, ReminderRefinesTheDayOfStartAndDue) {
  const Task at9 = T().Due(Day(2)).Reminder(Day(2, 9));
  const Task at15 = T().Due(Day(2)).Reminder(Day(2, 15));
  const Task plain = T().Due(Day(2));
  EXPECT_EQ(-1, Compare(at9, at15, kSortDueDate, kAsc));
  EXPECT_EQ(-1, Compare(plain, at9, kSortDueDate, kAsc));
  EXPECT_EQ(-1, Compare(plain, at15, kSortDueDate, kAsc));

  struct Case { const char* name; Task task; DATE start; DATE due; } cases[] = {
      {"no reminder", T().Start(Day(1)).Due(Day(2)), Day(1), Day(2)},
      {"reminder on the due day", T().Start(Day(1)).Due(Day(2)).Reminder(Day(2, 8)), Day(1), Day(2, 8)},
      {"reminder on the start day", T().Start(Day(1)).Due(Day(2)).Reminder(Day(1, 8)), Day(1, 8), Day(2)},
      {"reminder on another day", T().Start(Day(1)).Due(Day(4)).Reminder(Day(3, 8)), Day(1), Day(4)},
      {"only a reminder", T().Reminder(Day(3, 8)), kNoDate, Day(3, 8)},
      {"reminder flag off", [] {
         Task t = T().Due(Day(2)).Reminder(Day(2, 8));
         t.reminder_set = 0;
         return t;
       }(),
       kNoDate, Day(2)},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(c.start, StartSortDate(c.task)) << c.name;
    EXPECT_EQ(c.due, DueSortDate(c.task)) << c.name;
  }
  // A task with only a reminder sorts by Due Date at its reminder time.
  EXPECT_EQ(1, Compare(T().Reminder(Day(2, 10)), at9, kSortDueDate, kAsc));
}

TEST_F(SortCompare, NoneKeyAndUnknownKeysOrDirectionsAreEqual) {
  const Task a = T().Subject(L"a").Priority(0).Due(Day(1));
  const Task b = T().Subject(L"b").Priority(2).Due(Day(2)).Done(Day(0));
  for (SHORT key : {SHORT{0}, SHORT{11}, SHORT{-1}, SHORT{300}})
    EXPECT_EQ(0, Compare(a, b, key, kAsc)) << key;
  for (SHORT direction : {SHORT{3}, SHORT{-1}, SHORT{255}}) {
    for (SHORT key = 1; key <= kLastSortKey; ++key)
      EXPECT_EQ(0, Compare(a, b, key, direction)) << key << " " << direction;
  }
}

TEST_F(SortCompare, DefaultDirections) {
  const SHORT expected[] = {1, 1, 0, 0, 1, 1, 1, 1, 1, 1, 0};
  for (SHORT key = 0; key <= kLastSortKey; ++key)
    EXPECT_EQ(expected[key], DefaultSortDirection(key)) << key;
  EXPECT_EQ(0, DefaultSortDirection(11));
  EXPECT_EQ(491u, SortDirectionText(0));
  EXPECT_EQ(493u, SortDirectionText(1));
  EXPECT_EQ(492u, SortDirectionText(2));
}

}  // namespace
}  // namespace velmo
