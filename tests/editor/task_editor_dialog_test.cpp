// The task editor dialog on the headless screen over a real tasks database:
// opening in both layouts, Done, the refusals of a save as the user meets
// them, "Delete Task", and the main window's commands that open it.
#include <gtest/gtest.h>

#include <functional>

#include "app/task_changes.h"
#include "editor/task_editor.h"
#include "platform/beep.h"
#include "platform/poom.h"
#include "platform/ui/date_picker.h"
#include "platform/ui/dialog.h"
#include "platform/ui/spinner.h"
#include "platform/ui/virtual_keys.h"
#include "res/command_ids.h"
#include "res/dialogs_editor.h"
#include "store/connection.h"
#include "tests/app/main_window_fixture.h"

namespace velmo::testing {
namespace {

using namespace res::editor_id;
using Step = std::function<void(HWND editor)>;

class TaskEditorTest : public StartedMainWindowTest {
 protected:
  // Steps run one by one while the editor waits; each gets the editor.
  void Then(Step step) {
    screen_.AddIdleStep([this, step] { step(GetActiveWindow()); });
  }
  void Key(UINT vk) {
    screen_.AddIdleStep([this, vk] { screen_.TypeKey(vk); });
  }
  void Look(std::wstring* seen) {
    screen_.AddIdleStep([this, seen] { *seen = screen_.Text(); });
  }
  // A date control given a date (kNoDate: switched off) as the user would,
  // the focus on it and its change told to the editor.
  static void SetDate(HWND editor, int id, DATE date) {
    HWND control = GetDlgItem(editor, id);
    SetFocus(control);
    NMDATETIMECHANGE change{};
    change.nmhdr = NMHDR{control, static_cast<UINT_PTR>(id), DTN_DATETIMECHANGE};
    change.dwFlags = date == kNoDate ? GDT_NONE : GDT_VALID;
    if (date != kNoDate) VariantTimeToSystemTime(date, &change.st);
    SendMessageW(control, DTM_SETSYSTEMTIME, change.dwFlags, reinterpret_cast<LPARAM>(&change.st));
    SendMessageW(editor, WM_NOTIFY, static_cast<WPARAM>(id), reinterpret_cast<LPARAM>(&change));
  }
  static void Choose(HWND editor, int list, int index) {
    HWND control = GetDlgItem(editor, list);
    SetFocus(control);
    SendMessageW(control, LB_SETCURSEL, static_cast<WPARAM>(index), 0);
    SendMessageW(editor, WM_COMMAND, MAKEWPARAM(list, LBN_SELCHANGE), reinterpret_cast<LPARAM>(control));
  }
  static bool Has(const std::wstring& text, const wchar_t* part) { return text.find(part) != std::wstring::npos; }
};

TEST_F(TaskEditorTest, OpensInEitherLayoutFilledFromTheTask) {
  const CEOID oid = AddTask(L"Renew passport", [](ITask* t) {
    t->put_StartDate(Day(1));
    t->put_DueDate(Day(4));
    t->put_Importance(olImportanceHigh);
  });
  struct Case { DWORD compact; const wchar_t* shown; const wchar_t* absent; };
  for (const Case& c : {Case{1, L"»", L"Start date:"}, Case{0, L"Start date:", L"»"}}) {
    CurrentSettings().edit_compact = c.compact;
    std::wstring seen;
    Look(&seen);
    Key(VK_ESCAPE);
    EXPECT_EQ(RunTaskEditor(window_, oid), IDCANCEL);
    EXPECT_TRUE(Has(seen, L"Edit Task")) << seen;
    EXPECT_TRUE(Has(seen, L"Renew passport")) << seen;
    EXPECT_TRUE(Has(seen, L"High")) << seen;
    EXPECT_TRUE(Has(seen, L"Done")) << seen;
    EXPECT_TRUE(Has(seen, c.shown)) << seen;
    EXPECT_FALSE(Has(seen, c.absent)) << seen;
  }
  EXPECT_EQ(RunTaskEditor(window_, 999999), 0);  // no such task
}

TEST_F(TaskEditorTest, NewTaskTypedDatedAndSavedThroughTheNewCommand) {
  const size_t before = Tasks().size();
  Then([this](HWND) { screen_.TypeText(L"buy milk"); });  // "Caps 1st" by default
  Then([](HWND e) { SetFocus(GetDlgItem(e, kDue)); });
  Then([](HWND e) { SendMessageW(e, WM_COMMAND, 40096, 0); });  // Tomorrow
  Key(VK_TSOFT1);  // Done
  app::SendCommand(cmd::kNew);
  Pump();
  ASSERT_EQ(Tasks().size(), before + 1);
  const Task* made = nullptr;
  for (const auto& t : Tasks())
    if (t->subject == L"Buy milk") made = t.get();
  ASSERT_NE(made, nullptr);
  EXPECT_EQ(made->due_date, Day(1));
  EXPECT_EQ(made->start_date, kNoDate);
}

// Each refusal of a save, met through the editor: the message shown, the
// dialog still open with what was typed, nothing written.
TEST_F(TaskEditorTest, RefusedSavesTellWhyAndKeepTheFields) {
  struct Case {
    const char* name;
    Step fill;
    const wchar_t* message;
    LONG reminder_delta = 0;
    bool existing = false;
  };
  CEOID existing = 0;
  const Case cases[] = {
      {"occurrences", [](HWND e) {
         SetDate(e, kStart, Day(0));
         Choose(e, kOccurs, 1);  // Every day
         SetDate(e, kRecurrenceEnd, Day(1500));
       }, L"Too many Occurrences."},
      {"reminder without due", [](HWND e) {
         SetDate(e, kDue, Day(5));
         SetDate(e, kReminder, Day(4, 9));
         SetDate(e, kDue, kNoDate);
       }, L"ReminderTime needs a DueDate"},
      {"reminder after due", [](HWND e) {
         SetDate(e, kDue, Day(5));
         SetDate(e, kReminder, Day(7, 9));
       }, L"ReminderTime after DueDate"},
      {"start without due", [](HWND e) { SetDate(e, kStart, Day(5)); }, L"StartDate needs a DueDate"},
      {"reminder long before start", [](HWND e) {
         SetDate(e, kStart, Day(60));
         SetDate(e, kDue, Day(70));
         SetDate(e, kReminder, Day(5, 9));
       }, L"ReminderTime < StartDate - 45 Days"},
      {"reminder long before due", [](HWND e) {
         SetDate(e, kDue, Day(60));
         SetDate(e, kReminder, Day(5, 9));
       }, L"ReminderTime < DueDate - 45 Days"},
      {"reminder shifted out of range", [](HWND e) {
         SetDate(e, kDue, Day(10));
         SetDate(e, kReminder, Day(9, 9));
       }, L"Invalid Reminder Time.", 1200},
      {"task deleted meanwhile", [&existing](HWND) {
         ITask* item = nullptr;
         ASSERT_EQ(Store().app->GetItemFromOid(existing, &item), S_OK);
         item->Delete();
         item->Release();
       }, L"This task could not be modified.", 0, true},
  };
  for (const Case& c : cases) {
    CurrentSettings().reminder_delta = c.reminder_delta;
    existing = c.existing ? AddTask(L"Shared task") : 0;
    const size_t before = Tasks().size();
    std::wstring message, after;
    Then([this](HWND) { screen_.TypeText(L"Refused"); });
    Then(c.fill);
    Key(VK_TSOFT1);
    Look(&message);
    Key(VK_RETURN);
    Look(&after);
    Key(VK_ESCAPE);
    EXPECT_EQ(RunTaskEditor(window_, existing), IDCANCEL) << c.name;
    EXPECT_TRUE(Has(message, c.message)) << c.name << "\n" << message;
    EXPECT_TRUE(Has(after, L"Refused")) << c.name << "\n" << after;  // the fields are kept
    Pump();
    if (!c.existing) {
      EXPECT_EQ(Tasks().size(), before) << c.name;
    }
  }
}

TEST_F(TaskEditorTest, DueBeforeStartIsRefusedByTheEditorItself) {
  for (DWORD outlook : {0u, 1u}) {
    CurrentSettings().dates_input = outlook;
    const CEOID oid = AddTask(L"Plan trip", [](ITask* t) {
      t->put_StartDate(Day(5));
      t->put_DueDate(Day(6));
    });
    const unsigned beeps = velmo::platform::BeepCount();
    Then([](HWND e) { SetDate(e, kDue, Day(2)); });
    Key(VK_TSOFT1);
    Key(VK_ESCAPE);
    const INT_PTR result = RunTaskEditor(window_, oid);
    EXPECT_GE(velmo::platform::BeepCount(), beeps + 1);
    // In the Outlook mode the due date went back to the start, so Done saved.
    EXPECT_EQ(result, outlook ? 40023 : IDCANCEL);
    Pump();
    EXPECT_EQ(Find(oid)->due_date, Day(outlook ? 5 : 6));
  }
}

TEST_F(TaskEditorTest, DeleteTaskEndsTheEditorWhenConfirmed) {
  const CEOID oid = AddTask(L"Old errand");
  Then([](HWND e) { PostMessageW(e, WM_COMMAND, cmd::kDelete, 0); });
  Key(VK_RETURN);  // Yes
  EXPECT_EQ(RunTaskEditor(window_, oid), 0);
  Pump();
  EXPECT_EQ(Find(oid), nullptr);
}

TEST_F(TaskEditorTest, TruncatedNotesWarnOnceOnTheFirstChange) {
  const CEOID oid = AddTask(L"Synced", [](ITask* t) {
    t->put_Body((std::wstring(32000, L'n') + L"]").c_str());
  });
  std::wstring first, second;
  Then([this](HWND e) {
    SetFocus(GetDlgItem(e, kNotes));
    screen_.TypeText(L"x");
  });
  Look(&first);
  Key(VK_RETURN);
  Then([this](HWND) { screen_.TypeText(L"y"); });
  Look(&second);
  Key(VK_ESCAPE);
  RunTaskEditor(window_, oid);
  EXPECT_TRUE(Has(first, L"Text truncated on device.")) << first;
  EXPECT_FALSE(Has(second, L"Text truncated on device.")) << second;
}

}  // namespace
}  // namespace velmo::testing
