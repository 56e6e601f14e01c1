// A start-up failure on a real terminal (tmux): the message box, then the end.
#include <gtest/gtest.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <fstream>
#include <string>
#include <thread>

#include "tests/support/temp_root.h"

namespace velmo::app {
namespace {

class TmuxSession {
 public:
  TmuxSession() : socket_("velmo-startup-" + std::to_string(getpid())) {}
  ~TmuxSession() { Run("kill-server 2>/dev/null"); }
  int Run(const std::string& args) { return std::system(("tmux -L " + socket_ + " " + args).c_str()); }
  std::string Capture() {
    std::string out;
    FILE* p = popen(("tmux -L " + socket_ + " capture-pane -p -t start 2>/dev/null").c_str(), "r");
    if (!p) return out;
    char buffer[4096];
    for (size_t n; (n = fread(buffer, 1, sizeof buffer, p)) > 0;) out.append(buffer, n);
    pclose(p);
    return out;
  }
  bool WaitFor(const std::string& text) {
    for (int i = 0; i < 500; ++i) {
      if (Capture().find(text) != std::string::npos) return true;
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return false;
  }

 private:
  std::string socket_;
};

class StartupTerminalTest : public velmo::testing::DeviceTest {};

TEST_F(StartupTerminalTest, ForeignStringTableShowsAMessageBox) {
  if (std::system("command -v tmux >/dev/null 2>&1") != 0) GTEST_SKIP() << "no tmux";
  const std::string table = (root() / "foreign.txt").string();
  std::ofstream(table) << "121\tOther Program\n";
  TmuxSession tmux;
  const std::string command = "env VELMO_ROOT=" + root().string() + " XDG_RUNTIME_DIR=" +
                              root().string() + " VELMO_LANGUAGE_FILE=" + table + " " +
                              VELMO_TODO_BIN + " 2>/dev/null; echo exit=$?; sleep 30";
  ASSERT_EQ(tmux.Run("new-session -d -s start -x 60 -y 16 '" + command + "'"), 0);
  ASSERT_TRUE(tmux.WaitFor("Restart the device or Reinstall")) << tmux.Capture();
  EXPECT_NE(tmux.Capture().find("Velmo ToDo List"), std::string::npos) << tmux.Capture();
  tmux.Run("send-keys -t start Enter");
  EXPECT_TRUE(tmux.WaitFor("exit=0")) << tmux.Capture();
}

}  // namespace
}  // namespace velmo::app
