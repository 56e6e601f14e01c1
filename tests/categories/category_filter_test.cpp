#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "categories/category_filter.h"
#include "categories/category_state.h"
#include "categories/filter_menu.h"
#include "categories/gather_categories.h"
#include "platform/beep.h"

namespace velmo {
namespace {

TaskTable MakeTasks(std::initializer_list<const wchar_t*> categories) {
  TaskTable tasks;
  CEOID oid = 100;
  for (const wchar_t* c : categories) {
    auto task = std::make_unique<Task>();
    task->oid = oid++;
    task->categories = c;
    tasks.push_back(std::move(task));
  }
  return tasks;
}

int CountShown(const TaskTable& tasks) {
  int shown = 0;
  for (const auto& t : tasks) shown += TaskPassesFilter(*t);
  return shown;
}

TEST(CategoryFilter, UnionOfItsCategoriesCaseInsensitive) {
  // A null task has no categories value.
  struct Case { const wchar_t* filter; const wchar_t* task; bool shown; } cases[] = {
      {L"", nullptr, true},          {L"", L"x", true},
      {L"<NoCat>", L"", true},       {L"<NoCat>", nullptr, false},
      {L"Work", nullptr, false},     {L"Work", L"", false},
      {L"Work", L"home, WORK", true}, {L"Work,Home", L"home", true},
      {L"Work", L"Workshop", false}, {L"Work", L"a,,b", false},
      {L"<NoCat>", L"a,,b", true},   {L"<NoCat>", L"a, b", false},
      {L"<nocat>", L"", false},      {L"<nocat>", L"<NOCAT>", true},
  };
  for (const Case& c : cases) {
    CategoryList filter;
    ParseCategories(filter, c.filter, InFilter, true);
    const auto value = c.task ? std::optional<std::wstring_view>(c.task) : std::nullopt;
    EXPECT_EQ(CategoriesPassFilter(filter, value), c.shown)
        << "filter '" << c.filter << "' task '" << (c.task ? c.task : L"(none)") << "'";
  }
}

TEST(CategoryFilter, ATaskKeepsOnlyItsFirst384Categories) {
  std::wstring many;
  for (int i = 0; i < 400; ++i) many += L"c" + std::to_wstring(1000 + i) + L",";
  many.pop_back();
  CategoryList filter;
  AddCategory(filter, L"c1383", InFilter, kAddCategoryMerge);
  EXPECT_TRUE(CategoriesPassFilter(filter, many));
  FreeCategoryList(filter);
  AddCategory(filter, L"C1384", InFilter, kAddCategoryMerge);
  const unsigned beeps = platform::BeepCount();
  EXPECT_FALSE(CategoriesPassFilter(filter, many));  // the 385th name was dropped
  EXPECT_EQ(platform::BeepCount(), beeps + 16);
}

TEST(CategoryFilter, MarkCategoryUseRecomputesLoadedAndFilterMarks) {
  InitCategories(0, L"Old", L"");
  TaskTable tasks = MakeTasks({L"b, A", L"", L"gone"});
  tasks[2]->oid = 0;  // a freed slot counts for nothing
  MarkCategoryUse(tasks);
  std::map<std::wstring, WORD> marks;
  for (const CategoryEntry& e : CategoryCatalogue().entries) marks[e.name] = e.marks;
  EXPECT_EQ(marks, (std::map<std::wstring, WORD>{
                       {L"", Builtin | InLoadedTasks}, {L"A", InLoadedTasks},
                       {L"b", InLoadedTasks}, {L"Old", InFilter}}));
  // Entries stay, marks go, when the tasks and filter no longer use them.
  ChooseFilterCommand(kCmdAllCategories, false);
  MarkCategoryUse(MakeTasks({L"b"}));
  marks.clear();
  for (const CategoryEntry& e : CategoryCatalogue().entries) marks[e.name] = e.marks;
  EXPECT_EQ(marks, (std::map<std::wstring, WORD>{
                       {L"", Builtin}, {L"A", 0}, {L"b", InLoadedTasks}, {L"Old", 0}}));
}

TEST(CategoryFilter, GatherAddsTheOtherDatabasesCategories) {
  // The store's reader over two plain lists of categories values.
  const std::map<OtherDatabase, std::vector<std::wstring>> databases = {
      {OtherDatabase::kContacts, {L"Family, Friends", L"", L"friends"}},
      {OtherDatabase::kAppointments, {L"Work", L"Family"}}};
  const CategoriesSource reader = [&](OtherDatabase which,
                                      const std::function<void(std::wstring_view)>& each) {
    for (const std::wstring& value : databases.at(which)) each(value);
    return true;
  };
  InitCategories(0, L"", L"");
  SetCategoriesSource(reader);
  GatherDatabaseCategories(OtherDatabase::kContacts);
  GatherDatabaseCategories(OtherDatabase::kAppointments);
  SetCategoriesSource(nullptr);
  GatherDatabaseCategories(OtherDatabase::kAppointments);  // no reader: nothing, no crash
  std::map<std::wstring, WORD> marks;
  for (const CategoryEntry& e : CategoryCatalogue().entries) marks[e.name] = e.marks;
  EXPECT_EQ(marks, (std::map<std::wstring, WORD>{{L"", Builtin | InContacts},
                                                 {L"Family", InContacts | InAppointments},
                                                 {L"Friends", InContacts},
                                                 {L"Work", InAppointments}}));

  CategoryList list;
  GatherDatabaseCategories(
      OtherDatabase::kContacts,
      [](OtherDatabase, const std::function<void(std::wstring_view)>&) { return false; }, list);
  EXPECT_TRUE(list.empty());  // a database that does not open contributes nothing
}

struct MenuFixture : ::testing::Test {
  // Categories a, b, c, d are used by tasks; "q" only by contacts (no menu item).
  void SetUp() override {
    InitCategories(0, L"", L"");
    tasks = MakeTasks({L"a", L"b", L"c,a", L"d"});
    AddCategory(CategoryCatalogue(), L"q", InContacts, kAddCategoryMerge);
    RebuildFilterMenu(tasks);
  }
  int Rebuild() {
    ++rebuilds;
    RebuildFilterMenu(tasks);
    return CountShown(tasks);
  }
  std::wstring Step(UINT command) {
    StepCategoryFilter(command, [this] { return Rebuild(); });
    return CurrentFilterText();
  }
  TaskTable tasks;
  int rebuilds = 0;
};

TEST_F(MenuFixture, ItemsFollowTheCatalogueAndTheChecksTheFilter) {
  AddCategory(CategoryFilterList(), L"B", InFilter, kAddCategoryMerge);
  AddCategory(CategoryFilterList(), L"zz", InFilter, kAddCategoryMerge);
  tasks.push_back(std::move(MakeTasks({L""})[0]));
  const FilterMenu& menu = RebuildFilterMenu(tasks);
  std::vector<std::tuple<UINT, std::wstring, bool>> items;
  for (const FilterMenuItem& i : menu.category_items) items.emplace_back(i.command, i.text, i.checked);
  EXPECT_EQ(items, (std::vector<std::tuple<UINT, std::wstring, bool>>{
                       {48002, L"No Category", false}, {48003, L"a", false}, {48004, L"b", true},
                       {48005, L"c", false}, {48006, L"d", false}, {48007, L"zz", true}}));
  EXPECT_FALSE(menu.all_categories_checked);
  EXPECT_EQ(menu.next_command, 48008u);
  EXPECT_EQ(CategoryCatalogue().entries[FindCategory(CategoryCatalogue(), L"q")].menu_command, 0u);
}

TEST_F(MenuFixture, ChoosingAnItemOrAllCategories) {
  EXPECT_TRUE(CurrentFilterMenu().all_categories_checked);
  EXPECT_FALSE(ChooseFilterCommand(kCmdAllCategories, false));  // nothing to undo
  EXPECT_TRUE(ChooseFilterCommand(kCmdAllCategories, true));    // a shortcut always rebuilds
  EXPECT_TRUE(ChooseFilterCommand(48003, false));               // a 48002, b 48003
  EXPECT_EQ(CurrentFilterText(), L"b");
  EXPECT_EQ(CategoryFilterList().entries[0].marks, InFilter);
  EXPECT_FALSE(ChooseFilterCommand(48999, false));  // no item of that command
  EXPECT_EQ(CurrentFilterText(), L"b");
  EXPECT_TRUE(ChooseFilterCommand(kCmdAllCategories, false));
  EXPECT_EQ(CurrentFilterText(), L"");
  ApplyMultipleCategoriesResult(L"a,d");
  EXPECT_EQ(CategoryFilterList().count(), 2);
  EXPECT_EQ(CountShown(tasks), 3);
}

TEST_F(MenuFixture, SteppingCyclesThroughTheMenuCategories) {
  // No Category has no item (no task lacks categories), so it is passed over.
  const std::vector<std::wstring> forward = {L"a", L"b", L"c", L"d", L"", L"a"};
  for (const std::wstring& expected : forward) EXPECT_EQ(Step(kCmdFilterNext), expected);
  ChooseFilterCommand(kCmdAllCategories, true);
  RebuildFilterMenu(tasks);
  const std::vector<std::wstring> backward = {L"d", L"c", L"b", L"a", L"", L"d"};
  for (const std::wstring& expected : backward) EXPECT_EQ(Step(kCmdFilterPrevious), expected);
  EXPECT_EQ(rebuilds, 12);
}

TEST_F(MenuFixture, SkipEmptyStepsOverCategoriesWithoutTasks) {
  // "a" and "c" keep their items through the filter only; no task uses them.
  ApplyMultipleCategoriesResult(L"a,c");
  tasks = MakeTasks({L"b", L"d"});
  RebuildFilterMenu(tasks);
  ChooseFilterCommand(kCmdAllCategories, true);
  RebuildFilterMenu(tasks);  // now only b and d have items
  EXPECT_EQ(Step(kCmdFilterNextSkipEmpty), L"b");
  EXPECT_EQ(Step(kCmdFilterPreviousSkipEmpty), L"");  // nothing before b: All Categories
  EXPECT_EQ(Step(kCmdFilterPreviousSkipEmpty), L"d");

  // Backward through a menu built for a..d when only "a" still has a task.
  ChooseFilterCommand(kCmdAllCategories, true);
  tasks = MakeTasks({L"a", L"b", L"c", L"d"});
  RebuildFilterMenu(tasks);
  tasks = MakeTasks({L"a"});
  EXPECT_EQ(Step(kCmdFilterPreviousSkipEmpty), L"a");
}

TEST_F(MenuFixture, SkipEmptyPassesEmptyCategoriesWhereThePlainStepStops) {
  // Tasks change behind a menu built for a, b, c, d: only "d" still has a task.
  tasks = MakeTasks({L"d"});
  EXPECT_EQ(Step(kCmdFilterNext), L"a");  // the plain step stops on an empty category
  ChooseFilterCommand(kCmdAllCategories, true);
  tasks = MakeTasks({L"a", L"b", L"c", L"d"});
  RebuildFilterMenu(tasks);
  tasks = MakeTasks({L"d"});
  rebuilds = 0;
  EXPECT_EQ(Step(kCmdFilterNextSkipEmpty), L"d");
  EXPECT_EQ(rebuilds, 2);  // a (empty), then d; the menu is rebuilt in between
}

}  // namespace
}  // namespace velmo
