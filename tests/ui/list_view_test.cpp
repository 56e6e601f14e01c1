#include <string>

#include "platform/ui/colours.h"
#include "platform/ui/gdi.h"
#include "platform/ui/list_view.h"
#include "platform/ui/virtual_keys.h"
#include "tests/ui/ui_fixture.h"

namespace velmo::testing {
namespace {

constexpr int kListId = 100;

class ListViewTest : public UiTest {
 protected:
  ListViewTest() {
    handlers_[WM_DRAWITEM] = [&](HWND, UINT, WPARAM, LPARAM l, bool*) -> LRESULT {
      auto* dis = reinterpret_cast<DRAWITEMSTRUCT*>(l);
      draws_.push_back(*dis);
      std::wstring text = L"Task " + std::to_wstring(dis->itemData);
      RECT rc = dis->rcItem;
      DrawTextW(dis->hDC, text.c_str(), -1, &rc, DT_SINGLELINE);
      return TRUE;
    };
    main_ = MakeMain();
    list_ = MakeChild(main_, kListId, 0, 0, 40, 4, WC_LISTVIEWW,
                      LVS_REPORT | LVS_SINGLESEL | LVS_OWNERDRAWFIXED, L"No matches for this filter");
    SetFocus(list_);
  }

  void Fill(std::initializer_list<LPARAM> params) {
    int i = 0;
    for (LPARAM p : params) {
      LVITEMW item{};
      item.mask = LVIF_PARAM;
      item.iItem = i++;
      item.lParam = p;
      ListView_InsertItem(list_, &item);
    }
  }
  int Focused() const { return ListView_GetNextItem(list_, -1, LVNI_FOCUSED); }
  LPARAM ParamAt(int i) const {
    LVITEMW item{};
    item.mask = LVIF_PARAM;
    item.iItem = i;
    ListView_GetItem(list_, &item);
    return item.lParam;
  }

