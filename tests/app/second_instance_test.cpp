// A second start waits a bounded time on the running instance and says in words
// why its request was not handed over.
#include "app/second_instance.h"

#include <gtest/gtest.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <unistd.h>

#include <chrono>
#include <string>

#include "app/startup.h"
#include "platform/ipc.h"
#include "tests/support/temp_root.h"

namespace velmo::app {
namespace {

class SecondInstanceTest : public velmo::testing::DeviceTest {
 protected:
  void SetUp() override {
    const std::string runtime = root().string() + "/run";
    mkdir(runtime.c_str(), 0700);
    setenv("XDG_RUNTIME_DIR", runtime.c_str(), 1);
    ipc::SetLogSink([](const std::string&) {});
  }
  void TearDown() override {
    ipc::SetLogSink(nullptr);
    unsetenv("XDG_RUNTIME_DIR");
  }
};

TEST_F(SecondInstanceTest, AnInstanceThatCannotTakeTheRequestIsSaidInWordsInTime) {
  HANDLE mutex = CreateMutexW(nullptr, FALSE, kInstanceMutexName);
  ASSERT_NE(mutex, nullptr);
  ipc::Listener frozen;  // listens, but its loop never comes round to read
  struct Case {
    bool listening;
    StartRequest start;
    const wchar_t* said;
  } cases[] = {
      {false, {kCmdNewTask, 0}, L"cannot be reached"},
      {true, {kCmdNewTask, 0}, L"did not answer within 1 seconds"},
      {true, {kNoRequest, 0}, L"did not answer within 1 seconds"},  // dialogs dismissed
      {true, {kNoRequest, 1234}, L"did not answer within 1 seconds"},
  };
  for (const Case& c : cases) {
    if (c.listening && !frozen.IsOpen()) {
      ASSERT_TRUE(frozen.Open(kMainWindowClass));
    }
    const auto start = std::chrono::steady_clock::now();
    const std::wstring reason = HandOverToRunningInstance(c.start, {200, 300});
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(4));
    EXPECT_NE(reason.find(c.said), std::wstring::npos) << c.said;
    EXPECT_NE(reason.find(L"(process " + std::to_wstring(getpid()) + L")"), std::wstring::npos);
    EXPECT_NE(reason.find(L"Your request was not handed over."), std::wstring::npos);
  }
  CloseHandle(mutex);
}

}  // namespace
}  // namespace velmo::app
