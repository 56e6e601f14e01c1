// velmo-todo in terminals that draw less: a vt100 in the C locale sees ASCII
// only, with every state still shown; NO_COLOR turns every colour off.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cstdlib>
#include <string>
#include <vector>

#include "tests/e2e/tmux_session.h"
#include "tests/support/temp_root.h"

namespace velmo::testing {
namespace {

// The parameters of every SGR sequence (ESC [ ... m) of a captured screen.
std::vector<std::string> SgrParameters(const std::string& screen) {
  std::vector<std::string> parameters;
  for (size_t at = screen.find("\x1b["); at != std::string::npos; at = screen.find("\x1b[", at + 1)) {
    size_t end = screen.find_first_not_of("0123456789;:", at + 2);
    if (end == std::string::npos || screen[end] != 'm') continue;
    std::string text = screen.substr(at + 2, end - at - 2);
    for (size_t from = 0; from <= text.size();) {
      size_t to = text.find_first_of(";:", from);
      if (to == std::string::npos) to = text.size();
      parameters.push_back(text.substr(from, to - from));
      from = to + 1;
    }
  }
  return parameters;
}

class PlainTerminalTest : public DeviceTest {
 protected:
  void SetUp() override {
    if (std::system("command -v tmux >/dev/null 2>&1") != 0) GTEST_SKIP() << "no tmux";
    run_ = root().string() + "/run";
    mkdir(run_.c_str(), 0700);
    // Tasks in every state the list colours: overdue, future, completed, undated.
    const std::string velmo = std::string(VELMO_BIN) + " --root '" + root().string() + "' ";
    CommandOutput(velmo + "add 'Pay rent' --due 2020-01-01");
    CommandOutput(velmo + "add 'Visit Zoe' --start 2099-01-01 --due 2099-01-02");
    CommandOutput(velmo + "add 'Old news' --due 2020-01-01 --complete");
    CommandOutput(velmo + "add 'Caf\xC3\xA9 someday' --priority low");
  }

  // velmo-todo with the variables given, the terminal's own left to tmux.
  TmuxSession Start(const std::string& env) {
    return TmuxSession("env " + env + " VELMO_ROOT='" + root().string() +
                           "' XDG_RUNTIME_DIR='" + run_ + "' " + VELMO_TODO_BIN,
                       {}, 60, 16);
  }

  std::string run_;
};

TEST_F(PlainTerminalTest, AVt100InTheCLocaleSeesAsciiMarksOnly) {
  TmuxSession tmux = Start("TERM=vt100 LANG=C LC_ALL=C");
  ASSERT_TRUE(tmux.WaitFor("Pay rent")) << tmux.Screen();
  tmux.Keys({"F2"});  // the menu, in its frame
  ASSERT_TRUE(tmux.WaitFor("+-")) << tmux.Screen();
  const std::string screen = tmux.Screen();
  for (unsigned char c : screen) ASSERT_LT(c, 0x80) << screen;
  EXPECT_NE(screen.find("Cafe someday"), std::string::npos) << screen;
  // A vt100 has no colours: the row's state is its mark.
  EXPECT_NE(screen.find("!Pay rent"), std::string::npos) << screen;
  EXPECT_NE(screen.find("+Visit Zoe"), std::string::npos) << screen;
}

TEST_F(PlainTerminalTest, NoColorDrawsNoColour) {
  TmuxSession tmux = Start("TERM=xterm-256color LANG=C.UTF-8 NO_COLOR=1");
  ASSERT_TRUE(tmux.WaitFor("Pay rent")) << tmux.Screen();
  const std::string screen = tmux.Screen(true);
  for (const std::string& parameter : SgrParameters(screen)) {
    int n = std::atoi(parameter.c_str());
    bool colour = (n >= 30 && n <= 48 && n != 39) || (n >= 90 && n <= 107);
    EXPECT_FALSE(colour) << "SGR " << parameter << " in:\n" << screen;
  }
  EXPECT_NE(tmux.Screen().find("!Pay rent"), std::string::npos) << tmux.Screen();
}

}  // namespace
}  // namespace velmo::testing
