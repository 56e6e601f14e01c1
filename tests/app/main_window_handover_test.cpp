#include "app/dismiss_dialogs.h"
#include "app/handover_requests.h"
#include "categories/category_state.h"
#include "list/list_state.h"
#include "list/view_ids.h"
#include "platform/ui/message_box.h"
#include "tests/app/main_window_fixture.h"

namespace velmo::testing {
namespace {

// Tasks 1000 "Open" (Work), 1001 "Done" (Home, completed), 1002 "Home" (Home).
class HandoverTest : public MainWindowTest {
 protected:
  void SetUp() override {
    MainWindowTest::SetUp();
    Load({T().Subject(L"Open").Categories(L"Work"),
          T().Subject(L"Done").Categories(L"Home").Done(Day(0)),
          T().Subject(L"Home").Categories(L"Home")});
  }
  void HandOver(DWORD code, CEOID oid = 0) {
    app::CarryOutHandover(app::HandoverRequest{code, oid});
    Pump();
  }
  void Start(UINT view, const wchar_t* filter) {
    SetView(view);
    SetCategoryFilter(filter);
    app::RefreshAfterViewChange(true);
  }
};

TEST_F(HandoverTest, SelectTriesTheViewThenTheDefaultThenAllTasks) {
  struct Case { const wchar_t* name; UINT view; const wchar_t* filter; const wchar_t* default_filter;
                CEOID oid; UINT view_after; const wchar_t* filter_after; CEOID selected; } const cases[] = {
      {L"listed", kViewAllTasks, L"", L"", 1002, kViewAllTasks, L"", 1002},
      {L"unknown task", kViewOverdue, L"Home", L"", 4242, kViewOverdue, L"Home", 0},
      {L"the default view shows it", kViewOverdue, L"Home", L"", 1000, kViewAllTasks, L"", 1000},
      {L"hidden by the default filter", kViewOverdue, L"", L"Home", 1000, kViewAllTasks, L"", 1000},
      {L"completed, not in the default", kViewActive, L"", L"Work", 1001, kViewAllTasks, L"", 1001},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    CurrentSettings().filter_categories = c.default_filter;
    Start(c.view, c.filter);
    HandOver(app::kHandoverSelect, c.oid);
    EXPECT_EQ(CurrentView(), c.view_after);
    EXPECT_EQ(CurrentFilterText(), c.filter_after);
    EXPECT_EQ(c.selected ? Selected() : 0u, c.selected);
  }
}

TEST_F(HandoverTest, SelectFailsQuietlyWhenEvenAllTasksHidesTheTask) {
  CurrentSettings().show_completed = 0;
  Start(kViewAllTasks, L"");
  HandOver(app::kHandoverSelect, 1001);
  EXPECT_EQ(CurrentView(), kViewAllTasks);
  EXPECT_NE(Selected(), 1001u);
}

TEST_F(HandoverTest, TodayKeepsTheFilterAndDefaultViewResetsIt) {
  Start(kViewAllTasks, L"Home");
  HandOver(app::kHandoverToday);
  EXPECT_EQ(CurrentView(), kViewToday);
  EXPECT_EQ(CurrentFilterText(), L"Home");
  EXPECT_EQ(Title(), L"Today [1] Home");
  HandOver(app::kHandoverDefaultView);
  EXPECT_EQ(CurrentView(), kViewAllTasks);
  EXPECT_EQ(CurrentFilterText(), L"");
  Start(kViewOverdue, L"");
  HandOver(app::kHandoverToday);
  EXPECT_EQ(Title(), L"Today [1]");
}

TEST_F(HandoverTest, EveryCodeButAfterSyncDismissesAnOpenMessageBox) {
  for (DWORD code : {app::kHandoverAfterSync, app::kHandoverDefaultView}) {
    int answer = -1;
    screen_.AddIdleStep([&, code] {
      HandOver(code);
      if (code == app::kHandoverAfterSync) {
        EXPECT_TRUE(screen_.Contains(L"Question")) << "code 100 leaves it open";
        app::DismissOpenDialogs(window_);
      }
    });
    answer = MessageBoxW(window_, L"Question", L"Velmo ToDo List", MB_YESNO);
    EXPECT_EQ(answer, IDNO) << code;
  }
}

}  // namespace
}  // namespace velmo::testing
