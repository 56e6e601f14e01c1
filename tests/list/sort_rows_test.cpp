// The full row order: the current primary pair, the record's secondary and
// tertiary pairs, the tie-breakers a tertiary key brings, and which record a
// view uses.
#include <gtest/gtest.h>

#include "list/list_state.h"
#include "list/sort_rows.h"
#include "list/view_ids.h"
#include "tests/list/list_fixture.h"

namespace velmo {
namespace {

using testing::Day;
using testing::T;

class SortRowsTest : public testing::ListTest {
 protected:
  // Every view's record is `row`.
  static void SetAllRecords(const SortRow& row) {
    for (SortRow& r : CurrentSettings().sort) r = row;
    ReloadPrimarySortPair();
  }
};

TEST_F(SortRowsTest, TieBreakersOnlyWithATertiaryKey) {
  const Task a = T().Priority(1).Subject(L"Alpha");
  const Task b = T().Priority(1).Subject(L"Beta");
  struct Case { const char* name; SortRow record; int a_vs_b; } cases[] = {
      {"priority only: a tie stays a tie", {{{1, 1}, {0, 0}, {0, 0}}}, 0},
      {"secondary, no tertiary", {{{1, 1}, {9, 0}, {0, 0}}}, 0},
      {"any tertiary brings in Subject ascending", {{{1, 1}, {0, 0}, {8, 0}}}, -1},
      {"tertiary Subject descending decides first", {{{1, 1}, {0, 0}, {3, 1}}}, 1},
      {"a None primary is skipped", {{{0, 1}, {3, 1}, {0, 0}}}, 1},
      {"primary decides before the rest", {{{3, 1}, {3, 0}, {3, 0}}}, 1},
  };
  for (const Case& c : cases) {
    SetAllRecords(c.record);
    EXPECT_EQ(c.a_vs_b, CompareRows(a, b)) << c.name;
    EXPECT_EQ(-c.a_vs_b, CompareRows(b, a)) << c.name;
  }
}

TEST_F(SortRowsTest, TieBreakersGoSubjectThenStartThenDueDescending) {
  SetAllRecords({{{1, 1}, {0, 0}, {9, 0}}});
  // Same subject: the later start comes first.
  EXPECT_EQ(-1, CompareRows(T().Subject(L"x").Start(Day(3)), T().Subject(L"x").Start(Day(1))));
  // Same subject and start: the later due date comes first; none goes last.
  EXPECT_EQ(-1, CompareRows(T().Subject(L"x").Due(Day(3)), T().Subject(L"x").Due(Day(1))));
  EXPECT_EQ(1, CompareRows(T().Subject(L"x"), T().Subject(L"x").Due(Day(1))));
  // Everything the same: equal.
  EXPECT_EQ(0, CompareRows(T().Subject(L"x").Due(Day(1)), T().Subject(L"x").Due(Day(1))));
}

TEST_F(SortRowsTest, MultiSortPicksTheViewsRecordOrTheFirst) {
  Settings& s = CurrentSettings();
  s.sort[0] = {{{3, 0}, {0, 0}, {0, 0}}};                    // All Tasks: subject ascending
  s.sort[ViewIndex(kViewOverdue)] = {{{3, 1}, {0, 0}, {0, 0}}};  // Overdue: descending
  const Task a = T().Subject(L"a");
  const Task b = T().Subject(L"b");
  struct Case { DWORD multi_sort; int a_vs_b; } cases[] = {{1, 1}, {0, -1}, {2, -1}};
  for (const Case& c : cases) {
    s.multi_sort = c.multi_sort;
    CurrentListState().view = kViewAllTasks;
    SetView(kViewOverdue);
    EXPECT_EQ(c.a_vs_b, CompareRows(a, b)) << "MultiSort " << c.multi_sort;
    EXPECT_EQ(&SortRecordFor(kViewOverdue), c.multi_sort == 1 ? &s.sort[1] : &s.sort[0]);
  }
  // A view number out of range uses the first record.
  s.multi_sort = 1;
  EXPECT_EQ(&s.sort[0], &SortRecordFor(40099));
}

TEST_F(SortRowsTest, SortByLastsUntilTheNextChangeOfView) {
  Settings& s = CurrentSettings();
  s.multi_sort = 0;
  SetView(kViewOverdue);
  EXPECT_EQ((SortPair{2, 0}), CurrentListState().primary);  // record 0's primary
  EXPECT_EQ(39951u, CheckedSortByItem());
  EXPECT_EQ(0u, SortByCommandToRestore());

  EXPECT_FALSE(ChooseSortBy(39949));
  EXPECT_FALSE(ChooseSortBy(39960));
  ASSERT_TRUE(ChooseSortBy(39959));  // Categories, ascending by default
  EXPECT_EQ((SortPair{10, 0}), CurrentListState().primary);
  ASSERT_TRUE(ChooseSortBy(39953));  // Start Date, descending by default
  EXPECT_EQ((SortPair{4, 1}), CurrentListState().primary);
  EXPECT_EQ(39953u, CheckedSortByItem());
  EXPECT_EQ(39951u, SortByCommandToRestore());

  SetView(kViewToday);
  EXPECT_EQ((SortPair{2, 0}), CurrentListState().primary);
}

TEST_F(SortRowsTest, AppliedSettingsReloadThePrimaryPairOfTheRecordInUse) {
  SetView(kViewOverdue);
  ChooseSortBy(39950);
  const Settings before = CurrentSettings();
  Settings after = before;

  after.sort[ViewIndex(kViewToday)][0] = {3, 0};  // another view's record
  SortSettingsChange change = ApplySortSettings(before, after);
  EXPECT_FALSE(change.primary_reloaded);
  EXPECT_FALSE(change.resort);
  EXPECT_EQ((SortPair{1, 1}), CurrentListState().primary);

  after = before;
  after.sort[ViewIndex(kViewOverdue)][2] = {7, 2};  // the tertiary pair in use
  change = ApplySortSettings(before, after);
  EXPECT_FALSE(change.primary_reloaded);
  EXPECT_TRUE(change.resort);

  after.sort[ViewIndex(kViewOverdue)][0] = {6, 2};
  change = ApplySortSettings(before, after);
  EXPECT_TRUE(change.primary_reloaded);
  EXPECT_TRUE(change.resort);
  EXPECT_EQ((SortPair{6, 2}), CurrentListState().primary);
}

TEST_F(SortRowsTest, SortRowsKeepsTheOrderOfEqualRowsAndSurvivesUnknownKeys) {
  SetAllRecords({{{1, 1}, {0, 0}, {0, 0}}});
  TaskTable table = testing::MakeTable({T().Priority(0).Subject(L"first low"),
                                        T().Priority(2).Subject(L"high"),
                                        T().Priority(0).Subject(L"second low"),
                                        T().Priority(1).Subject(L"normal")});
  std::vector<const Task*> rows;
  for (const auto& t : table) rows.push_back(t.get());
  SortRows(rows);
  std::vector<std::wstring> subjects;
  for (const Task* t : rows) subjects.push_back(t->subject);
  EXPECT_EQ((std::vector<std::wstring>{L"high", L"normal", L"first low", L"second low"}), subjects);

  SetAllRecords({{{77, 9}, {65535, 0}, {12, 12}}});  // a record of nonsense: no order at all
  std::vector<const Task*> unchanged = rows;
  SortRows(rows);
  EXPECT_EQ(unchanged, rows);
}

TEST_F(SortRowsTest, KeysKeptBetweenSortsFollowTheLocale) {
  SetAllRecords({{{3, 0}, {0, 0}, {0, 0}}});
  TaskTable table = testing::MakeTable({T().Subject(L"zebra"), T().Subject(L"\u00F6l")});
  const auto first_subject = [&] {
    std::vector<const Task*> rows = {table[0].get(), table[1].get()};
    SortRows(rows);
    return rows[0]->subject;
  };
  {
    locale::ScopedLocale german("de_DE");
    EXPECT_EQ(L"\u00F6l", first_subject());  // ö sorts with o
    EXPECT_EQ(L"\u00F6l", first_subject());
  }
  locale::ScopedLocale swedish("sv_SE");
  EXPECT_EQ(L"zebra", first_subject());  // ö comes after z
}

}  // namespace
}  // namespace velmo
