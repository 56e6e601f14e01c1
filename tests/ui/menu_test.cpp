#include "platform/ui/colours.h"
#include "platform/ui/menu.h"
#include "platform/ui/softkey_bar.h"
#include "platform/ui/virtual_keys.h"
#include "tests/ui/ui_fixture.h"

namespace velmo::testing {
namespace {

constexpr UINT kNew = 40004, kDelete = 40008, kBySubject = 39950, kByDue = 39951, kExit = 40037;

class MenuTest : public UiTest {
 protected:
  MenuTest() {
    main_ = MakeMain();
    sort_ = CreatePopupMenu();
    AppendMenuW(sort_, MF_STRING, kBySubject, L"Subject");
    AppendMenuW(sort_, MF_STRING, kByDue, L"Due Date");
    menu_ = CreatePopupMenu();
    AppendMenuW(menu_, MF_STRING, kNew, L"New");
    AppendMenuW(menu_, MF_SEPARATOR, 0, nullptr);
    AppendMenuW(menu_, MF_STRING | MF_GRAYED, kDelete, L"Delete");
    AppendMenuW(menu_, MF_POPUP, reinterpret_cast<UINT_PTR>(sort_), L"Sort by");
    AppendMenuW(menu_, MF_STRING, kExit, L"Exit\t»");
    SOFTKEY left{L"New", kNew, nullptr};
    SOFTKEY right{L"Menu", 0, menu_};
    CreateSoftKeyBar(main_, &left, &right);
  }
  ~MenuTest() override { DestroyMenu(menu_); }

  // Opens the menu, runs `while_open` when it waits for keys, then pumps.
  void OpenMenu(std::function<void()> while_open) {
    screen_.TypeKey(VK_TSOFT2);
    screen_.AddIdleStep(std::move(while_open));
    Pump();
    EXPECT_FALSE(screen_.stalled());
  }

