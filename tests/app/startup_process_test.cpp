// The program's start-up as processes: one instance running, others handing
// their requests over, the after-synchronisation start, failed starts.
#include <gtest/gtest.h>
#include <signal.h>
#include <stdlib.h>
#include <sys/stat.h>

#include <fstream>

#include "platform/registry.h"
#include "tests/app/child_process.h"
#include "tests/support/temp_root.h"

namespace velmo::app {
namespace {

using velmo::testing::ChildProcess;
using velmo::testing::RunToEnd;

class StartupProcessTest : public velmo::testing::DeviceTest {
 protected:
  void SetUp() override {
    const std::string run = root().string() + "/run";
    mkdir(run.c_str(), 0700);
    setenv("XDG_RUNTIME_DIR", run.c_str(), 1);
  }
  void TearDown() override { unsetenv("XDG_RUNTIME_DIR"); }

  // True when the settings key holds the value.
  static bool HasSetting(const wchar_t* name) {
    HKEY key = nullptr;
    if (RegOpenKeyExW(HKEY_CURRENT_USER, L"Software\\Velmo ToDo", 0, KEY_READ, &key) !=
        ERROR_SUCCESS)
      return false;
    DWORD size = 0;
    const LONG rc = RegQueryValueExW(key, name, nullptr, nullptr, nullptr, &size);
    RegCloseKey(key);
    return rc == ERROR_SUCCESS;
  }
};

TEST_F(StartupProcessTest, SecondInstanceHandsItsRequestOver) {
  ChildProcess first(VELMO_TODO_BIN, {"-today"});
  ASSERT_TRUE(first.started());
  ASSERT_NE(first.WaitForLine("tasks: 0"), "") << first.error_output();
  ASSERT_EQ(first.WaitForLine("start:"), "start: request=40054 oid=0");

  struct Case {
    std::vector<std::string> args;
    const char* printed;
  } cases[] = {
      {{"-today"}, "hand-over: code=2"},
      {{"-default"}, "hand-over: code=3"},
      {{"-new"}, "hand-over: code=4"},
      {{"12345", "-new"}, "hand-over: code=0 oid=12345"},
      {{"4294967295"}, "hand-over: code=0 oid=4294967295"},
      {{"AppRunAfterSync"}, "hand-over: code=100 ignored"},
      {{}, "hand-over: dismiss dialogs"},
      {{"apprunaftersync"}, "hand-over: dismiss dialogs"},
  };
  for (const Case& c : cases) {
    std::string errors;
    EXPECT_EQ(RunToEnd(VELMO_TODO_BIN, c.args, &errors), 0) << errors;
    // The hand-over is synchronous: the line is out before the second one ends.
    EXPECT_EQ(first.WaitForLine("hand-over:", std::chrono::milliseconds(2000)), c.printed);
  }
  first.CloseInput();
  EXPECT_EQ(first.Wait(), 0);
  EXPECT_EQ(first.error_output().find("refused"), std::string::npos) << first.error_output();

  // With the first one gone, the next start is the first instance again.
  ChildProcess again(VELMO_TODO_BIN, {"77"});
  EXPECT_EQ(again.WaitForLine("start:"), "start: request=-1 oid=77");
  again.Signal(SIGTERM);
  EXPECT_EQ(again.Wait(), 0);
}

TEST_F(StartupProcessTest, FirstNormalStartSavesEverySetting) {
  ChildProcess first(VELMO_TODO_BIN, {});
  ASSERT_NE(first.WaitForLine("start:"), "") << first.error_output();
  first.Signal(SIGINT);
  EXPECT_EQ(first.Wait(), 0);
  EXPECT_TRUE(HasSetting(L"ReminderTime"));
  EXPECT_TRUE(HasSetting(L"NTxt4"));
  EXPECT_TRUE(HasSetting(L"Path"));
}

TEST_F(StartupProcessTest, AfterSyncOnAFreshRootSavesNoIncompleteSettings) {
  std::string errors;
  EXPECT_EQ(RunToEnd(VELMO_TODO_BIN, {"AppRunAfterSync"}, &errors), 0);
  EXPECT_EQ(errors, "");
  for (const wchar_t* name : {L"ReminderTime", L"Sort", L"Shortcuts", L"VersionMajor", L"Txt1"})
    EXPECT_FALSE(HasSetting(name)) << name;
}

TEST_F(StartupProcessTest, ForeignStringTableStopsTheStart) {
  const std::string table = (root() / "foreign.txt").string();
  std::ofstream(table) << "120\tOther resources\n121\tOther Program\n";
  ChildProcess start(VELMO_TODO_BIN, {}, {"VELMO_LANGUAGE_FILE=" + table});
  start.CloseInput();
  EXPECT_EQ(start.Wait(), 0);
  EXPECT_EQ(start.error_output(), "Velmo ToDo List: Restart the device\n");
  EXPECT_EQ(start.output(), "");
}

TEST_F(StartupProcessTest, UnusableDeviceRootIsNamed) {
  const std::string file = (root() / "not-a-folder").string();
  std::ofstream(file) << "x";
  ChildProcess start(VELMO_TODO_BIN, {}, {"VELMO_ROOT=" + file + "/root"});
  start.CloseInput();
  EXPECT_EQ(start.Wait(), 1);
  EXPECT_NE(start.error_output().find(file + "/root"), std::string::npos)
      << start.error_output();
}

}  // namespace
}  // namespace velmo::app
