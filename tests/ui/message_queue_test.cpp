#include <unistd.h>

#include "tests/ui/ui_fixture.h"

namespace velmo::testing {
namespace {

constexpr UINT kFirst = WM_APP + 1, kPosted = WM_APP + 2, kSent = WM_APP + 3;

class MessageQueueTest : public UiTest {};

TEST_F(MessageQueueTest, SendRunsAtOnceWhilePostWaitsItsTurn) {
  std::vector<UINT> order;
  handlers_[kFirst] = [&](HWND h, UINT m, WPARAM, LPARAM, bool*) -> LRESULT {
    order.push_back(m);
    PostMessageW(h, kPosted, 0, 0);
    EXPECT_EQ(SendMessageW(h, kSent, 0, 0), 77);
    order.push_back(m);
    return 0;
  };
  handlers_[kPosted] = [&](HWND, UINT m, WPARAM, LPARAM, bool*) -> LRESULT {
    order.push_back(m);
    return 0;
  };
  handlers_[kSent] = [&](HWND, UINT m, WPARAM, LPARAM, bool*) -> LRESULT {
    order.push_back(m);
    return 77;
  };
  HWND main = MakeMain();
  PostMessageW(main, kFirst, 0, 0);
  PostMessageW(main, kPosted, 0, 0);
  Pump();
  EXPECT_EQ(order, (std::vector<UINT>{kFirst, kSent, kFirst, kPosted, kPosted}));
}

TEST_F(MessageQueueTest, QuitComesAfterWhatWasPostedBeforeIt) {
  HWND main = MakeMain();
  PostMessageW(main, WM_COMMAND, 1, 0);
  PostQuitMessage(5);
  PostMessageW(main, WM_COMMAND, 2, 0);
  MSG msg;
  std::vector<WPARAM> seen;
  while (GetMessageW(&msg, nullptr, 0, 0)) seen.push_back(msg.wParam);
  EXPECT_EQ(seen, (std::vector<WPARAM>{1, 2}));
  EXPECT_EQ(msg.message, WM_QUIT);
  EXPECT_EQ(msg.wParam, 5u);
}

TEST_F(MessageQueueTest, PostingToAGoneWindowFails) {
  HWND main = MakeMain();
  DestroyWindow(main);
  EXPECT_FALSE(PostMessageW(main, WM_COMMAND, 1, 0));
  EXPECT_EQ(SendMessageW(main, WM_COMMAND, 1, 0), 0);
  EXPECT_FALSE(IsWindow(main));
}

TEST_F(MessageQueueTest, TranslatedCharactersComeRightAfterTheirKey) {
  HWND main = MakeMain();
  screen_.TypeText(L"a5");
  Pump();
  std::vector<std::pair<UINT, WPARAM>> keys;
  for (const Received& r : received_)
    if (r.msg == WM_KEYDOWN || r.msg == WM_CHAR) keys.emplace_back(r.msg, r.wparam);
  EXPECT_EQ(keys, (std::vector<std::pair<UINT, WPARAM>>{
                      {WM_KEYDOWN, 'A'}, {WM_CHAR, L'a'}, {WM_KEYDOWN, '5'}, {WM_CHAR, L'5'}}));
  EXPECT_EQ(Of(WM_KEYDOWN).front().hwnd, main);
}

TEST_F(MessageQueueTest, WatchedDescriptorWakesTheLoop) {
  HWND main = MakeMain();
  int fds[2];
  ASSERT_EQ(pipe(fds), 0);
  int calls = 0;
  int watch = ui::WatchFd(fds[0], [&](int fd, short) {
    char c;
    ASSERT_EQ(read(fd, &c, 1), 1);
    ++calls;
    PostMessageW(main, WM_COMMAND, static_cast<WPARAM>(c), 0);
  });
  ASSERT_GT(watch, 0);
  ASSERT_EQ(write(fds[1], "x", 1), 1);
  MSG msg;
  ASSERT_TRUE(GetMessageW(&msg, nullptr, 0, 0));
  EXPECT_EQ(msg.message, WM_COMMAND);
  EXPECT_EQ(msg.wParam, static_cast<WPARAM>('x'));
  EXPECT_EQ(calls, 1);
  ui::UnwatchFd(watch);
  close(fds[0]);
  close(fds[1]);
}

TEST_F(MessageQueueTest, IdleHookRunsWhileTheLoopWaits) {
  HWND main = MakeMain();
  int runs = 0;
  ui::AddIdleHook([&] {
    if (++runs == 3) PostMessageW(main, WM_COMMAND, 9, 0);
  }, 10);
  MSG msg;
  ASSERT_TRUE(GetMessageW(&msg, nullptr, 0, 0));
  EXPECT_EQ(msg.message, WM_COMMAND);
  EXPECT_EQ(runs, 3);
}

TEST_F(MessageQueueTest, HeadlessLoopWithNothingToWaitForStallsInsteadOfHanging) {
  MakeMain();
  MSG msg;
  EXPECT_FALSE(GetMessageW(&msg, nullptr, 0, 0));
  EXPECT_EQ(static_cast<int>(msg.wParam), ui::kStalledExitCode);
  EXPECT_TRUE(screen_.stalled());
}

TEST_F(MessageQueueTest, PeekWithoutRemovingLeavesTheMessage) {
  HWND main = MakeMain();
  PostMessageW(main, WM_COMMAND, 3, 0);
  MSG msg;
  ASSERT_TRUE(PeekMessageW(&msg, nullptr, 0, 0, PM_NOREMOVE));
  ASSERT_TRUE(PeekMessageW(&msg, nullptr, 0, 0, PM_REMOVE));
  EXPECT_EQ(msg.wParam, 3u);
  EXPECT_FALSE(PeekMessageW(&msg, nullptr, 0, 0, PM_REMOVE));
}

}  // namespace
}  // namespace velmo::testing