  HWND main_;
  HMENU menu_;
  HMENU sort_;
};

TEST_F(MenuTest, MenuOpensUpwardFromTheSoftKeyWithNumberedItems) {
  OpenMenu([&] {
    POINT first = screen_.Find(L"1 New");
    POINT exit = screen_.Find(L"4 Exit");
    ASSERT_GE(first.y, 0);
    ASSERT_GE(exit.y, 0);
    EXPECT_EQ(exit.y, screen_.height() - 3) << "the frame ends just above the bar";
    EXPECT_TRUE(screen_.Contains(L"2 Delete"));
    EXPECT_TRUE(screen_.Contains(L"3 Sort by"));
    EXPECT_EQ(screen_.Row(screen_.height() - 2).back(), L'┘') << "right-aligned with its key";
    POINT grey = screen_.Find(L"Delete");
    EXPECT_EQ(screen_.at(grey.x, grey.y).fg, GetSysColor(COLOR_GRAYTEXT));
    EXPECT_EQ(screen_.at(first.x, first.y).bg, GetSysColor(COLOR_HIGHLIGHT))
        << "the first item starts selected";
    screen_.TypeText(L"2");  // grey: nothing happens
    screen_.TypeText(L"4");
  });
  EXPECT_EQ(Commands(), std::vector<UINT>{kExit});
  auto init = Of(WM_INITMENUPOPUP);
  ASSERT_EQ(init.size(), 1u);
  EXPECT_EQ(reinterpret_cast<HMENU>(init[0].wparam), menu_);
  EXPECT_FALSE(screen_.Contains(L"4 Exit")) << "the menu is gone";
}

TEST_F(MenuTest, AnAsciiTerminalSeesTheMenuInAsciiOnly) {
  screen_.set_ascii(true);
  CheckMenuItem(menu_, kNew, MF_BYCOMMAND | MF_CHECKED);
  OpenMenu([&] {
    for (int y = 0; y < screen_.height(); ++y) {
      for (wchar_t ch : screen_.Row(y)) ASSERT_LT(ch, 0x80) << "row " << y;
    }
    POINT exit = screen_.Find(L"4 Exit");
    ASSERT_GE(exit.y, 0);
    EXPECT_EQ(screen_.Row(exit.y + 1).back(), L'+') << "the frame's corner";
    EXPECT_TRUE(screen_.Contains(L"x1 New")) << "the check mark";
    EXPECT_TRUE(screen_.Contains(L">"));
    screen_.TypeKey(VK_ESCAPE);
  });
}

TEST_F(MenuTest, KeysWalkIntoSubmenusAndBack) {
  struct Case { const wchar_t* name; std::vector<UINT> keys; std::vector<UINT> commands; };
  const Case cases[] = {
      {L"number opens the submenu", {'3', '2'}, {kByDue}},
      {L"down skips the separator and the grey item is chosen by nothing",
       {VK_DOWN, VK_RETURN, VK_DOWN, VK_RIGHT, VK_RETURN}, {kBySubject}},
      {L"up wraps to the last item", {VK_UP, VK_RETURN}, {kExit}},
      {L"esc leaves the submenu, then the menu", {'3', VK_ESCAPE, VK_ESCAPE}, {}},
      {L"left closes only the submenu", {'3', VK_LEFT, '1'}, {kNew}},
      {L"the right soft key closes everything", {'3', VK_TSOFT2}, {}},
  };
  for (const Case& c : cases) {
    received_.clear();
    OpenMenu([&] {
      for (UINT vk : c.keys) screen_.TypeKey(vk);
    });
    EXPECT_EQ(Commands(), c.commands) << c.name;
  }
}

TEST_F(MenuTest, OwnerSetsTheItemsBeforeTheMenuOpens) {
  handlers_[WM_INITMENUPOPUP] = [&](HWND, UINT, WPARAM w, LPARAM, bool*) -> LRESULT {
    HMENU m = reinterpret_cast<HMENU>(w);
    if (m == menu_) {
      EnableMenuItem(m, kNew, MF_GRAYED);
      EnableMenuItem(m, kDelete, MF_ENABLED);
    } else {
      CheckMenuRadioItem(m, kBySubject, kByDue, kByDue, MF_BYCOMMAND);
    }
    return 0;
  };
  OpenMenu([&] {
    screen_.TypeText(L"13");
    screen_.AddIdleStep([&] {
      EXPECT_TRUE(screen_.Contains(L"•2 Due Date")) << std::string(screen_.Text().begin(), screen_.Text().end());
      EXPECT_TRUE(screen_.Contains(L" 1 Subject"));
      screen_.TypeKey(VK_ESCAPE);
      screen_.TypeText(L"2");
    });
  });
  EXPECT_EQ(Commands(), std::vector<UINT>{kDelete});
  EXPECT_EQ(Of(WM_INITMENUPOPUP).size(), 2u);
}

TEST_F(MenuTest, ItemsAreFoundByCommandThroughSubmenus) {
  EXPECT_TRUE(InsertMenuW(menu_, kDelete, MF_BYCOMMAND | MF_STRING, 40006, L"Create Copy"));
  EXPECT_EQ(GetMenuItemID(menu_, 2), 40006u);
  EXPECT_TRUE(InsertMenuW(menu_, kByDue, MF_BYCOMMAND | MF_STRING, 39952, L"Start Date"));
  EXPECT_EQ(GetMenuItemID(sort_, 1), 39952u);
  EXPECT_EQ(CheckMenuItem(menu_, kByDue, MF_CHECKED), MF_UNCHECKED);
  EXPECT_EQ(CheckMenuItem(menu_, kByDue, MF_UNCHECKED), MF_CHECKED);
  EXPECT_EQ(EnableMenuItem(menu_, kDelete, MF_ENABLED), MF_GRAYED);
  EXPECT_EQ(EnableMenuItem(menu_, 1, MF_ENABLED), static_cast<UINT>(-1));
  EXPECT_EQ(CheckMenuItem(menu_, 1, MF_CHECKED), static_cast<DWORD>(-1));
  EXPECT_TRUE(DeleteMenu(menu_, 39952, MF_BYCOMMAND));
  EXPECT_EQ(GetMenuItemCount(sort_), 2);
  EXPECT_FALSE(DeleteMenu(menu_, 39952, MF_BYCOMMAND));
  EXPECT_TRUE(DeleteMenu(menu_, 1, MF_BYPOSITION));  // the separator
  EXPECT_EQ(GetMenuItemCount(menu_), 5);
  EXPECT_EQ(GetMenuState(menu_, 3, MF_BYPOSITION) & MF_POPUP, MF_POPUP);
  wchar_t text[16];
  EXPECT_EQ(GetMenuStringW(menu_, kExit, text, 16, MF_BYCOMMAND), 6);
  EXPECT_STREQ(text, L"Exit\t»");
  EXPECT_TRUE(DeleteMenu(menu_, 3, MF_BYPOSITION));
  EXPECT_FALSE(IsMenu(sort_)) << "deleting a submenu item destroys the submenu";
}

TEST_F(MenuTest, EndMenuClosesTheOpenMenu) {
  OpenMenu([&] {
    EXPECT_TRUE(EndMenu());
    PostMessageW(main_, WM_APP, 0, 0);  // wakes the menu's loop
  });
  EXPECT_TRUE(Commands().empty());
  EXPECT_FALSE(EndMenu());
}

TEST_F(MenuTest, TrackPopupMenuReturnsTheCommandWhenAsked) {
  screen_.TypeText(L"1");
  UINT command = static_cast<UINT>(
      TrackPopupMenuEx(menu_, TPM_RETURNCMD | TPM_NONOTIFY, 0, 3, main_, nullptr));
  EXPECT_EQ(command, kNew);
  Pump();
  EXPECT_TRUE(Commands().empty());
  EXPECT_TRUE(Of(WM_INITMENUPOPUP).empty());
}

}  // namespace
}  // namespace velmo::testing
