// velmo-todo as a new user meets it, in a real terminal (tmux): the welcome
// task, a task typed into the entry bar, its priority, its completion, the
// views on the number keys, the category filter on the volume keys, a second
// start handing a task over, and the back key leaving the program.
#include <gtest/gtest.h>
#include <stdlib.h>
#include <sys/stat.h>

#include <sstream>

#include "app/shortcut_actions.h"
#include "app/shortcut_keys.h"
#include "settings/settings.h"
#include "tests/e2e/tmux_session.h"
#include "tests/e2e/device_end_to_end.h"

namespace velmo::testing {
namespace {

class EndToEndTest : public DeviceEndToEndTest {
 protected:
  // The identifier of the task with that subject, from the companion's list.
  std::string OidOf(const std::string& subject) const {
    const std::string line = ListLine(subject);
    return line.substr(0, line.find('\t'));
  }
  // The background colour sequence in force where the screen shows `text`.
  static std::string Background(const std::string& screen, const std::string& text) {
    const size_t at = screen.rfind("\x1b[48;", screen.find(text));
    return at == std::string::npos ? "" : screen.substr(at, screen.find('m', at) - at);
  }
};

TEST_F(EndToEndTest, ANewUsersFirstSession) {
  Settings settings;
  LoadSettings(settings);
  settings.shortcuts[kSlotBackKey] = kBackKeyDefaultViewOrExit;
  ASSERT_EQ(SaveSettings(settings), ERROR_SUCCESS);

  TmuxSession tmux(VELMO_TODO_BIN, Env());
  ASSERT_TRUE(tmux.WaitFor("Tasks [1]")) << tmux.Screen();
  EXPECT_TRUE(tmux.WaitFor("Velmo ToDo List")) << "the welcome task";

  tmux.Keys({"Up"});  // from the first task into the entry bar
  ASSERT_TRUE(tmux.WaitFor("Done")) << tmux.Screen();
  tmux.Type("Buy milk");
  tmux.Keys({"Down"});
  ASSERT_TRUE(tmux.WaitFor("Tasks [2]")) << tmux.Screen();
  EXPECT_TRUE(tmux.WaitFor("Buy milk"));

  tmux.Keys({"F2", "2", "6", "1"});  // Menu, Task, Priority, High
  EXPECT_TRUE(tmux.WaitFor("!")) << tmux.Screen();
  tmux.Keys({"F1"});  // the left soft key: Complete
  EXPECT_TRUE(tmux.WaitFor("Activate")) << tmux.Screen();

  const std::pair<const char*, const char*> views[] = {
      {"5", "Completed [1]"}, {"2", "Overdue [0]"}, {"1", "Tasks [2]"}};
  for (auto [key, title] : views) {
    tmux.Keys({key});
    EXPECT_TRUE(tmux.WaitFor(title)) << key << "\n" << tmux.Screen();
  }

  Velmo("add 'Call Ann' --categories Work");  // another program adds a task
  ASSERT_TRUE(tmux.WaitFor("Tasks [3]")) << tmux.Screen();
  const std::pair<const char*, const char*> steps[] = {
      {"F5", "No Category [2]"}, {"F5", "Work [1]"}, {"F5", "Tasks [3]"}, {"PageUp", "Work [1]"}};
  for (auto [key, title] : steps) {
    tmux.Keys({key});
    EXPECT_TRUE(tmux.WaitFor(title)) << key << "\n" << tmux.Screen();
  }

  const std::string welcome = OidOf("Velmo ToDo List");
  ASSERT_NE(welcome, "");
  EXPECT_EQ(CommandOutput(std::string("XDG_RUNTIME_DIR='") + run_ + "' VELMO_ROOT='" +
                          root().string() + "' " + VELMO_TODO_BIN + " " + welcome +
                          " </dev/null; echo $?"), "0\n");
  ASSERT_TRUE(tmux.WaitFor("Tasks [3]")) << "the default view, to show the task";
  const std::string screen = tmux.Screen(true);
  EXPECT_NE(Background(screen, "Velmo ToDo List"), Background(screen, "Call Ann"))
      << "the handed-over task is the selected one";
  EXPECT_EQ(Background(screen, "Buy milk"), Background(screen, "Call Ann"));

  tmux.Keys({"2"});
  ASSERT_TRUE(tmux.WaitFor("Overdue [0]"));
  tmux.Keys({"Escape"});  // the default view first
  EXPECT_TRUE(tmux.WaitFor("Tasks [3]")) << tmux.Screen();
  tmux.Keys({"Escape"});  // then out
  EXPECT_TRUE(tmux.WaitForEnd()) << tmux.Screen();
}

}  // namespace
}  // namespace velmo::testing
