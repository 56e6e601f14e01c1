#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "categories/category_list.h"
#include "categories/category_names.h"
#include "categories/category_state.h"
#include "platform/beep.h"
#include "settings/settings.h"

namespace velmo {
namespace {

std::vector<std::wstring> Names(const CategoryList& list) {
  std::vector<std::wstring> names;
  for (const CategoryEntry& e : list.entries) names.push_back(e.name);
  return names;
}

TEST(CategoryNames, CompareIgnoresCaseAndOrdersByLowerCase) {
  struct Case { const wchar_t* a; const wchar_t* b; int sign; } cases[] = {
      {L"Work", L"work", 0},   {L"ÄRGER", L"ärger", 0}, {L"a", L"B", -1},
      {L"_x", L"A", -1},  // both lowered: "_" (0x5F) comes before "a" (0x61)
      {L"", L"a", -1},         {L"ab", L"a", 1},        {L"<NoCat>", L"<nocat>", 0},
  };
  for (const Case& c : cases) {
    const int r = CompareCategoryNames(c.a, c.b);
    EXPECT_EQ((r > 0) - (r < 0), c.sign) << c.a << " vs " << c.b;
  }
}

TEST(ParseCategories, SpellingOrderAndNoCategory) {
  struct Case { const wchar_t* text; bool skip_empty; std::vector<std::wstring> names; } cases[] = {
      {L" Work ,home", true, {L"home", L"Work"}},    {L"<NoCat>", true, {L""}},
      {L" <NoCat> ", true, {L""}},                   {L"<nocat>", true, {L"<nocat>"}},
      {L"a,,b", true, {L"", L"a", L"b"}},            {L"a,", true, {L"", L"a"}},
      {L"", true, {}},                               {L"", false, {L""}},
      {L"b, a,  c", true, {L"a", L"b", L"c"}},       {L"Work,work,WORK", true, {L"Work"}},
      {L"x,\tY\u00A0,z", true, {L"x", L"Y", L"z"}},
      {L"Zeta,alpha,Beta,<NoCat>", true, {L"", L"alpha", L"Beta", L"Zeta"}},
  };
  for (const Case& c : cases) {
    CategoryList list;
    ParseCategories(list, c.text, InLoadedTasks, c.skip_empty);
    EXPECT_EQ(Names(list), c.names) << "'" << c.text << "'";
  }
}

TEST(ParseCategories, LaterSpellingMergesMarksIntoTheFirst) {
  CategoryList list;
  ParseCategories(list, L" Work ,home", InLoadedTasks, false);
  const int index = ParseCategories(list, L"work", InFilter, false);
  ASSERT_EQ(index, 1);
  EXPECT_EQ(list.entries[1].name, L"Work");
  EXPECT_EQ(list.entries[1].marks, InLoadedTasks | InFilter);
  EXPECT_EQ(list.entries[0].marks, InLoadedTasks);
}

TEST(ParseCategories, ReturnsTheLastPieceIndexOrMinusOne) {
  CategoryList list;
  EXPECT_EQ(ParseCategories(list, static_cast<const wchar_t*>(nullptr), 0, false), -1);
  EXPECT_EQ(ParseCategories(list, L"", 0, true), -1);
  EXPECT_EQ(ParseCategories(list, L"m,b", 0, true), 0);  // "b" sorts first
  EXPECT_EQ(ParseCategories(list, L"z,m", 0, true), 1);
  EXPECT_EQ(ParseCategories(list, L"", 0, false), 0);  // No Category lands in front
}

TEST(AddCategory, ModesReturnMinusOneForNewOrTheSortedIndex) {
  CategoryList list;
  EXPECT_EQ(AddCategory(list, L"m", 1, kAddCategoryMerge), -1);
  EXPECT_EQ(AddCategory(list, L"M", 2, kAddCategoryMerge), 0);  // merged: index in both modes
  EXPECT_EQ(AddCategory(list, L"a", 4, kAddCategoryFindIndex), 0);
  EXPECT_EQ(AddCategory(list, L"z", 4, kAddCategoryFindIndex), 2);
  EXPECT_EQ(AddCategory(list, L" M ", 8, kAddCategoryFindIndex), 1);
  EXPECT_EQ(list.entries[1].marks, 1 | 2 | 8);
  EXPECT_EQ(list.entries[1].icon_index, -1);
  EXPECT_EQ(list.entries[1].menu_command, 0u);
}

TEST(AddCategory, The385thNameBeepsAndIsDropped) {
  CategoryList list;
  for (int i = 0; i < kMaxCategories; ++i)
    ASSERT_EQ(AddCategory(list, L"c" + std::to_wstring(i), 1, kAddCategoryMerge), -1);
  ASSERT_EQ(list.count(), kMaxCategories);
  const unsigned beeps = platform::BeepCount();
  EXPECT_EQ(AddCategory(list, L"one too many", 1, kAddCategoryFindIndex), -1);
  EXPECT_EQ(platform::BeepCount(), beeps + 1);
  EXPECT_EQ(list.count(), kMaxCategories);
  EXPECT_EQ(FindCategory(list, L"one too many"), -1);
  // A name already there still merges, without a beep.
  EXPECT_GE(AddCategory(list, L"C7", 2, kAddCategoryFindIndex), 0);
  EXPECT_EQ(platform::BeepCount(), beeps + 1);
  for (size_t i = 1; i < list.entries.size(); ++i)
    EXPECT_LT(CompareCategoryNames(list.entries[i - 1].name, list.entries[i].name), 0);
}

TEST(JoinCategories, WritesSortedNamesWithNoCategoryMarker) {
  CategoryList list;
  EXPECT_EQ(JoinCategories(list, false), L"");
  ParseCategories(list, L" home, Work ,,<nocat>", 0, false);
  EXPECT_EQ(JoinCategories(list, false), L"<NoCat>,<nocat>,home,Work");
  EXPECT_EQ(JoinCategories(list, true), L"<NoCat>, <nocat>, home, Work");
}

TEST(JoinCategories, StopsBeforeTheBufferOverflows) {
  CategoryList list;
  for (int i = 0; i < 100; ++i)
    AddCategory(list, std::wstring(60, L'a') + std::to_wstring(100 + i), 0, kAddCategoryMerge);
  // 63 characters and a comma each: exactly 60 names fill 3,839 characters.
  const std::wstring joined = JoinCategories(list, false);
  EXPECT_EQ(joined.size(), kCategoriesTextBuffer - 1);
  EXPECT_TRUE(joined.ends_with(L"a159"));
  AddCategory(list, L"0", 0, kAddCategoryMerge);  // one more name in front pushes one out
  EXPECT_TRUE(JoinCategories(list, false).ends_with(L"a158"));
}

TEST(CategoryState, StartUpParsesTheDefaultFilterUnlessStartedForToday) {
  InitCategories(0, L" work ,Home,,", L"Next");
  EXPECT_EQ(CurrentFilterText(), L"<NoCat>,Home,work");
  EXPECT_EQ(CategoryFilterList().count(), 3);
  const CategoryList& catalogue = CategoryCatalogue();
  ASSERT_EQ(Names(catalogue), (std::vector<std::wstring>{L"", L"Next"}));
  EXPECT_EQ(catalogue.entries[0].marks, Builtin);
  EXPECT_EQ(catalogue.entries[1].marks, ForNewTasks);

  CurrentSettings().filter_categories = L"work";
  InitCategories(40054);
  EXPECT_EQ(CurrentFilterText(), L"");
  EXPECT_TRUE(CategoryFilterList().empty());
  EXPECT_EQ(CategoryCatalogue().count(), 1);
  CurrentSettings() = Settings{};
}

TEST(CategoryState, MarkNewTaskCategoriesMovesTheMark) {
  InitCategories(0, L"", L"a,b");
  CurrentSettings().categories_for_new = L"B,c";
  MarkNewTaskCategories();
  const CategoryList& catalogue = CategoryCatalogue();
  ASSERT_EQ(Names(catalogue), (std::vector<std::wstring>{L"", L"a", L"b", L"c"}));
  EXPECT_EQ(catalogue.entries[1].marks, 0);
  EXPECT_EQ(catalogue.entries[2].marks, ForNewTasks);
  EXPECT_EQ(catalogue.entries[3].marks, ForNewTasks);
  CurrentSettings() = Settings{};
  MarkNewTaskCategories();
  for (const CategoryEntry& e : catalogue.entries) EXPECT_FALSE(e.marks & ForNewTasks);
}

}  // namespace
}  // namespace velmo
