// The text `velmo list VIEW` prints: the title line, then one line per task in
// the view's order, and the arguments that choose the view.
#include <gtest/gtest.h>

#include "categories/category_state.h"
#include "cli/list_output.h"
#include "cli/list_view_args.h"
#include "list/list_state.h"
#include "list/view_ids.h"
#include "tests/list/list_fixture.h"

namespace velmo {
namespace {

using testing::Day;
using testing::T;

class ListOutputTest : public testing::ListTest {};

TEST_F(ListOutputTest, TaskLineFields) {
  struct Case { Task task; const char* line; } cases[] = {
      {T().Oid(7), "7\t\t\t\t\t\tnormal\t"},
      {T().Oid(4294967295u).Subject(L"Pay rent").Start(Day(-2)).Due(Day(1)).Reminder(Day(1, 9, 5))
           .Priority(kImportanceHigh).Categories(L"Home,Money"),
       "4294967295\tPay rent\t2024-05-13\t2024-05-16\t2024-05-16T09:05\t\thigh\tHome,Money"},
      {T().Oid(9).Subject(L"Größe\tändern\r\nbald").Done(Day(0, 17)).Priority(kImportanceLow),
       "9\tGröße ändern  bald\t\t\t\t2024-05-15\tlow\t"},
      {[] {
         Task t = T().Oid(3).Reminder(Day(0, 8));
         t.reminder_set = 0;  // a reminder time without the flag is no reminder
         t.importance = 7;
         return t;
       }(),
       "3\t\t\t\t\t\t7\t"},
  };
  for (const Case& c : cases) EXPECT_EQ(c.line, cli::TaskLine(c.task));
}

TEST_F(ListOutputTest, ViewListingIsTheTitleThenTheRowsInOrder) {
  TaskTable table = testing::MakeTable({
      T().Subject(L"later").Due(Day(-1)).Categories(L"Work"),
      T().Subject(L"home").Due(Day(-3)).Categories(L"Home"),
      T().Subject(L"older").Due(Day(-5)).Categories(L"work"),
      T().Subject(L"future").Due(Day(4)).Categories(L"Work"),
  });
  SetView(kViewOverdue);
  SetCategoryFilter(L"Work");
  EXPECT_EQ(
      "Overdue [2] Work\n"
      "1000\tlater\t\t2024-05-14\t\t\tnormal\tWork\n"
      "1002\tolder\t\t2024-05-10\t\t\tnormal\twork\n", cli::ViewListing(table, Day(0, 12)));
  SetCategoryFilter(L"Garden");
  EXPECT_EQ("Overdue [0] Garden\n", cli::ViewListing(table, Day(0, 12)));
}

TEST(ListViewArgs, GoodAndBad) {
  struct Case { std::vector<const char*> argv; bool ok; UINT view; DATE at; const char* error; }
  cases[] = {
      {{"overdue"}, true, kViewOverdue, kNoDate, ""},
      {{"next", "--at", "2024-05-15"}, true, kViewNextDays, Day(0), ""},
      {{"today", "--at", "2024-05-15T23:59", "--filter", "Work"}, true, kViewToday, Day(0, 23, 59), ""},
      {{"search", "--search", "milk"}, true, kViewSearch, kNoDate, ""},
      {{}, false, 0, 0, "a view is needed"},
      {{"Overdue"}, false, 0, 0, "unknown view 'Overdue'"},
      {{"all", "--at"}, false, 0, 0, "'--at' needs a value"},
      {{"all", "--at", "2024-02-30"}, false, 0, 0, "bad date"},
      {{"all", "--at", "2024-5-15"}, false, 0, 0, "bad date"},
      {{"all", "--at", "2024-05-15T24:00"}, false, 0, 0, "bad date"},
      {{"all", "--at", "2024-+5-15"}, false, 0, 0, "bad date"},
      {{"all", "--sort", "x"}, false, 0, 0, "unknown option '--sort'"},
      {{"all", "--search", "x"}, false, 0, 0, "--search goes with the search view"},
  };
  for (const Case& c : cases) {
    std::vector<char*> argv;
    for (const char* a : c.argv) argv.push_back(const_cast<char*>(a));
    cli::ListViewArgs args;
    std::string error;
    const bool ok = cli::ParseListViewArgs(static_cast<int>(argv.size()), argv.data(), &args, &error);
    ASSERT_EQ(c.ok, ok) << (c.argv.empty() ? "" : c.argv[0]) << " " << error;
    if (ok) {
      EXPECT_EQ(c.view, args.view);
      EXPECT_EQ(c.at, args.at);
    } else {
      EXPECT_NE(std::string::npos, error.find(c.error)) << error;
    }
  }
  cli::ListViewArgs args;
  std::string error;
  const char* argv[] = {"all", "--filter", "Größe", "--filter", ""};
  ASSERT_TRUE(cli::ParseListViewArgs(5, const_cast<char**>(argv), &args, &error));
  EXPECT_EQ(L"", args.filter.value());
}

}  // namespace
}  // namespace velmo
