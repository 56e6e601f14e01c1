// A task given its dates, a reminder, a weekly recurrence and notes in the
// editor, in a real terminal (tmux), with the default settings: from the list
// to the summary, "Edit", Done, the row changed, the editor opened again on
// what was saved, and the record as the companion command lists it.
#include <gtest/gtest.h>
#include <stdlib.h>
#include <sys/stat.h>

#include <ctime>
#include <sstream>

#include "tests/e2e/tmux_session.h"
#include "tests/e2e/device_end_to_end.h"

namespace velmo::testing {
namespace {

class EditorEndToEndTest : public DeviceEndToEndTest {
 protected:
  // Today plus `days` as YYYY-MM-DD, and its weekday's name.
  static std::string Day(int days, const char* format = "%Y-%m-%d") {
    std::time_t now = std::time(nullptr) + days * 86400;
    char text[32];
    std::strftime(text, sizeof text, format, std::localtime(&now));
    return text;
  }
};

TEST_F(EditorEndToEndTest, DatesReminderRecurrenceAndNotesGivenInTheEditor) {
  TmuxSession tmux(VELMO_TODO_BIN, Env());
  ASSERT_TRUE(tmux.WaitFor("Tasks [1]")) << tmux.Screen();
  tmux.Keys({"Up"});
  tmux.Type("Water the garden");
  tmux.Keys({"Down"});
  ASSERT_TRUE(tmux.WaitFor("Tasks [2]")) << tmux.Screen();
  const std::string row_before = RowWith(tmux.Screen(), "Water the garden");

  tmux.Keys({"Enter"});  // the summary of the new, selected task
  ASSERT_TRUE(tmux.WaitFor("Edit")) << tmux.Screen();
  tmux.Keys({"F1"});
  ASSERT_TRUE(tmux.WaitFor("Edit Task")) << tmux.Screen();

  tmux.Keys({"Down", "F2", "3"});  // start: Menu, Today
  tmux.Keys({"Down", "F2", "4"});  // due: Menu, Tomorrow
  tmux.Keys({"Down", "F2", "4"});  // reminder: Menu, Tomorrow
  tmux.Keys({"Down", "Right", "Right"});  // Occurs: "Every <today's weekday>"
  const std::string every = "Every " + Day(0, "%A");
  ASSERT_TRUE(tmux.WaitFor(every)) << tmux.Screen();
  for (int i = 0; i < 6; ++i) tmux.Keys({"Down"});  // categories, priority, the boxes, notes
  tmux.Type("Bring the hose");
  ASSERT_TRUE(tmux.WaitFor("Bring the hose")) << tmux.Screen();
  tmux.Keys({"F1"});  // Done
  ASSERT_TRUE(tmux.WaitFor("Tasks [2]")) << tmux.Screen();
  EXPECT_NE(RowWith(tmux.Screen(), "Water the garden"), row_before) << tmux.Screen();

  const std::string line = ListLine("Water the garden");
  EXPECT_NE(line.find("\t" + Day(0) + "\t" + Day(1) + "\t" + Day(1) + "T"), std::string::npos)
      << line;

  tmux.Keys({"Enter"});
  ASSERT_TRUE(tmux.WaitFor("Edit")) << tmux.Screen();
  tmux.Keys({"F1"});
  ASSERT_TRUE(tmux.WaitFor("Edit Task")) << tmux.Screen();
  EXPECT_TRUE(tmux.WaitFor(every)) << tmux.Screen();
  EXPECT_TRUE(tmux.WaitFor("Bring the hose")) << tmux.Screen();
  EXPECT_TRUE(tmux.WaitFor("Water the garden")) << tmux.Screen();
  tmux.Keys({"Escape"});
  EXPECT_TRUE(tmux.WaitFor("Tasks [2]")) << tmux.Screen();
}

}  // namespace
}  // namespace velmo::testing
