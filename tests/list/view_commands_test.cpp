// Switching views: stepping with and without skipping, the default view, Set as
// Default and the at-default state that the menu shows.
#include <gtest/gtest.h>

#include <set>

#include "categories/category_state.h"
#include "list/list_state.h"
#include "list/view_commands.h"
#include "list/view_ids.h"
#include "tests/list/list_fixture.h"

namespace velmo {
namespace {

class ViewCommandsTest : public testing::ListTest {
 protected:
  static ViewEmptyTest EmptyViews(std::set<UINT> empty) {
    return [empty](UINT view) { return empty.count(view) != 0; };
  }
  static ViewEmptyTest NoneEmpty() { return EmptyViews({}); }
};

TEST_F(ViewCommandsTest, StepsWithoutSkipping) {
  struct Case { UINT from, next, previous; } cases[] = {
      {kViewAllTasks, kViewOverdue, kViewUndated}, {kViewOverdue, kViewActive, kViewAllTasks},
      {kViewToday, kViewNextDays, kViewCompleted}, {kViewUndated, kViewAllTasks, kViewFuture},
      {kViewSearch, kViewAllTasks, kViewUndated},  {40099, kViewAllTasks, kViewUndated},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(c.next, NextView(c.from)) << c.from;
    EXPECT_EQ(c.previous, PreviousView(c.from)) << c.from;
    CurrentListState().view = c.from;
    RunViewCommand(kCmdNextView, EmptyViews({c.next}));  // no skipping: lands anyway
    EXPECT_EQ(c.next, CurrentView()) << c.from;
    CurrentListState().view = c.from;
    RunViewCommand(kCmdPreviousView, NoneEmpty());
    EXPECT_EQ(c.previous, CurrentView()) << c.from;
  }
}

TEST_F(ViewCommandsTest, SkipsEmptyViewsAndStopsAtAllTasks) {
  const std::set<UINT> kEveryView = {40050, 40051, 40052, 40053, 40054, 40055, 40056, 40057};
  struct Case { UINT from; UINT command; std::set<UINT> empty; UINT to; } cases[] = {
      {kViewAllTasks, kCmdNextViewSkip, {kViewOverdue, kViewActive}, kViewCompleted},
      {kViewToday, kCmdNextViewSkip, {kViewNextDays, kViewFuture, kViewUndated}, kViewAllTasks},
      {kViewToday, kCmdPreviousViewSkip, {kViewCompleted, kViewActive}, kViewOverdue},
      {kViewAllTasks, kCmdPreviousViewSkip, {kViewUndated}, kViewFuture},
      {kViewSearch, kCmdPreviousViewSkip, {kViewUndated, kViewFuture}, kViewNextDays},
      {kViewSearch, kCmdNextViewSkip, {kViewAllTasks}, kViewAllTasks},
      // Every view empty: both directions end on All Tasks.
      {kViewOverdue, kCmdNextViewSkip, kEveryView, kViewAllTasks},
      {kViewOverdue, kCmdPreviousViewSkip, kEveryView, kViewAllTasks},
      {kViewAllTasks, kCmdNextView, {kViewOverdue}, kViewOverdue},
  };
  for (const Case& c : cases) {
    CurrentListState().view = c.from;
    const DWORD effects = RunViewCommand(c.command, EmptyViews(c.empty));
    EXPECT_EQ(c.to, CurrentView()) << c.from << " " << c.command;
    EXPECT_EQ(c.from != c.to, (effects & kViewEffectRebuildList) != 0) << c.from;
  }
}

TEST_F(ViewCommandsTest, ChoosingAViewAndTheCurrentOne) {
  EXPECT_EQ(kViewEffectRebuildList | kViewEffectMenuMarks, RunViewCommand(kViewToday, nullptr));
  EXPECT_EQ(kViewToday, CurrentView());
  EXPECT_EQ(kViewEffectNone, RunViewCommand(kViewToday, nullptr));
  EXPECT_EQ(kViewEffectNone, RunViewCommand(kViewSearch, nullptr));  // the dialog's business
  EXPECT_EQ(kViewToday, CurrentView());
  EXPECT_FALSE(IsViewCommand(kViewSearch));
  EXPECT_TRUE(IsViewCommand(kCmdPreviousViewSkip));
  EXPECT_FALSE(IsViewCommand(40065));
}

TEST_F(ViewCommandsTest, AtDefaultStateFollowsViewAndFilterText) {
  Settings& s = CurrentSettings();
  s.selected_view = kViewOverdue;
  s.filter_categories = L"Work";
  struct Case { UINT view; const wchar_t* filter; bool at_default, checked, enabled; } cases[] = {
      {kViewOverdue, L"Work", true, true, false},
      {kViewOverdue, L"work", false, false, true},  // the text compares exactly
      {kViewOverdue, L"", false, false, true},      {kViewToday, L"Work", false, false, true},
      {kViewSearch, L"Work", false, false, false},
  };
  for (const Case& c : cases) {
    CurrentListState().view = c.view;
    CurrentFilterText() = c.filter;
    const DefaultViewItems items = UpdateAtDefaultState();
    EXPECT_EQ(c.at_default, CurrentListState().at_default) << c.view << " " << c.filter;
    EXPECT_EQ(c.checked, items.default_view_checked) << c.view << " " << c.filter;
    EXPECT_EQ(c.enabled, items.set_as_default_enabled) << c.view << " " << c.filter;
  }
  // Even a search stored as the default view is not at the default.
  s.selected_view = kViewSearch;
  s.filter_categories = L"";
  CurrentListState().view = kViewSearch;
  CurrentFilterText() = L"";
  EXPECT_FALSE(UpdateAtDefaultState().default_view_checked);
}

TEST_F(ViewCommandsTest, DefaultViewTakesTheDefaultFilterInItsOwnSpelling) {
  Settings& s = CurrentSettings();
  s.selected_view = kViewActive;
  s.filter_categories = L"work, Home";
  const DWORD effects = RunViewCommand(kCmdDefaultView, nullptr);
  EXPECT_EQ(kViewEffectRebuildList | kViewEffectRebuildFilterMenu | kViewEffectMenuMarks, effects);
  EXPECT_EQ(kViewActive, CurrentView());
  EXPECT_EQ(L"Home,work", CurrentFilterText());
  EXPECT_EQ(2, CategoryFilterList().count());
  // The normalised text differs from the stored one: not at the default, and the
  // command runs again rather than doing nothing.
  EXPECT_FALSE(CurrentListState().at_default);

  // Once the stored text is the normalised one, the view is at the default and
  // the command does nothing.
  s.filter_categories = L"Home,work";
  EXPECT_TRUE(UpdateAtDefaultState().default_view_checked);
  EXPECT_EQ(kViewEffectNone, RunViewCommand(kCmdDefaultView, nullptr));
  // From elsewhere it brings back both.
  RunViewCommand(kCmdViewAllCategories, nullptr);
  EXPECT_NE(kViewEffectNone, RunViewCommand(kCmdDefaultView, nullptr));
  EXPECT_EQ(kViewActive, CurrentView());
  EXPECT_EQ(L"Home,work", CurrentFilterText());
  EXPECT_TRUE(CurrentListState().at_default);
}

TEST_F(ViewCommandsTest, AllCategoriesGoesToAllTasksWithoutAFilter) {
  EXPECT_EQ(kViewEffectNone, RunViewCommand(kCmdViewAllCategories, nullptr));
  SetCategoryFilter(L"Work");
  EXPECT_NE(kViewEffectNone, RunViewCommand(kCmdViewAllCategories, nullptr));
  EXPECT_EQ(L"", CurrentFilterText());
  EXPECT_TRUE(CategoryFilterList().empty());

  CurrentListState().view = kViewFuture;
  EXPECT_NE(kViewEffectNone, RunViewCommand(kCmdViewAllCategories, nullptr));
  EXPECT_EQ(kViewAllTasks, CurrentView());
  EXPECT_TRUE(CurrentListState().at_default);
}

TEST_F(ViewCommandsTest, SetAsDefaultSavesViewAndFilterButNeverASearch) {
  RunViewCommand(kViewUndated, nullptr);
  SetCategoryFilter(L"Home");
  EXPECT_EQ(kViewEffectMenuMarks, RunViewCommand(kCmdSetAsDefault, nullptr));
  EXPECT_TRUE(CurrentListState().at_default);

  Settings stored;
  LoadSettings(stored);
  EXPECT_EQ(kViewUndated, stored.selected_view);
  EXPECT_EQ(L"Home", stored.filter_categories);

  ApplySearch({L"milk", true, false, true});
  EXPECT_EQ(kViewEffectNone, RunViewCommand(kCmdSetAsDefault, nullptr));
  EXPECT_EQ(kViewUndated, CurrentSettings().selected_view);
}

TEST_F(ViewCommandsTest, SearchKeepsItsTextAndSwitches) {
  CurrentListState().primary = {9, 9};
  const DWORD effects = ApplySearch({std::wstring(130, L'a'), false, true, true});
  EXPECT_EQ(kViewEffectRebuildFilterMenu | kViewEffectReloadTasks | kViewEffectMenuMarks, effects);
  const Settings& s = CurrentSettings();
  EXPECT_EQ(std::wstring(100, L'a'), s.search);
  EXPECT_FALSE(s.search_subjects);
  EXPECT_TRUE(s.search_notes);
  EXPECT_TRUE(s.search_case_sensitive);
  EXPECT_EQ(kViewSearch, CurrentView());
  EXPECT_EQ(s.sort[ViewIndex(kViewSearch)][0], CurrentListState().primary);
  // Stepping on from a search goes to All Tasks.
  RunViewCommand(kCmdNextView, nullptr);
  EXPECT_EQ(kViewAllTasks, CurrentView());
}

}  // namespace
}  // namespace velmo
