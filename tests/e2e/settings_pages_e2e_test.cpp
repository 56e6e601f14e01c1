// The settings pages in a real terminal (tmux): "Show completed tasks" and
// "Same sort for all views" change the list as soon as the Views page is
// done, "Pending color:" recolours a task due today, "Preview pane (Notes):"
// shows the selected task's notes under the list, and "Reset Settings" undoes
// all of it.
#include <gtest/gtest.h>
#include <stdlib.h>
#include <sys/stat.h>

#include <chrono>
#include <ctime>
#include <sstream>
#include <thread>

#include "tests/e2e/tmux_session.h"
#include "tests/e2e/device_end_to_end.h"

namespace velmo::testing {
namespace {

constexpr char kBlue[] = "38;5;21";      // the default "Pending color:"
constexpr char kFuchsia[] = "38;5;201";  // the next colour of its list

std::string DateIn(int days) {
  std::time_t t = std::time(nullptr) + days * 24 * 3600;
  char text[16];
  std::strftime(text, sizeof text, "%Y-%m-%d", std::localtime(&t));
  return text;
}

class SettingsPagesEndToEndTest : public DeviceEndToEndTest {
 protected:
  std::vector<std::string> Env() const {
    std::vector<std::string> env = DeviceEndToEndTest::Env();
    env.push_back("TERM=xterm-256color");
    return env;
  }

  // Waits until `first` shows on a line above `second`.
  static bool WaitForOrder(const TmuxSession& tmux, const std::string& first, const std::string& second) {
    for (int look = 0; look < 100; ++look) {
      const std::string screen = tmux.Screen();
      const size_t a = screen.find(first), b = screen.find(second);
      if (a != std::string::npos && b != std::string::npos && a < b) return true;
      std::this_thread::sleep_for(std::chrono::milliseconds(50));
    }
    return false;
  }
  // Waits until the row showing `text` is drawn with the colour `sgr`.
  static bool WaitForColour(const TmuxSession& tmux, const std::string& text, const std::string& sgr) {
    for (int look = 0; look < 100; ++look) {
      std::istringstream rows(tmux.Screen(true));
      for (std::string row; std::getline(rows, row);) {
        const size_t at = row.find(text);
        if (at == std::string::npos) continue;
        const size_t colour = row.rfind("38;5;", at);
        if (colour != std::string::npos && row.compare(colour, sgr.size(), sgr) == 0) return true;
      }
      std::this_thread::sleep_for(std::chrono::milliseconds(50));
    }
    return false;
  }
  static bool WaitUntilGone(const TmuxSession& tmux, const std::string& text) {
    for (int look = 0; look < 100; ++look) {
      if (tmux.Screen().find(text) == std::string::npos) return true;
      std::this_thread::sleep_for(std::chrono::milliseconds(50));
    }
    return false;
  }
};

TEST_F(SettingsPagesEndToEndTest, ViewsAndAppearanceApplyAtOnceAndResetUndoesThem) {
  Velmo("add 'Alpha errand' --due " + DateIn(0) + " --priority low --notes 'Bring the receipt'");
  Velmo("add 'Beta errand' --due " + DateIn(3) + " --priority high --notes 'Bring the receipt'");
  Velmo("add 'Old chore' --complete");
  TmuxSession tmux(VELMO_TODO_BIN, Env());
  ASSERT_TRUE(tmux.WaitFor("Old chore")) << tmux.Screen();

  // Views: "Show completed tasks" off hides the completed task at once.
  tmux.Keys({"F2", "7", "2"});
  ASSERT_TRUE(tmux.WaitFor("Same sort for all views")) << tmux.Screen();
  tmux.Keys({"Space", "F1"});
  ASSERT_TRUE(WaitUntilGone(tmux, "Old chore")) << tmux.Screen();

  // The Active view sorts by due date; one sort for all views sorts it by
  // priority as All Tasks does.
  tmux.Keys({"4"});
  ASSERT_TRUE(WaitForOrder(tmux, "Alpha errand", "Beta errand")) << tmux.Screen();
  tmux.Keys({"F2", "7", "2"});
  ASSERT_TRUE(tmux.WaitFor("Same sort for all views")) << tmux.Screen();
  for (int i = 0; i < 6; ++i) tmux.Keys({"Down"});
  tmux.Keys({"Space", "F1"});
  ASSERT_TRUE(WaitForOrder(tmux, "Beta errand", "Alpha errand")) << tmux.Screen();

  // Appearance: the task due today takes the new "Pending color:"; the
  // notes pane shows the selected task's notes.
  ASSERT_TRUE(WaitForColour(tmux, "Alpha errand", kBlue)) << tmux.Screen(true);
  EXPECT_EQ(tmux.Screen().find("Bring the receipt"), std::string::npos);
  tmux.Keys({"F2", "7", "5"});
  ASSERT_TRUE(tmux.WaitFor("Pending color:")) << tmux.Screen();
  tmux.Keys({"Right"});
  for (int i = 0; i < 7; ++i) tmux.Keys({"Down"});
  tmux.Keys({"Right", "F1"});  // "Preview pane (Notes):" Small
  ASSERT_TRUE(WaitForColour(tmux, "Alpha errand", kFuchsia)) << tmux.Screen(true);
  ASSERT_TRUE(tmux.WaitFor("Welcome to Velmo ToDo List!")) << tmux.Screen();  // selected
  tmux.Keys({"Up"});  // onto "Beta errand", first by priority
  ASSERT_TRUE(tmux.WaitFor("Bring the receipt")) << tmux.Screen();

  // Reset Settings, the Views and Appearance groups: all of it undone.
  tmux.Keys({"F2", "7", "8"});
  ASSERT_TRUE(tmux.WaitFor("Restore the defaults of:")) << tmux.Screen();
  tmux.Keys({"Down", "Space", "Down", "Down", "Down", "Space", "F1"});
  ASSERT_TRUE(WaitForOrder(tmux, "Alpha errand", "Beta errand")) << tmux.Screen();
  ASSERT_TRUE(WaitForColour(tmux, "Alpha errand", kBlue)) << tmux.Screen(true);
  ASSERT_TRUE(WaitUntilGone(tmux, "Bring the receipt")) << tmux.Screen();
  tmux.Keys({"1"});
  ASSERT_TRUE(tmux.WaitFor("Old chore")) << tmux.Screen();
  EXPECT_NE(Velmo("reg export").find("\"ShowCompleted\"=dword:00000001"), std::string::npos);
}

}  // namespace
}  // namespace velmo::testing
