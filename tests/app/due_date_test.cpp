// "Due Date..." over the list and in entry mode: the month calendar chooses
// the day; the selected task is saved through the commit, so its dates and
// reminder are checked as the editor checks them; a quick task gets the day
// and the reminder its menu says.
#include <functional>
#include <string>
#include <vector>

#include "app/task_changes.h"
#include "list/quick_entry.h"
#include "platform/poom.h"
#include "platform/ui/virtual_keys.h"
#include "res/command_ids.h"
#include "store/connection.h"
#include "tests/app/main_window_fixture.h"

namespace velmo::testing {
namespace {

class DueDateTest : public StartedMainWindowTest {
 protected:
  CEOID Add(DATE start, DATE due, DATE reminder) {
    const CEOID oid = AddTask(L"Dentist", [&](ITask* item) {
      item->put_StartDate(start);
      item->put_DueDate(due);
      item->put_ReminderSet(reminder == kNoDate ? VARIANT_FALSE : VARIANT_TRUE);
      if (reminder != kNoDate) item->put_ReminderTime(reminder);
    });
    EXPECT_TRUE(app::SelectTaskRow(oid));
    return oid;
  }
};

TEST_F(DueDateTest, TheSelectedTaskIsSavedThroughTheCommit) {
  struct Case {
    const char* name;
    DATE start, due, reminder;
    std::vector<UINT> keys;
    DATE due_after;
    const wchar_t* refusal;  // null: saved
  } const cases[] = {
      {"two days later", kNoDate, Day(1), Day(1, 9), {VK_RIGHT, VK_RIGHT, VK_RETURN}, Day(3), nullptr},
      {"a week later, from no due date", kNoDate, kNoDate, kNoDate, {VK_DOWN, VK_RETURN}, Day(7), nullptr},
      {"before the reminder", kNoDate, Day(3), Day(3, 9), {VK_LEFT, VK_LEFT, VK_RETURN}, Day(3),
       L"ReminderTime after DueDate"},
      {"before the start", Day(2), Day(3), kNoDate, {VK_LEFT, VK_LEFT, VK_RETURN}, Day(3),
       L"DueDate before StartDate"},
      {"cancelled", kNoDate, Day(1), kNoDate, {VK_RIGHT, VK_ESCAPE}, Day(1), nullptr},
  };
  for (const Case& c : cases) {
    const CEOID oid = Add(c.start, c.due, c.reminder);
    std::wstring said;
    screen_.AddIdleStep([&] {
      EXPECT_TRUE(screen_.Contains(L"Due Date")) << c.name;
      for (UINT key : c.keys) screen_.TypeKey(key);
    });
    if (c.refusal) {
      screen_.AddIdleStep([&] {
        said = screen_.Text();
        screen_.TypeKey(VK_RETURN);
      });
    }
    app::SendCommand(cmd::kDueDate);
    Pump();
    if (c.refusal) {
      EXPECT_NE(said.find(c.refusal), std::wstring::npos) << c.name << "\n" << said;
    }
    ASSERT_NE(Find(oid), nullptr) << c.name;
    EXPECT_EQ(Find(oid)->due_date, c.due_after) << c.name;
    if (c.reminder != kNoDate && !c.refusal) {
      EXPECT_EQ(Find(oid)->reminder_set, 1) << c.name;
      EXPECT_EQ(Find(oid)->reminder_time, c.reminder) << c.name;
    }
  }
}

TEST_F(DueDateTest, AQuickTaskGetsTheDayAndTheReminderOfItsMenu) {
  for (DWORD reminder : {1u, 0u}) {
    CurrentSettings().reminder_for_new = reminder;
    CurrentSettings().reminder_time_for_new = 9 * 60;
    app::SendCommand(cmd::kNewQuick);
    Pump();
    ASSERT_TRUE(CurrentQuickEntry().active);
    screen_.AddIdleStep([&] {
      EXPECT_TRUE(screen_.Contains(L"Due Date"));
      screen_.TypeKey(VK_RIGHT);
      screen_.TypeKey(VK_RETURN);
    });
    app::SendCommand(cmd::kDueDate);
    Pump();
    ASSERT_TRUE(CurrentQuickEntry().active) << "entry mode goes on";
    EXPECT_EQ(CurrentQuickEntry().due_date, Day(1));
    EXPECT_TRUE(QuickEntryChecked(CurrentQuickEntry(), cmd::kDueDate));
    Type(reminder ? L"Buy stamps" : L"Post letters");
    Press(VK_DOWN);
    const Task* task = app::SelectedTask();
    ASSERT_NE(task, nullptr);
    EXPECT_EQ(task->subject, reminder ? L"Buy stamps" : L"Post letters");
    EXPECT_EQ(task->due_date, Day(1));
    EXPECT_EQ(task->reminder_set, reminder);
    EXPECT_EQ(task->reminder_time, Day(1, 9)) << "the due day at the new tasks' reminder time";
  }
}

}  // namespace
}  // namespace velmo::testing
