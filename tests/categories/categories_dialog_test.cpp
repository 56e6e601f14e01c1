// The Categories and New Category dialogs on the headless screen over a real
// tasks database, opened as the user opens them: "Multiple..." of the Filter
// menu and "Change Categories..." on the selected task.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <functional>

#include "app/task_changes.h"
#include "categories/category_icons.h"
#include "categories/category_state.h"
#include "categories/dialog/categories_dialog.h"
#include "categories/dialog/new_category_dialog.h"
#include "editor/task_editor.h"
#include "list/quick_entry.h"
#include "app/entry_box.h"
#include "platform/beep.h"
#include "platform/poom.h"
#include "platform/ui/dialog.h"
#include "platform/ui/virtual_keys.h"
#include "res/command_ids.h"
#include "store/contacts_db.h"
#include "res/dialogs_categories.h"
#include "res/dialogs_editor.h"
#include "store/connection.h"
#include "store/direct_writes.h"
#include "tests/categories/categories_dialog_fixture.h"

namespace velmo::testing {
namespace {

// The filter mode over the categories in use: No Category first, the title
// counting every tick, Up wrapping to the end, and Done making the filter.
TEST_F(CategoriesDialogTest, MultipleTicksSeveralCategoriesAsTheFilter) {
  Add(L"Report", L"Work");
  Add(L"Garden", L"Home");
  Add(L"Loose", L"");
  std::vector<std::wstring> titles(5);
  std::wstring screen;
  LookTitle(&titles[0]);
  Look(&screen);
  Key(VK_UP);  // from No Category round to Work
  Key(VK_RETURN);
  LookTitle(&titles[1]);
  Key(VK_DOWN);  // round to No Category
  Key(VK_DOWN);  // Home
  Key(VK_SPACE, L' ');
  LookTitle(&titles[2]);
  Command(res::kCmdInvertSelect);
  LookTitle(&titles[3]);
  Command(res::kCmdInvertSelect);
  Key(VK_TSOFT1);
  app::SendCommand(cmd::kMultipleCategories);
  Pump();
  EXPECT_EQ(titles[0], L"Categories [0/3]");
  EXPECT_TRUE(Has(screen, L"No Category")) << screen;
  EXPECT_LT(screen.find(L"Home"), screen.find(L"Work")) << screen;
  EXPECT_EQ(titles[1], L"Categories [1/3]");
  EXPECT_EQ(titles[2], L"Categories [2/3]");
  EXPECT_EQ(titles[3], L"Categories [1/3]");
  EXPECT_EQ(CurrentFilterText(), L"Home,Work");
  EXPECT_EQ(Title(), L"Multiple Cat. [2]");
}

// Done and Cancel by the result rules: only a changed choice reports 1.
TEST_F(CategoriesDialogTest, DoneReportsAChangeOnlyWhenTheChoiceDiffers) {
  Add(L"Report", L"Work");
  Add(L"Garden", L"Home");
  struct Case {
    const char* name;
    std::function<void()> steps;
    const wchar_t* initial;
    INT_PTR ended;
    const wchar_t* result;
  } const cases[] = {
      {"unchanged", [this] { Key(VK_TSOFT1); }, L"Home,Work", 0, L"-"},
      {"spelt otherwise", [this] { Key(VK_TSOFT1); }, L"work, home", 1, L"Home,Work"},
      {"none ticked", [this] { Command(res::kCmdSelectNone); Key(VK_TSOFT1); }, L"Work", 1, L""},
      {"cancelled", [this] { Command(res::kCmdSelectAll); Key(VK_ESCAPE); }, L"Work", 0, L"-"},
      {"cancel item", [this] { Command(res::kCmdSelectAll); Command(IDCANCEL); }, L"", 0, L"-"},
  };
  for (const Case& c : cases) {
    c.steps();
    std::wstring result = L"-";
    EXPECT_EQ(RunCategoriesDialog(window_, kCategoriesForFilter, CategoriesOpener::kOther, c.initial, &result),
              c.ended) << c.name;
    EXPECT_EQ(result, c.result) << c.name;
  }
}

// "Change Categories..." on a task without categories: mode 1 has nothing to
// offer and becomes mode 2; "New Category..." makes two names from a comma,
// ticks the last; the user ticks the other; the task gets both.
TEST_F(CategoriesDialogTest, ChangeCategoriesGivesATaskTwoNewCategories) {
  const CEOID oid = Add(L"Plan trip", nullptr);
  std::wstring menu, known, after_new, title;
  Key(VK_TSOFT2);
  Look(&menu);
  Key(VK_ESCAPE);
  Command(res::kCmdNewCategory);
  Look(&known);
  Text(L"Travel, Family");
  Key(VK_RETURN);
  Look(&after_new);
  LookTitle(&title);
  Key(VK_UP);  // Family is selected, Travel is the other
  Key(VK_RETURN);
  Key(VK_TSOFT1);
  SelectTask(oid);
  app::SendCommand(cmd::kChangeCategories);
  Pump();
  EXPECT_TRUE(Has(menu, L"Show All Categories")) << menu;
  EXPECT_TRUE(Has(menu, L"New Category...")) << menu;
  EXPECT_FALSE(Has(menu, L"Select All")) << menu;
  EXPECT_FALSE(Has(menu, L"Invert Select")) << menu;
  EXPECT_TRUE(Has(known, L"Category name:")) << known;
  EXPECT_TRUE(Has(after_new, L"Travel")) << after_new;
  EXPECT_EQ(title, L"Categories [1/2]") << after_new;
  EXPECT_EQ(CategoriesOf(oid), L"Family,Travel");
  const CategoryList& catalogue = CategoryCatalogue();
  const int travel = FindCategory(catalogue, L"travel");
  ASSERT_GE(travel, 0);
  EXPECT_EQ(catalogue.entries[static_cast<size_t>(travel)].marks & CreatedInEditor, 0)
      << "made from the list, not from the editor";
}

// The marks of a category made with "New Category..." follow the opener; the
// known names under the field leave out No Category.
TEST_F(CategoriesDialogTest, NewCategoryMarksByOpener) {
  Add(L"Report", L"Work");
  EXPECT_EQ(KnownCategoryNames(), L"Work");
  struct Case { CategoriesOpener opener; const wchar_t* name; WORD mark; } const cases[] = {
      {CategoriesOpener::kTaskEditor, L"Errands", CreatedInEditor},
      {CategoriesOpener::kNewTasksPage, L"Inbox", ForNewTasks},
      {CategoriesOpener::kOther, L"Misc", 0},
  };
  for (const Case& c : cases) {
    Text(c.name);
    Key(VK_RETURN);
    const int index = RunNewCategoryDialog(window_, c.opener);
    ASSERT_GE(index, 0) << c.name;
    const CategoryEntry& e = CategoryCatalogue().entries[static_cast<size_t>(index)];
    EXPECT_EQ(e.name, c.name);
    EXPECT_EQ(e.marks & (CreatedInEditor | ForNewTasks), c.mark) << c.name;
  }
  Text(L"Ignored");
  Key(VK_ESCAPE);
  EXPECT_EQ(RunNewCategoryDialog(window_, CategoriesOpener::kOther), -1);
  EXPECT_EQ(FindCategory(CategoryCatalogue(), L"Ignored"), -1);
  EXPECT_EQ(KnownCategoryNames(), L"Errands, Inbox, Misc, Work");
}

// A categories text of 400 names opens at once: the checked set holds 384 and
// beeps once for each name past them.
TEST_F(CategoriesDialogTest, AnOverlongInitialTextBeepsPastTheLimit) {
  Add(L"Report", L"n0");
  std::wstring text;
  for (int i = 0; i < 400; ++i) text += (i ? L"," : L"") + std::wstring(L"n") + std::to_wstring(i);
  text += L"," + std::wstring(9000, L'x');
  const unsigned beeps = platform::BeepCount();
  std::wstring title, seen;
  LookTitle(&title);
  Look(&seen);
  Key(VK_TSOFT1);
  std::wstring result;
  EXPECT_EQ(RunCategoriesDialog(window_, kCategoriesForTask, CategoriesOpener::kOther, text, &result), 1);
  EXPECT_EQ(platform::BeepCount() - beeps, 17u);
  EXPECT_EQ(title, L"Categories [1/1]") << seen;
  EXPECT_EQ(result, L"n0");
}

// "Show All Categories" brings in the contacts' categories and offers every
// category but No Category, keeping the ticks; "New Category..." takes at most
// 99 characters.
TEST_F(CategoriesDialogTest, ShowAllOffersTheContactsCategoriesAndKeepsTheTicks) {
  const CEOID oid = Add(L"Report", L"Work");
  Contact anna;
  anna.name = L"Anna";
  anna.categories = L"Friends, Book club";
  size_t added = 0, replaced = 0;
  ASSERT_TRUE(cedb::EnsureDeviceVolume());  // the contacts database as a first start makes it
  ASSERT_TRUE(WriteContacts({anna}, &added, &replaced)) << cedb::LastFailure();
  std::wstring before, after, title;
  Look(&before);
  Command(res::kCmdShowAllCategories);
  Look(&after);
  LookTitle(&title);
  Command(res::kCmdNewCategory);
  const std::wstring long_name(120, L'z');  // outlives the steps
  Text(long_name.c_str());
  Key(VK_RETURN);
  Key(VK_ESCAPE);
  SelectTask(oid);
  app::SendCommand(cmd::kChangeCategories);
  Pump();
  EXPECT_FALSE(Has(before, L"Friends")) << before;
  EXPECT_TRUE(Has(after, L"Friends") && Has(after, L"Book club")) << after;
  EXPECT_FALSE(Has(after, L"No Category")) << after;
  EXPECT_EQ(title, L"Categories [1/3]");
  EXPECT_GE(FindCategory(CategoryCatalogue(), std::wstring(99, L'z')), 0);
  EXPECT_EQ(FindCategory(CategoryCatalogue(), std::wstring(100, L'z')), -1);
  EXPECT_EQ(CategoriesOf(oid), L"Work") << "Cancel keeps the task's categories";
}

// "Reload Icons" reports for the categories the list shows, at most one "not
// found" and every bad file, and nothing for the others.
TEST_F(CategoriesDialogTest, ReloadIconsReportsOnlyForTheCategoriesShown) {
  Add(L"Garden", L"Home");
  Add(L"Report", L"Work");
  AddCategory(CategoryCatalogue(), L"Zeta", ForNewTasks, kAddCategoryMerge);  // not in use
  const std::filesystem::path folder = root() / "Program Files" / "Velmo";
  std::filesystem::create_directories(folder);
  for (const char* bad : {"Work.bmp", "Zeta.bmp"}) std::ofstream(folder / bad) << "not a bitmap";
  CurrentSettings().path = L"\\Program Files\\Velmo\\velmo.exe";
  std::vector<std::wstring> seen(3);
  Command(res::kCmdReloadIcons);
  for (std::wstring& s : seen) {
    Look(&s);
    Key(VK_RETURN);
  }
  Key(VK_ESCAPE);
  std::wstring result;
  RunCategoriesDialog(window_, kCategoriesForFilter, CategoriesOpener::kOther, L"", &result);
  CurrentSettings().path.clear();
  DestroyCategoryImages();
  // The welcome task has no categories, so No Category is shown and looked for first.
  EXPECT_TRUE(Has(seen[0], L"File not found:") && Has(seen[0], L"~NoCategory.bmp")) << seen[0];
  EXPECT_TRUE(Has(seen[1], L"Bad File:") && Has(seen[1], L"Work.bmp")) << seen[1];
  EXPECT_TRUE(Has(seen[2], L"Categories [0/3]")) << "no third message\n" << seen[2];
  for (const std::wstring& s : seen) EXPECT_FALSE(Has(s, L"Home.bmp") || Has(s, L"Zeta")) << s;
}

// The editor's categories field opens the dialog on the action key; the quick
// entry's "Change Categories..." chooses the new task's categories.
TEST_F(CategoriesDialogTest, EditorFieldAndQuickEntryChooseThroughTheDialog) {
  Add(L"Report", L"Work");
  const CEOID oid = Add(L"Garden", L"Home");
  std::wstring title;
  screen_.AddIdleStep([] { SetFocus(GetDlgItem(GetActiveWindow(), res::editor_id::kCategories)); });
  Key(VK_RETURN);
  LookTitle(&title);
  Command(res::kCmdNewCategory);
  Text(L"Weekend");
  Key(VK_RETURN);
  Key(VK_TSOFT1);  // the Categories dialog's Done
  Key(VK_TSOFT1);  // the editor's
  EXPECT_EQ(RunTaskEditor(window_, oid), 40023);
  Pump();
  EXPECT_EQ(title, L"Categories [1/2]");
  EXPECT_EQ(CategoriesOf(oid), L"Home,Weekend");
  const int made = FindCategory(CategoryCatalogue(), L"Weekend");
  ASSERT_GE(made, 0);
  EXPECT_NE(CategoryCatalogue().entries[static_cast<size_t>(made)].marks & CreatedInEditor, 0);

  SetFocus(app::MainWindow().entry);
  Pump();
  ASSERT_TRUE(app::InEntryMode());
  Command(res::kCmdSelectAll);
  Key(VK_TSOFT1);
  app::SendCommand(cmd::kChangeCategories);
  Pump();
  EXPECT_EQ(CurrentQuickEntry().categories, L"Home,Weekend,Work");
}

}  // namespace
}  // namespace velmo::testing
