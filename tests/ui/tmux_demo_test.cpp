// The window system on a real terminal: a small demo (a list, a soft-key menu,
// a message box) runs inside tmux, driven by tmux's keys and read back with
// capture-pane. The demo is a disabled test of this binary that the tmux test
// starts on purpose.
#include <gtest/gtest.h>
#include <filesystem>
#include <string>

#include "platform/ui/screen_ncurses.h"
#include "platform/ui/winuser.h"
#include "tests/e2e/tmux_session.h"

namespace velmo::testing {
namespace {

constexpr UINT kAsk = 1, kExit = 2;

LRESULT DemoProc(HWND hwnd, UINT msg, WPARAM wparam, LPARAM lparam) {
  switch (msg) {
    case WM_DRAWITEM: {
      auto* dis = reinterpret_cast<DRAWITEMSTRUCT*>(lparam);
      std::wstring text = L"Task " + std::to_wstring(dis->itemData);
      RECT rc = dis->rcItem;
      rc.left += 1;
      DrawTextW(dis->hDC, text.c_str(), -1, &rc, DT_SINGLELINE);
      return TRUE;
    }
    case WM_SIZE:
      MoveWindow(GetDlgItem(hwnd, 1), 0, 0, LOWORD(lparam), HIWORD(lparam), TRUE);
      return 0;
    case WM_HOTKEY:
      DestroyWindow(hwnd);
      return 0;
    case WM_COMMAND:
      if (LOWORD(wparam) == kAsk) {
        int answer = MessageBoxW(hwnd, L"Delete?", L"Velmo UI Demo", MB_YESNO | MB_ICONQUESTION);
        SetWindowTextW(hwnd, answer == IDYES ? L"Answer: Yes" : L"Answer: No");
      } else if (LOWORD(wparam) == kExit) {
        DestroyWindow(hwnd);
      }
      return 0;
    case WM_DESTROY:
      PostQuitMessage(0);
      return 0;
    default:
      return DefWindowProcW(hwnd, msg, wparam, lparam);
  }
}

TEST(UiDemoProgram, DISABLED_Run) {
  auto screen = ui::NcursesScreen::Open();
  ASSERT_TRUE(screen) << "needs a terminal";
  ui::ScopedScreen attached(screen.get());
  WNDCLASSW wc{};
  wc.lpfnWndProc = DemoProc;
  wc.lpszClassName = L"VelmoUiDemo";
  RegisterClassW(&wc);
  HWND main = CreateWindowExW(0, L"VelmoUiDemo", L"Velmo UI Demo", WS_VISIBLE, CW_USEDEFAULT,
                              CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, nullptr, nullptr,
                              nullptr, nullptr);
  HWND list = CreateWindowExW(0, WC_LISTVIEWW, L"", WS_CHILD | WS_VISIBLE | LVS_SINGLESEL |
                                                        LVS_OWNERDRAWFIXED,
                              0, 0, 1, 1, main, reinterpret_cast<HMENU>(1), nullptr, nullptr);
  RECT rc;
  GetClientRect(main, &rc);
  MoveWindow(list, 0, 0, rc.right, rc.bottom, TRUE);
  for (int i = 0; i < 30; ++i) {
    LVITEMW item{};
    item.mask = LVIF_PARAM;
    item.iItem = i;
    item.lParam = i + 1;
    ListView_InsertItem(list, &item);
  }
  ListView_SetItemState(list, 0, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
  SetFocus(list);
  HMENU menu = CreatePopupMenu();
  AppendMenuW(menu, MF_STRING, kAsk, L"Ask");
  AppendMenuW(menu, MF_STRING, kExit, L"Exit");
  SOFTKEY left{L"Ask", kAsk, nullptr};
  SOFTKEY right{L"Menu", 0, menu};
  CreateSoftKeyBar(main, &left, &right);
  RegisterHotKey(main, 1, 0, VK_ESCAPE);
  MSG msg;
  while (GetMessageW(&msg, nullptr, 0, 0)) {
    TranslateMessage(&msg);
    DispatchMessageW(&msg);
  }
  DestroyMenu(menu);
}

TEST(UiTmuxTest, DemoRunsInARealTerminal) {
  if (std::system("command -v tmux >/dev/null 2>&1") != 0) GTEST_SKIP() << "no tmux";
  const std::string self = std::filesystem::read_symlink("/proc/self/exe").string();
  TmuxSession tmux(self + " --gtest_also_run_disabled_tests --gtest_filter=UiDemoProgram.DISABLED_Run",
                   {}, 50, 16);
  ASSERT_TRUE(tmux.WaitFor("Task 14")) << tmux.Screen();
  const std::string screen = tmux.Screen();
  EXPECT_NE(screen.find("Velmo UI Demo"), std::string::npos);
  EXPECT_EQ(screen.find("Task 15"), std::string::npos) << "14 rows fit between the lines";
  tmux.Keys(std::vector<std::string>(15, "Down"));
  ASSERT_TRUE(tmux.WaitFor("Task 16")) << "the list scrolls with the selection";
  tmux.Keys({"F2"});
  ASSERT_TRUE(tmux.WaitFor("2 Exit")) << tmux.Screen();
  tmux.Keys({"1"});
  ASSERT_TRUE(tmux.WaitFor("Delete?")) << tmux.Screen();
  tmux.Keys({"F1"});
  ASSERT_TRUE(tmux.WaitFor("Answer: Yes")) << tmux.Screen();
  tmux.Resize(40, 10);
  // The right soft key is cut off by the narrower pane until the demo redraws.
  ASSERT_TRUE(tmux.WaitFor("Menu")) << "redrawn after the resize: " << tmux.Screen();
  EXPECT_NE(tmux.Screen().find("Ask"), std::string::npos) << tmux.Screen();
  tmux.Keys({"Escape"});
  EXPECT_TRUE(tmux.WaitForEnd()) << "Esc (a hot key of the demo) ends it: " << tmux.Screen();
}

}  // namespace
}  // namespace velmo::testing
