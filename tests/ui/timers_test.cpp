#include <chrono>

#include "platform/ui/timers.h"
#include "tests/ui/ui_fixture.h"

namespace velmo::testing {
namespace {

using Clock = std::chrono::steady_clock;

class TimersTest : public UiTest {};

// Runs the loop until `count` WM_TIMER messages came; returns the time taken.
std::chrono::milliseconds RunTimers(int count, std::vector<WPARAM>* ids) {
  auto start = Clock::now();
  MSG msg;
  while (static_cast<int>(ids->size()) < count && GetMessageW(&msg, nullptr, 0, 0)) {
    if (msg.message == WM_TIMER) ids->push_back(msg.wParam);
    DispatchMessageW(&msg);
  }
  return std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - start);
}

TEST_F(TimersTest, TimerFiresEveryPeriodUntilKilled) {
  HWND main = MakeMain();
  ASSERT_EQ(SetTimer(main, 7, 20, nullptr), 7u);
  std::vector<WPARAM> ids;
  auto took = RunTimers(3, &ids);
  EXPECT_EQ(ids, (std::vector<WPARAM>{7, 7, 7}));
  EXPECT_GE(took.count(), 55);
  EXPECT_LT(took.count(), 1000);
  ASSERT_TRUE(KillTimer(main, 7));
  EXPECT_FALSE(KillTimer(main, 7));
  screen_.set_idle_limit_ms(150);
  MSG msg;
  EXPECT_FALSE(GetMessageW(&msg, nullptr, 0, 0)) << "a killed timer still fired";
}

TEST_F(TimersTest, ShorterTimerComesFirstAndSettingAgainRestartsIt) {
  HWND main = MakeMain();
  SetTimer(main, 1, 80, nullptr);
  SetTimer(main, 2, 10, nullptr);
  SetTimer(main, 2, 30, nullptr);  // replaces the 10 ms one
  std::vector<WPARAM> ids;
  auto took = RunTimers(1, &ids);
  EXPECT_EQ(ids, std::vector<WPARAM>{2});
  EXPECT_GE(took.count(), 25);
}

TEST_F(TimersTest, TimerProcIsCalledInsteadOfTheWindow) {
  static int proc_calls = 0;
  proc_calls = 0;
  UINT_PTR id = SetTimer(nullptr, 0, 5, [](HWND, UINT msg, UINT_PTR, DWORD) {
    EXPECT_EQ(msg, WM_TIMER);
    ++proc_calls;
  });
  ASSERT_NE(id, 0u);
  std::vector<WPARAM> ids;
  RunTimers(2, &ids);
  EXPECT_EQ(proc_calls, 2);
  EXPECT_EQ(ids, (std::vector<WPARAM>{id, id}));
  EXPECT_TRUE(Of(WM_TIMER).empty());
}

TEST_F(TimersTest, DestroyedWindowLosesItsTimers) {
  HWND main = MakeMain();
  SetTimer(main, 1, 5, nullptr);
  DestroyWindow(main);
  EXPECT_FALSE(KillTimer(main, 1));
  EXPECT_EQ(SetTimer(main, 1, 5, nullptr), 0u);
}

}  // namespace
}  // namespace velmo::testing
