// Categories and search in a real terminal (tmux): a task given two new
// categories through "Change Categories...", the list filtered on both with
// "Multiple...", and a word of the task's notes searched for.
#include <gtest/gtest.h>
#include <stdlib.h>
#include <sys/stat.h>

#include <chrono>
#include <sstream>
#include <thread>

#include "tests/e2e/tmux_session.h"
#include "tests/e2e/device_end_to_end.h"

namespace velmo::testing {
namespace {

class CategoriesSearchEndToEndTest : public DeviceEndToEndTest {
 protected:
  // The first background colour drawn on the row that shows `text`.
  static std::string Background(const std::string& screen, const std::string& text) {
    std::istringstream rows(screen);
    for (std::string row; std::getline(rows, row);) {
      if (row.find(text) == std::string::npos) continue;
      const size_t at = row.find("48;");
      return at == std::string::npos ? "" : row.substr(at, row.find('m', at) - at);
    }
    return "";
  }
  // Moves the selection up (the welcome task, last, is selected at start)
  // until it is on the row of `subject`: the selected row is the one whose
  // background is not that of the entry box. Each step waits a moment for the
  // screen to show it.
  static bool Select(TmuxSession& tmux, const std::string& subject) {
    for (int step = 0; step < 4; ++step) {
      for (int look = 0; look < 20; ++look) {
        const std::string screen = tmux.Screen(true);
        if (Background(screen, subject) != Background(screen, "Enter new task here")) return true;
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
      }
      tmux.Keys({"Up"});
    }
    return false;
  }
};

TEST_F(CategoriesSearchEndToEndTest, TwoCategoriesGivenFilteredOnAndANotesWordFound) {
  Velmo("add 'Plan the trip' --notes 'Book the ferry to the island'");
  Velmo("add 'Buy milk'");
  TmuxSession tmux(VELMO_TODO_BIN, Env());
  ASSERT_TRUE(tmux.WaitFor("Tasks [3]")) << tmux.Screen();
  ASSERT_TRUE(Select(tmux, "Plan the trip")) << tmux.Screen(true);

  tmux.Keys({"F2", "2"});  // Menu, Task
  for (int i = 0; i < 9; ++i) tmux.Keys({"Down"});
  tmux.Keys({"Enter"});  // "Change Categories..."
  ASSERT_TRUE(tmux.WaitFor("Categories [0/0]")) << tmux.Screen();
  tmux.Keys({"F2", "2"});  // "New Category..."
  ASSERT_TRUE(tmux.WaitFor("Category name:")) << tmux.Screen();
  tmux.Type("Travel, Family");
  tmux.Keys({"Enter"});
  ASSERT_TRUE(tmux.WaitFor("Categories [1/2]")) << tmux.Screen();
  tmux.Keys({"Down", "Enter"});  // tick Travel too
  ASSERT_TRUE(tmux.WaitFor("Categories [2/2]")) << tmux.Screen();
  tmux.Keys({"F1"});
  ASSERT_TRUE(tmux.WaitFor("Tasks [3]")) << tmux.Screen();
  EXPECT_NE(ListLine("Plan the trip").find("Family,Travel"), std::string::npos) << Velmo("list");

  tmux.Keys({"F2", "4", "5"});  // Menu, Filter, "Multiple..."
  ASSERT_TRUE(tmux.WaitFor("Categories [0/3]")) << tmux.Screen();
  tmux.Keys({"Down", "Enter", "Down", "Enter"});
  ASSERT_TRUE(tmux.WaitFor("Categories [2/3]")) << tmux.Screen();
  tmux.Keys({"F1"});
  ASSERT_TRUE(tmux.WaitFor("Multiple Cat. [1]")) << tmux.Screen();
  EXPECT_NE(tmux.Screen().find("Plan the trip"), std::string::npos) << tmux.Screen();
  EXPECT_EQ(tmux.Screen().find("Buy milk"), std::string::npos) << tmux.Screen();

  tmux.Keys({"F2", "3", "9"});  // Menu, View, "Search..."
  ASSERT_TRUE(tmux.WaitFor("Find what:")) << tmux.Screen();
  tmux.Type("ferry");
  tmux.Keys({"F1"});
  ASSERT_TRUE(tmux.WaitFor("Search [1] Multiple")) << tmux.Screen();
  EXPECT_NE(tmux.Screen().find("Plan the trip"), std::string::npos) << tmux.Screen();
}

}  // namespace
}  // namespace velmo::testing
