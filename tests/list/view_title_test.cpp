// The list title of every view, with and without a filter, in both forms.
#include <gtest/gtest.h>

#include "categories/category_state.h"
#include "list/list_state.h"
#include "list/view_ids.h"
#include "list/view_title.h"
#include "tests/list/list_fixture.h"

namespace velmo {
namespace {

class ViewTitleTest : public testing::ListTest {};

TEST_F(ViewTitleTest, EveryViewInBothForms) {
  struct Case { UINT view; const wchar_t* filter; DWORD n_days, a_days; int rows, position;
                const wchar_t* title; } cases[] = {
      {kViewAllTasks, L"", 7, 7, 3, -1, L"Tasks [3]"},
      {kViewAllTasks, L"Work", 7, 7, 3, -1, L"Work [3]"},
      {kViewAllTasks, L"work,Home", 7, 7, 3, -1, L"Multiple Cat. [3]"},
      {kViewAllTasks, L"<NoCat>", 7, 7, 0, -1, L"No Category [0]"},
      {kViewAllTasks, L"", 7, 7, 12, 0, L"Tasks [1/12]"},
      {kViewOverdue, L"Work", 7, 7, 4, -1, L"Overdue [4] Work"},
      {kViewOverdue, L"Work", 7, 7, 12, 2, L"Overdue [3/12] Work"},
      {kViewOverdue, L"", 7, 7, 4, -1, L"Overdue [4] "},
      {kViewOverdue, L"Home,Work", 7, 7, 4, -1, L"Overdue [4] Multiple"},
      {kViewActive, L"", 7, 7, 5, -1, L"Active 7d [5] "},
      {kViewActive, L"", 7, 0, 5, -1, L"Active [5] "},
      {kViewActive, L"<NoCat>", 7, 2, 5, 4, L"Active 2d [5/5] No Category"},
      {kViewCompleted, L"Home", 7, 7, 0, -1, L"Completed [0] Home"},
      {kViewToday, L"", 7, 7, 2, -1, L"Today [2] "},
      {kViewNextDays, L"", 5, 7, 12, -1, L"5 Days [12] "},
      {kViewNextDays, L"Work", 1, 7, 2, -1, L"Tomorrow [2] Work"},
      {kViewNextDays, L"", 0, 7, 2, -1, L"Tomorrow [2] "},
      {kViewNextDays, L"a,b,c", 2, 7, 9, 8, L"2 Days [9/9] Multiple"},
      {kViewFuture, L"", 7, 7, 6, -1, L"Future [6] "},
      {kViewUndated, L"Work", 7, 7, 1, -1, L"Undated [1] Work"},
      {kViewSearch, L"", 7, 7, 8, -1, L"Search [8] "},
  };
  for (const Case& c : cases) {
    CurrentSettings().n_days = c.n_days;
    CurrentSettings().a_days = c.a_days;
    CurrentListState().view = c.view;
    SetCategoryFilter(c.filter);
    EXPECT_EQ(c.title, ListTitle(c.rows, c.position)) << c.view << " " << c.title;
  }
}

TEST_F(ViewTitleTest, ALongCategoryNameIsCutToTheTitleBuffer) {
  const std::wstring name(150, L'x');
  CurrentListState().view = kViewOverdue;
  SetCategoryFilter(name);
  const std::wstring title = ListTitle(4);
  EXPECT_EQ(kTitleMaxChars, title.size());
  EXPECT_EQ(L"Overdue [4] xxx", title.substr(0, 15));
}

}  // namespace
}  // namespace velmo
