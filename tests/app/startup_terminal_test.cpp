// A start-up failure on a real terminal (tmux): the message box, then the end.
#include <gtest/gtest.h>

#include <fstream>
#include <string>

#include "tests/e2e/tmux_session.h"
#include "tests/support/temp_root.h"

namespace velmo::app {
namespace {

class StartupTerminalTest : public velmo::testing::DeviceTest {};

TEST_F(StartupTerminalTest, ForeignStringTableShowsAMessageBox) {
  if (std::system("command -v tmux >/dev/null 2>&1") != 0) GTEST_SKIP() << "no tmux";
  const std::string table = (root() / "foreign.txt").string();
  std::ofstream(table) << "121\tOther Program\n";
  velmo::testing::TmuxSession tmux(
      std::string(VELMO_TODO_BIN) + " 2>/dev/null; echo exit=$?; sleep 30",
      {"VELMO_ROOT=" + root().string(), "XDG_RUNTIME_DIR=" + root().string(),
       "VELMO_LANGUAGE_FILE=" + table}, 60, 16);
  ASSERT_TRUE(tmux.WaitFor("Restart the device or Reinstall")) << tmux.Screen();
  EXPECT_NE(tmux.Screen().find("Velmo ToDo List"), std::string::npos) << tmux.Screen();
  tmux.Keys({"Enter"});
  EXPECT_TRUE(tmux.WaitFor("exit=0")) << tmux.Screen();
}

}  // namespace
}  // namespace velmo::app
