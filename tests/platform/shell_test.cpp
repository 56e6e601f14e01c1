#include <gtest/gtest.h>

#include <filesystem>

#include "platform/lasterror.h"
#include "platform/shell.h"
#include "tests/app/child_process.h"
#include "tests/support/temp_root.h"

namespace velmo {
namespace {

using ShellTest = testing::DeviceTest;
using testing::WaitForFile;

TEST_F(ShellTest, ArgumentsReachTheProgramAsTheyAreAndFailuresAreReported) {
  // Text a shell would expand or split names one file, exactly.
  const std::filesystem::path file = root() / "a b;$(echo x) 'q' *";
  ASSERT_TRUE(shell::Spawn({L"touch", file.wstring()}));
  EXPECT_TRUE(WaitForFile(file));
  struct Case { std::vector<std::wstring> argv; DWORD error; } cases[] = {
      {{}, ERROR_INVALID_PARAMETER},
      {{L""}, ERROR_INVALID_PARAMETER},
      {{L"velmo-no-such-program"}, ERROR_FILE_NOT_FOUND},
      {{file.wstring()}, ERROR_FILE_NOT_FOUND},  // not executable
  };
  for (const Case& c : cases) {
    EXPECT_FALSE(shell::Spawn(c.argv));
    EXPECT_EQ(GetLastError(), c.error);
  }
}

TEST_F(ShellTest, OpenHandsTheFileToTheOpener) {
  setenv("VELMO_OPENER", "touch", 1);
  const std::wstring file = (root() / "opened.txt").wstring();
  SHELLEXECUTEINFO info{sizeof info};
  info.lpVerb = L"open";
  info.lpFile = file.c_str();
  EXPECT_TRUE(ShellExecuteEx(&info));
  EXPECT_TRUE(WaitForFile(root() / "opened.txt"));
  info.lpVerb = L"print";
  EXPECT_FALSE(ShellExecuteEx(&info));
  EXPECT_EQ(GetLastError(), ERROR_INVALID_PARAMETER);
  unsetenv("VELMO_OPENER");
}

}  // namespace
}  // namespace velmo
