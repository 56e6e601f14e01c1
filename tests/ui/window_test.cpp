#include "tests/ui/ui_fixture.h"

namespace velmo::testing {
namespace {

class WindowTest : public UiTest {};

std::vector<UINT> Messages(const std::vector<Received>& received, HWND hwnd) {
  std::vector<UINT> out;
  for (const Received& r : received)
    if (r.hwnd == hwnd) out.push_back(r.msg);
  return out;
}

TEST_F(WindowTest, CreationSizesADefaultWindowToTheWorkArea) {
  HWND main = MakeMain();
  ASSERT_TRUE(main);
  RECT rc;
  GetWindowRect(main, &rc);
  // The title line above and the soft-key bar below are not the window's.
  EXPECT_EQ(rc.top, 1);
  EXPECT_EQ(rc.bottom, screen_.height() - 1);
  EXPECT_EQ(rc.right, screen_.width());
  auto sizes = Of(WM_SIZE);
  ASSERT_EQ(sizes.size(), 1u);
  EXPECT_EQ(LOWORD(sizes[0].lparam), 40);
  EXPECT_EQ(HIWORD(sizes[0].lparam), 10);
  EXPECT_EQ(GetActiveWindow(), main);
  EXPECT_EQ(GetFocus(), main);
}

TEST_F(WindowTest, RefusedCreationLeavesNoWindow) {
  handlers_[WM_CREATE] = [](HWND, UINT, WPARAM, LPARAM, bool*) -> LRESULT { return -1; };
  EXPECT_EQ(MakeMain(), nullptr);
  EXPECT_EQ(GetActiveWindow(), nullptr);
  EXPECT_EQ(CreateWindowExW(0, L"NoSuchClass", L"", 0, 0, 0, 1, 1, nullptr, nullptr, nullptr,
                            nullptr), nullptr);
}

TEST_F(WindowTest, DestroyGoesToOwnedWindowsThenChildren) {
  HWND main = MakeMain();
  HWND child = MakeChild(main, 5);
  HWND popup = MakeMain(L"Popup", child);
  EXPECT_EQ(GetWindow(popup, GW_OWNER), main) << "the owner is the top-level window";
  EXPECT_EQ(GetActiveWindow(), popup);
  received_.clear();
  ASSERT_TRUE(DestroyWindow(main));
  std::vector<std::pair<HWND, UINT>> order;
  for (const Received& r : received_)
    if (r.msg == WM_DESTROY || r.msg == WM_NCDESTROY) order.emplace_back(r.hwnd, r.msg);
  EXPECT_EQ(order, (std::vector<std::pair<HWND, UINT>>{{popup, WM_DESTROY},
                                                         {popup, WM_NCDESTROY},  {main, WM_DESTROY},
                                                         {child, WM_DESTROY},    {child, WM_NCDESTROY},
                                                         {main, WM_NCDESTROY}}));
  EXPECT_FALSE(IsWindow(main));
  EXPECT_FALSE(IsWindow(child));
  EXPECT_FALSE(IsWindow(popup));
  EXPECT_EQ(GetActiveWindow(), nullptr);
}

TEST_F(WindowTest, OwnerChainAndTopLevelOrder) {
  HWND main = MakeMain();
  HWND a = MakeMain(L"A", main);
  HWND b = MakeMain(L"B", a);
  std::vector<HWND> chain;
  for (HWND w = b; IsWindow(w); w = GetWindow(w, GW_OWNER)) chain.push_back(w);
  EXPECT_EQ(chain, (std::vector<HWND>{b, a, main}));
  std::vector<HWND> tops;
  EnumWindows([](HWND h, LPARAM p) -> BOOL {
    reinterpret_cast<std::vector<HWND>*>(p)->push_back(h);
    return TRUE;
  }, reinterpret_cast<LPARAM>(&tops));
  EXPECT_EQ(tops, (std::vector<HWND>{b, a, main}));
  // Raising the main window raises what it owns with it.
  SetForegroundWindow(reinterpret_cast<HWND>(reinterpret_cast<std::uintptr_t>(main) | 1));
  EXPECT_EQ(GetActiveWindow(), b);
}

TEST_F(WindowTest, WindowDataAndSubclassing) {
  HWND main = MakeMain();
  HWND child = MakeChild(main, 42);
  EXPECT_EQ(GetDlgCtrlID(child), 42);
  EXPECT_EQ(GetDlgItem(main, 42), child);
  EXPECT_EQ(GetParent(child), main);
  static WNDPROC original = nullptr;
  static int seen = 0;
  seen = 0;
  original = reinterpret_cast<WNDPROC>(SetWindowLongPtrW(
      child, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(+[](HWND h, UINT m, WPARAM w, LPARAM l) {
        if (m == WM_APP) ++seen;
        return CallWindowProcW(original, h, m, w, l);
      })));
  ASSERT_NE(original, nullptr);
  SendMessageW(child, WM_APP, 0, 0);
  SendMessageW(child, WM_COMMAND, 1, 0);
  EXPECT_EQ(seen, 1);
  EXPECT_EQ(Of(WM_COMMAND).size(), 1u) << "the original procedure still gets the messages";
}

TEST_F(WindowTest, FocusMovesWithMessagesAndLeavesHiddenWindows) {
  HWND main = MakeMain();
  HWND one = MakeChild(main, 1);
  HWND two = MakeChild(main, 2);
  SetFocus(one);
  received_.clear();
  EXPECT_EQ(SetFocus(two), one);
  EXPECT_EQ(Messages(received_, one), std::vector<UINT>{WM_KILLFOCUS});
  EXPECT_EQ(Messages(received_, two), std::vector<UINT>{WM_SETFOCUS});
  ShowWindow(two, SW_HIDE);
  EXPECT_EQ(GetFocus(), nullptr);
  EXPECT_FALSE(IsWindowVisible(two));
  EnableWindow(main, FALSE);
  EXPECT_EQ(SetFocus(one), nullptr) << "a disabled window takes no focus";
  EXPECT_EQ(GetFocus(), nullptr);
}

TEST_F(WindowTest, WindowTextRoundTrips) {
  HWND main = MakeMain(L"Velmo ToDo List");
  wchar_t buffer[6];
  EXPECT_EQ(GetWindowTextW(main, buffer, 6), 5);
  EXPECT_STREQ(buffer, L"Velmo");
  EXPECT_EQ(GetWindowTextLengthW(main), 15);
  SetWindowTextW(main, L"All Tasks (3)");
  Pump();
  EXPECT_EQ(screen_.Row(0).substr(0, 14), L" All Tasks (3)");
}

}  // namespace
}  // namespace velmo::testing
