// The program-wide test: the category filter in every view, the reference time
// taken from the clock, and the rows of a view in order.
#include <gtest/gtest.h>

#include "categories/category_state.h"
#include "list/belongs.h"
#include "list/list_state.h"
#include "list/view_ids.h"
#include "list/view_rows.h"
#include "platform/clock.h"
#include "tests/list/list_fixture.h"

namespace velmo {
namespace {

using testing::Day;
using testing::T;

class BelongsTest : public testing::ListTest {};

TEST_F(BelongsTest, TheFilterHidesTasksInEveryView) {
  const Task work = T().Categories(L"Errands, Work").Due(Day(-1));
  const Task none = T().Due(Day(-1));
  struct Case { const wchar_t* filter; bool work_shown, none_shown; } cases[] = {
      {L"", true, true},               {L"work", true, false},          {L"Home", false, false},
      {L"<NoCat>", false, true},       {L"Home,<NoCat>", false, true},  {L"errands,Home", true, false},
  };
  for (UINT view : {kViewAllTasks, kViewOverdue, kViewActive}) {
    CurrentListState().view = view;
    for (const Case& c : cases) {
      SetCategoryFilter(c.filter);
      EXPECT_EQ(c.work_shown, Belongs(work, Day(0, 12))) << view << " " << c.filter;
      EXPECT_EQ(c.none_shown, Belongs(none, Day(0, 12))) << view << " " << c.filter;
    }
  }
  // A filtered task stays out of a view that would show anything.
  SetCategoryFilter(L"Home");
  EXPECT_FALSE(BelongsToView(work, Day(0, 12), 40099));
}

TEST_F(BelongsTest, NoReferenceTimeTakesTheClock) {
  CurrentListState().view = kViewOverdue;
  const Task due = T().Due(Day(0));
  {
    ScopedClock clock(Day(0, 23, 59));
    EXPECT_FALSE(Belongs(due, kNoDate));
  }
  {
    ScopedClock clock(Day(1, 0, 0));
    EXPECT_TRUE(Belongs(due, kNoDate));
  }
}

TEST_F(BelongsTest, ViewRowsAreTheBelongingTasksInSortOrder) {
  TaskTable table = testing::MakeTable({
      T().Subject(L"b late").Due(Day(-1)).Reminder(Day(-1, 15)),
      T().Subject(L"undated"),
      T().Subject(L"a early").Due(Day(-1)).Reminder(Day(-1, 9)),
      T().Subject(L"c old").Due(Day(-9)),
      T().Subject(L"done").Due(Day(-9)).Done(Day(-2)),
  });
  table.push_back(nullptr);
  table[1]->oid = 0;  // a freed slot is never listed
  CurrentListState().view = kViewAllTasks;
  EXPECT_TRUE(ViewIsEmpty(table, kViewUndated, Day(0)));  // the freed slot does not count
  table[1]->oid = 5;
  SetView(kViewOverdue);  // Due Date descending, Priority, Subject
  std::vector<std::wstring> subjects;
  for (const Task* t : SortedViewRows(table, Day(0, 12))) subjects.push_back(t->subject);
  EXPECT_EQ((std::vector<std::wstring>{L"b late", L"a early", L"c old"}), subjects);
  EXPECT_TRUE(ViewIsEmpty(table, kViewToday, Day(0, 12)));
  EXPECT_FALSE(ViewIsEmpty(table, kViewCompleted, Day(0, 12)));
  EXPECT_EQ(3u, ViewRows(table, Day(0, 12)).size());
}

}  // namespace
}  // namespace velmo
