// The search dialog as the user meets it through "Search...": the switches,
// the text kept in the "Search" setting, the filter chosen in the dialog, and
// texts that hold the characters of other search syntaxes.
#include <gtest/gtest.h>

#include <string>

#include "categories/category_state.h"
#include "list/view_ids.h"
#include "platform/ui/button.h"
#include "platform/ui/virtual_keys.h"
#include "res/dialogs_categories.h"
#include "settings/settings.h"
#include "tests/categories/categories_dialog_fixture.h"

namespace velmo::testing {
namespace {

class SearchDialogTest : public CategoriesDialogTest {
 protected:
  // Opens the dialog, types `text` over the last one, sets the three
  // switches, and chooses Done.
  void Search(const std::wstring& text, bool subjects, bool notes, bool case_sensitive) {
    Text(text);
    screen_.AddIdleStep([subjects, notes, case_sensitive] {
      HWND d = GetActiveWindow();
      const std::pair<int, bool> boxes[] = {{res::kSearchSubjects, subjects},
                                            {res::kSearchNotes, notes},
                                            {res::kSearchCaseSensitive, case_sensitive}};
      for (auto [id, on] : boxes) SendDlgItemMessageW(d, id, BM_SETCHECK, on ? BST_CHECKED : BST_UNCHECKED, 0);
    });
    Key(VK_TSOFT1);
    app::SendCommand(kViewSearch);
    Pump();
  }
  void Text(const std::wstring& text) {
    screen_.AddIdleStep([this, text] { screen_.TypeText(text); });
  }
};

TEST_F(SearchDialogTest, SwitchesDecideWhereTheTextIsFound) {
  Add(L"Call bank", L"Work", L"ask about the mortgage");
  Add(L"Mortgage papers", L"Home", L"");
  Add(L"Buy milk", L"Home", L"semi-skimmed");
  struct Case { const wchar_t* text; bool subjects, notes, sensitive; const wchar_t* title; } const cases[] = {
      {L"mortgage", true, true, false, L"Search [2]"},
      {L"mortgage", true, true, true, L"Search [1]"},
      {L"MORTGAGE", false, true, false, L"Search [1]"},
      {L"mortgage", true, false, false, L"Search [1]"},
      {L"mortgage", false, false, false, L"Search [0]"},
      {L"skim", true, true, false, L"Search [1]"},
  };
  for (const Case& c : cases) {
    Search(c.text, c.subjects, c.notes, c.sensitive);
    EXPECT_EQ(Title(), c.title) << ::testing::PrintToString(std::wstring(c.text)) << c.subjects << c.notes
                                << c.sensitive;
  }
  Settings stored;
  LoadSettings(stored);
  EXPECT_EQ(stored.search, L"skim") << "the last search text is kept";

  std::wstring shown;
  Look(&shown);
  Text(L"milk");
  Key(VK_ESCAPE);
  app::SendCommand(kViewSearch);
  Pump();
  EXPECT_NE(shown.find(L"skim"), std::wstring::npos) << "the dialog opens on the last text\n" << shown;
  EXPECT_EQ(Title(), L"Search [1]") << "Cancel changes nothing";
  EXPECT_EQ(CurrentSettings().search, L"skim");
}

// "Filter:" opens the Categories dialog in filter mode; Done narrows the
// search to the categories ticked there.
TEST_F(SearchDialogTest, FilterFieldChoosesTheCategoriesSearched) {
  Add(L"Call bank", L"Work", L"call the adviser");
  Add(L"Call mum", L"Home", L"");
  std::wstring before, after;
  Text(L"call");
  screen_.AddIdleStep([] { SetFocus(GetDlgItem(GetActiveWindow(), res::kSearchFilter)); });
  Look(&before);
  Key(VK_RETURN);     // the Categories dialog
  Key(VK_UP);         // round to the last, Work
  Key(VK_RETURN);
  Key(VK_TSOFT1);
  Look(&after);
  Key(VK_TSOFT1);
  app::SendCommand(kViewSearch);
  Pump();
  EXPECT_NE(before.find(L"Select Categories"), std::wstring::npos) << before;
  EXPECT_NE(after.find(L"Work"), std::wstring::npos) << after;
  EXPECT_EQ(CurrentFilterText(), L"Work");
  EXPECT_EQ(Title(), L"Search [1] Work");
}

// A text of the longest length that holds "%", "*", "?" or a character that
// stands for bytes that were not UTF-8 finds exactly what it holds.
TEST_F(SearchDialogTest, TextsFindWhatTheyLiterallyHold) {
  const std::wstring odd = std::wstring(96, L'a') + L"%*?\uFFFD";
  Add((L"x" + odd).c_str(), nullptr, L"");
  Add(L"aaaa", nullptr, L"100% sure");
  Add(L"Glob *.txt", nullptr, L"");
  struct Case { std::wstring text; const wchar_t* title; } const cases[] = {
      {odd, L"Search [1]"},
      {odd + L"overflow", L"Search [1]"},  // the field keeps 100 characters
      {L"%", L"Search [2]"},
      {L"*", L"Search [2]"},
      {L"%d", L"Search [0]"},
      {L"\uFFFD", L"Search [1]"},
  };
  for (const Case& c : cases) {
    Search(c.text, true, true, false);
    EXPECT_EQ(Title(), c.title) << ::testing::PrintToString(c.text);
  }
}

}  // namespace
}  // namespace velmo::testing