  HWND main_;
  HWND list_;
  std::vector<DRAWITEMSTRUCT> draws_;
};

TEST_F(ListViewTest, KeysMoveTheSelectionAPageAtATimeWithoutWrapping) {
  Fill({0, 1, 2, 3, 4, 5, 6, 7, 8, 9});
  ASSERT_EQ(ListView_GetCountPerPage(list_), 4);
  struct Step { UINT vk; int focused; int top; } const steps[] = {
      {VK_DOWN, 0, 0},  {VK_DOWN, 1, 0},  {VK_DOWN, 2, 0},  {VK_DOWN, 3, 0},  {VK_DOWN, 4, 1},
      {VK_UP, 3, 1},    {VK_UP, 2, 1},    {VK_UP, 1, 1},    {VK_UP, 0, 0},    {VK_UP, 0, 0},
      {VK_NEXT, 3, 0},  {VK_NEXT, 7, 4},  {VK_NEXT, 9, 6},  {VK_NEXT, 9, 6},  {VK_DOWN, 9, 6},
      {VK_PRIOR, 6, 6}, {VK_PRIOR, 2, 2}, {VK_PRIOR, 0, 0}, {VK_END, 9, 6},   {VK_HOME, 0, 0},
  };
  for (const Step& s : steps) {
    screen_.TypeKey(s.vk);
    Pump();
    EXPECT_EQ(Focused(), s.focused) << "key " << s.vk;
    EXPECT_EQ(ListView_GetTopIndex(list_), s.top) << "key " << s.vk;
    EXPECT_EQ(ListView_GetNextItem(list_, -1, LVNI_SELECTED), s.focused);
    EXPECT_EQ(ListView_GetSelectedCount(list_), 1u);
  }
}

TEST_F(ListViewTest, ParentHearsKeysSelectionChangesAndTheActionKey) {
  std::vector<WORD> keys;
  std::vector<std::pair<int, LPARAM>> changes;
  int activated = -2;
  handlers_[WM_NOTIFY] = [&](HWND, UINT, WPARAM, LPARAM l, bool*) -> LRESULT {
    auto* hdr = reinterpret_cast<NMHDR*>(l);
    EXPECT_EQ(hdr->hwndFrom, list_);
    EXPECT_EQ(hdr->idFrom, static_cast<UINT_PTR>(kListId));
    if (hdr->code == LVN_KEYDOWN) keys.push_back(reinterpret_cast<NMLVKEYDOWN*>(l)->wVKey);
    if (hdr->code == LVN_ITEMACTIVATE) activated = reinterpret_cast<NMITEMACTIVATE*>(l)->iItem;
    if (hdr->code == LVN_ITEMCHANGED) {
      auto* nm = reinterpret_cast<NMLISTVIEW*>(l);
      if (nm->uNewState & LVIS_SELECTED) changes.emplace_back(nm->iItem, nm->lParam);
    }
    return 0;
  };
  Fill({100, 200, 300});
  screen_.TypeText(L"5");
  screen_.TypeKey(VK_DOWN);
  screen_.TypeKey(VK_DOWN);
  screen_.TypeKey(VK_RETURN);
  Pump();
  EXPECT_EQ(keys, (std::vector<WORD>{'5', VK_DOWN, VK_DOWN, VK_RETURN}));
  EXPECT_EQ(changes, (std::vector<std::pair<int, LPARAM>>{{0, 100}, {1, 200}}));
  EXPECT_EQ(activated, 1);
}

TEST_F(ListViewTest, OwnerDrawsEachVisibleRowWithItsRecordAndState) {
  Fill({11, 22, 33, 44, 55, 66});
  ListView_SetItemState(list_, 1, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
  draws_.clear();
  Pump();
  ASSERT_EQ(draws_.size(), 4u) << "only the rows on the page";
  EXPECT_EQ(draws_[1].itemData, 22u);
  EXPECT_EQ(draws_[1].itemState, ODS_SELECTED | ODS_FOCUS);
  EXPECT_EQ(draws_[0].itemState, 0u);
  EXPECT_EQ(draws_[2].rcItem.top, 2);
  EXPECT_EQ(screen_.Row(2).substr(0, 7), L"Task 22");
  EXPECT_EQ(screen_.at(0, 2).bg, GetSysColor(COLOR_HIGHLIGHT));
  EXPECT_EQ(screen_.at(0, 2).fg, GetSysColor(COLOR_HIGHLIGHTTEXT));
  EXPECT_EQ(screen_.at(39, 2).bg, GetSysColor(COLOR_HIGHLIGHT)) << "the whole row is marked";
  EXPECT_EQ(screen_.at(0, 1).bg, GetSysColor(COLOR_WINDOW));

  // Two lines per task: half as many rows on the page.
  ListView_SetRowHeight(list_, 2);
  draws_.clear();
  Pump();
  ASSERT_EQ(draws_.size(), 2u);
  EXPECT_EQ(draws_[1].rcItem.top, 2);
  EXPECT_EQ(draws_[1].rcItem.bottom, 4);
  EXPECT_EQ(ListView_GetCountPerPage(list_), 2);

  // Without the focus the selection is not shown (no LVS_SHOWSELALWAYS).
  SetFocus(main_);
  draws_.clear();
  Pump();
  EXPECT_EQ(draws_[1].itemState, 0u);
}

int ByValue(LPARAM a, LPARAM b, LPARAM descending) {
  int order = a < b ? -1 : a > b ? 1 : 0;
  return descending ? -order : order;
}

TEST_F(ListViewTest, SortingKeepsTheSelectionOnItsRecord) {
  Fill({5, 3, 9, 1});
  ListView_SetItemState(list_, 2, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
  ASSERT_TRUE(ListView_SortItems(list_, ByValue, 0));
  EXPECT_EQ((std::vector<LPARAM>{ParamAt(0), ParamAt(1), ParamAt(2), ParamAt(3)}),
            (std::vector<LPARAM>{1, 3, 5, 9}));
  EXPECT_EQ(ParamAt(Focused()), 9);
  ListView_SortItems(list_, ByValue, 1);
  EXPECT_EQ(ParamAt(0), 9);
  LVFINDINFOW find{LVFI_PARAM, nullptr, 3};
  EXPECT_EQ(ListView_FindItem(list_, -1, &find), 2);
  find.lParam = 42;
  EXPECT_EQ(ListView_FindItem(list_, -1, &find), -1);
}

TEST_F(ListViewTest, EnsureVisibleScrollsJustEnough) {
  Fill({0, 1, 2, 3, 4, 5, 6, 7, 8, 9});
  ListView_EnsureVisible(list_, 8, FALSE);
  EXPECT_EQ(ListView_GetTopIndex(list_), 5);
  ListView_EnsureVisible(list_, 6, FALSE);
  EXPECT_EQ(ListView_GetTopIndex(list_), 5);
  ListView_EnsureVisible(list_, 2, FALSE);
  EXPECT_EQ(ListView_GetTopIndex(list_), 2);
  RECT rc;
  ASSERT_TRUE(ListView_GetItemRect(list_, 3, &rc, LVIR_BOUNDS));
  EXPECT_EQ(rc.top, 1);
  EXPECT_FALSE(ListView_EnsureVisible(list_, 10, FALSE));
}

TEST_F(ListViewTest, EmptyListShowsItsTextAndDeletingKeepsTheTopInRange) {
  Pump();
  EXPECT_TRUE(screen_.Contains(L"No matches for this filter"));
  Fill({0, 1, 2, 3, 4, 5});
  ListView_EnsureVisible(list_, 5, FALSE);
  EXPECT_EQ(ListView_GetTopIndex(list_), 2);
  ListView_DeleteItem(list_, 5);
  ListView_DeleteItem(list_, 4);
  EXPECT_EQ(ListView_GetTopIndex(list_), 0);
  EXPECT_EQ(ListView_GetItemCount(list_), 4);
  EXPECT_FALSE(ListView_DeleteItem(list_, 4));
  Pump();
  EXPECT_FALSE(screen_.Contains(L"No matches"));
  ListView_DeleteAllItems(list_);
  Pump();
  EXPECT_TRUE(screen_.Contains(L"No matches for this filter"));
  screen_.TypeKey(VK_DOWN);
  Pump();
  EXPECT_EQ(Focused(), -1);
}

}  // namespace
}  // namespace velmo::testing
