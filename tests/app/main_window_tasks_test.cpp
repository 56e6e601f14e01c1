#include <functional>

#include "app/task_changes.h"
#include "platform/poom.h"
#include "platform/ui/virtual_keys.h"
#include "res/command_ids.h"
#include "store/connection.h"
#include "tests/app/main_window_fixture.h"

namespace velmo::testing {
namespace {

// The main window started on the device's tasks database; tasks are made
// through the object model. The first run's welcome task is there too.
class TasksTest : public StartedMainWindowTest {
 protected:
  CEOID Add(const wchar_t* subject, const std::function<void(ITask*)>& more = {}) {
    const CEOID oid = AddTask(subject, more);
    EXPECT_TRUE(app::SelectTaskRow(oid));
    return oid;
  }
  static void Daily(ITask* item) {
    item->put_StartDate(Day(0));
    item->put_DueDate(Day(0));
    IRecurrencePattern* pattern = nullptr;
    item->GetRecurrencePattern(&pattern);
    pattern->Release();
  }
  // Runs a command; each message box on the way is answered with the next key.
  std::vector<std::wstring> Run(UINT command, std::vector<UINT> answers = {}) {
    std::vector<std::wstring> asked;
    for (UINT key : answers) {
      screen_.AddIdleStep([&, key] {
        asked.push_back(screen_.Text());
        screen_.TypeKey(key);
      });
    }
    app::SendCommand(command);
    Pump();
    return asked;
  }
  static bool Mentions(const std::wstring& screen, const wchar_t* text) {
    return screen.find(text) != std::wstring::npos;
  }
};

TEST_F(TasksTest, CompleteAndActivateFollowTheSelectedTaskAndTheReminderSetting) {
  for (DWORD unset : {1u, 0u}) {
    CurrentSettings().del_reminder_on_complete = unset;
    const CEOID oid = Add(L"Pay rent", [](ITask* item) {
      item->put_DueDate(Day(3));
      item->put_ReminderSet(VARIANT_TRUE);
      item->put_ReminderTime(Day(3, 9));
    });
    Press(VK_TSOFT1);
    EXPECT_EQ(Find(oid)->complete, 1);
    EXPECT_EQ(Find(oid)->reminder_set, unset ? 0 : 1);
    EXPECT_TRUE(screen_.Contains(L"Activate"));
    Press(VK_TSOFT1);
    EXPECT_EQ(Find(oid)->complete, 0);
  }
}

TEST_F(TasksTest, CompletingARecurringTaskRecordsTheOccurrenceAndMovesTheSeriesOn) {
  const size_t before = Tasks().size();
  const CEOID oid = Add(L"Water plants", Daily);
  Run(cmd::kComplete);
  EXPECT_EQ(Tasks().size(), before + 2);
  EXPECT_EQ(Find(oid)->complete, 0);
  EXPECT_EQ(Find(oid)->due_date, Day(1));
  PostMessageW(window_, WM_APP + 5, oid, 0);  // the editor's deferred completion
  Pump();
  EXPECT_EQ(Tasks().size(), before + 3);
  EXPECT_EQ(Find(oid)->due_date, Day(2));
}

TEST_F(TasksTest, CreateCopyRenamesItWithTheSettingAndSelectsIt) {
  for (DWORD rename : {1u, 0u}) {
    CurrentSettings().rename_copy = rename;
    const CEOID source = Add(L"Report");
    Run(cmd::kCreateCopy);
    const Task* copy = app::SelectedTask();
    ASSERT_NE(copy, nullptr);
    EXPECT_NE(copy->oid, source);
    EXPECT_EQ(copy->subject, rename ? L"Report~" : L"Report");
    EXPECT_EQ(Find(source)->subject, L"Report");
  }
}

TEST_F(TasksTest, TeamTaskRenameAndPriorityChangeTheRecord) {
  const CEOID oid = Add(L"Plan");
  Run(cmd::kTeamTask);
  EXPECT_EQ(Find(oid)->team_task, 1);
  Run(cmd::kTeamTask);
  EXPECT_EQ(Find(oid)->team_task, 0);
  Run(cmd::kHigh);
  EXPECT_EQ(Find(oid)->importance, kImportanceHigh);
  screen_.AddIdleStep([&] {
    EXPECT_TRUE(screen_.Contains(L"Rename Task"));
    screen_.TypeText(L"!");
    screen_.TypeKey(VK_RETURN);
  });
  Run(cmd::kRename);
  EXPECT_EQ(Find(oid)->subject, L"Plan!");
}

TEST_F(TasksTest, DeleteAsksAndARecurringTaskGoesWholeOrByOneOccurrence) {
  const CEOID plain = Add(L"Old note");
  auto asked = Run(cmd::kDelete, {VK_ESCAPE});  // No
  EXPECT_TRUE(Mentions(asked[0], L"this task?")) << asked[0];
  EXPECT_NE(Find(plain), nullptr);
  Run(cmd::kDelete, {VK_RETURN});
  EXPECT_EQ(Find(plain), nullptr);

  const size_t before = Tasks().size();
  const CEOID series = Add(L"Standup", Daily);
  asked = Run(cmd::kDelete, {VK_TSOFT2, VK_RETURN});  // No: only this occurrence; Yes
  EXPECT_TRUE(Mentions(asked[0], L"recurs")) << asked[0];
  EXPECT_TRUE(Mentions(asked[1], L"occurrence of")) << asked[1];
  EXPECT_EQ(Tasks().size(), before + 1) << "no record is left of the occurrence";
  EXPECT_EQ(Find(series)->due_date, Day(1));

  Run(cmd::kDelete, {VK_ESCAPE});  // Cancel
  EXPECT_NE(Find(series), nullptr);
  asked = Run(cmd::kDelete, {VK_TSOFT1, VK_RETURN});  // Yes: the series; Yes
  EXPECT_TRUE(Mentions(asked[1], L"every")) << asked[1];
  EXPECT_EQ(Find(series), nullptr);
}

TEST_F(TasksTest, DeletingCompletedAndShownTasksCountsWhatWent) {
  auto said = Run(cmd::kDeleteCompleted, {VK_RETURN});
  EXPECT_TRUE(Mentions(said[0], L"No task deleted.")) << said[0];
  Add(L"Done one", [](ITask* item) { item->put_Complete(VARIANT_TRUE); });
  Add(L"Done two", [](ITask* item) { item->put_Complete(VARIANT_TRUE); });
  said = Run(cmd::kDeleteCompleted, {VK_RETURN, VK_RETURN});
  EXPECT_TRUE(Mentions(said[0], L"all completed tasks")) << said[0];
  EXPECT_TRUE(Mentions(said[1], L"2 task(s) deleted.")) << said[1];

  Add(L"Shown");
  const size_t shown = static_cast<size_t>(app::RowCount());
  said = Run(cmd::kDeleteDisplayed, {VK_RETURN, VK_RETURN});
  EXPECT_TRUE(Mentions(said[1], (std::to_wstring(shown) + L" task(s) deleted.").c_str()));
  EXPECT_EQ(app::RowCount(), 0);
  EXPECT_TRUE(Tasks().empty());
}

}  // namespace
}  // namespace velmo::testing
