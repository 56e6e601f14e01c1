// The running instance's side of the hand-over inside the window system: a
// request of another process reaches the main window as WM_COPYDATA, and the
// dismissal closes the dialogs along the owner chain.
#include <gtest/gtest.h>
#include <stdlib.h>
#include <sys/stat.h>

#include <atomic>
#include <chrono>
#include <thread>

#include "app/dismiss_dialogs.h"
#include "app/handover.h"
#include "app/handover_channel.h"
#include "app/startup.h"
#include "platform/ipc.h"
#include "tests/support/temp_root.h"
#include "tests/ui/ui_fixture.h"

namespace velmo::app {
namespace {

class HandoverChannelTest : public velmo::testing::UiTest {
 protected:
  HandoverChannelTest() {
    runtime_ = root_.path().string() + "/run";
    mkdir(runtime_.c_str(), 0700);
    setenv("XDG_RUNTIME_DIR", runtime_.c_str(), 1);
  }
  ~HandoverChannelTest() override {
    CloseHandoverChannel();
    unsetenv("XDG_RUNTIME_DIR");
  }

  // Runs the loop while `work` runs on another thread (a second instance).
  template <typename Work>
  void WhileLooping(Work work) {
    std::atomic<bool> done{false};
    std::thread sender([&] {
      work();
      done = true;
    });
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(5);
    while (!done && std::chrono::steady_clock::now() < end) {
      Pump();
      std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
    sender.join();
  }

  std::vector<HWND> Cancelled() const {
    std::vector<HWND> out;
    for (const velmo::testing::Received& r : Of(WM_COMMAND))
      if (r.wparam == IDCANCEL) out.push_back(r.hwnd);
    return out;
  }

  velmo::testing::TempRoot root_;
  std::string runtime_;
};

TEST_F(HandoverChannelTest, RequestReachesTheMainWindowAsCopyData) {
  HWND main = MakeMain(kMainWindowClass);
  EXPECT_EQ(FindWindowW(kMainWindowClass, nullptr), nullptr);
  ASSERT_TRUE(OpenHandoverChannel(main));
  HandoverRequest decoded;
  handlers_[WM_COPYDATA] = [&](HWND, UINT, WPARAM, LPARAM lparam, bool*) -> LRESULT {
    const auto* record = reinterpret_cast<const COPYDATASTRUCT*>(lparam);
    decoded = DecodeHandover(record->dwData, record->cbData,
                             static_cast<const BYTE*>(record->lpData), record->cbData);
    return 7;
  };
  LRESULT result = 0;
  WhileLooping([&] {
    HWND window = FindWindowW(kMainWindowClass, nullptr);
    OutgoingHandover out;
    BuildHandover({kNoRequest, 4000000000u}, &out);
    result = ipc::SendMessageW(window, WM_COPYDATA, 0, reinterpret_cast<LPARAM>(&out.record));
  });
  EXPECT_EQ(result, 7);
  ASSERT_EQ(Of(WM_COPYDATA).size(), 1u);
  EXPECT_EQ(Of(WM_COPYDATA)[0].hwnd, main);
  EXPECT_EQ(decoded.code, kHandoverSelect);
  EXPECT_EQ(decoded.task_oid, 4000000000u);

  CloseHandoverChannel();
  EXPECT_EQ(FindWindowW(kMainWindowClass, nullptr), nullptr);
}

TEST_F(HandoverChannelTest, DismissalCancelsTheOwnerChainUpToTheMainWindow) {
  HWND main = MakeMain(kMainWindowClass);
  MakeMain(L"Dialog", main);  // owned by the main window, but not on top
  HWND dialog = MakeMain(L"Dialog", main);
  HWND inner = MakeMain(L"Dialog", dialog);
  ASSERT_TRUE(OpenHandoverChannel(main));
  BOOL dismissed = FALSE;
  WhileLooping([&] { dismissed = ipc::DismissDialogs(FindWindowW(kMainWindowClass, nullptr)); });
  EXPECT_TRUE(dismissed);
  EXPECT_EQ(Cancelled(), (std::vector<HWND>{inner, dialog}));
}

TEST_F(HandoverChannelTest, NothingToDismissWhenTheMainWindowIsOnTop) {
  HWND main = MakeMain(kMainWindowClass);
  DismissOpenDialogs(main);
  EXPECT_TRUE(Cancelled().empty());
  // A window without an owner ends the chain as well.
  HWND lone = MakeMain(L"Other");
  DismissOpenDialogs(main);
  EXPECT_EQ(Cancelled(), (std::vector<HWND>{lone}));
}

}  // namespace
}  // namespace velmo::app
