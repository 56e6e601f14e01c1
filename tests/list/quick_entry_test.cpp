#include <gtest/gtest.h>

#include "list/quick_entry.h"
#include "list/quick_entry_box.h"
#include "platform/cedb.h"
#include "platform/device.h"
#include "platform/oletime.h"
#include "platform/ui/list_view.h"
#include "platform/ui/virtual_keys.h"
#include "store/connection.h"
#include "store/direct_writes.h"
#include "store/store_messages.h"
#include "store/store_session.h"
#include "tests/platform/poom_fixture.h"
#include "tests/ui/ui_fixture.h"

namespace velmo {
namespace {

const DATE kDue = MakeDate(2025, 3, 14);

TEST(QuickEntry, ReminderFromTheDueDay) {
  const DATE no = kNoDate;
  struct Case {
    DATE due;
    bool checked;
    DWORD time_for_new;
    LONG delta;
    QuickReminder expected;
  } cases[] = {
      {no, true, 480, 0, {false, no, no}},  // no due date: never a reminder
      {kDue, true, 480, 0, {true, kDue, kDue + 8 / 24.0}},
      {kDue, false, 480, 0, {false, kDue, kDue + 8 / 24.0}},
      {kDue + 0.6, true, 600, -3, {true, kDue, kDue + 10 / 24.0}},  // moved later: still the day
      {kDue, true, 480, 8, {true, kDue, kDue + 8 / 24.0}},          // moved to 00:00 exactly
      {kDue, true, 480, 10, {true, kDue - 2 / 24.0, no}},           // moved to the day before
  };
  for (const Case& c : cases) {
    Settings s;
    s.reminder_time_for_new = c.time_for_new;
    s.reminder_delta = c.delta;
    QuickEntryMode mode;
    mode.due_date = c.due;
    mode.reminder = c.checked;
    QuickReminder r = QuickEntryReminder(mode, s);
    EXPECT_EQ(r.set, c.expected.set) << c.delta;
    EXPECT_NEAR(r.time, c.expected.time, 1e-9) << c.delta;
    EXPECT_NEAR(r.pending, c.expected.pending, 1e-9) << c.delta;
  }
}

TEST(QuickEntry, ModeStartsFromTheNewTaskSettingsAndTakesMenuChoices) {
  Settings s;
  s.importance_for_new = 2;
  s.sensitivity_for_new = 2;
  s.reminder_for_new = 1;
  s.categories_for_new = L"Home";
  QuickEntryMode m = StartQuickEntryMode(s, L"Work,Travel");
  EXPECT_TRUE(m.active && m.high && !m.normal && !m.low);
  EXPECT_TRUE(m.sensitivity_private && !m.sensitivity_normal);
  EXPECT_TRUE(m.reminder && !m.team_task);
  EXPECT_EQ(m.categories, L"Work,Travel");  // the filter in force
  EXPECT_EQ(m.due_date, kNoDate);
  s.filtered_cat_for_new = 0;
  EXPECT_EQ(StartQuickEntryMode(s, L"Work").categories, L"Home");
  s.categories_for_new.clear();
  EXPECT_EQ(StartQuickEntryMode(s, L"").categories, L"<NoCat>");

  struct Step { UINT command; UINT checked; UINT cleared; } steps[] = {
      {kCmdQuickLow, kCmdQuickLow, kCmdQuickHigh},
      {kCmdQuickSensitivityNormal, kCmdQuickSensitivityNormal, kCmdQuickSensitivityPrivate},
      {kCmdQuickTeamTask, kCmdQuickTeamTask, 0},
      {kCmdQuickReminder, 0, kCmdQuickReminder},  // it was on
  };
  for (const Step& st : steps) {
    EXPECT_TRUE(ApplyQuickEntryCommand(m, st.command));
    if (st.checked) {
      EXPECT_TRUE(QuickEntryChecked(m, st.checked)) << st.command;
    }
    if (st.cleared) {
      EXPECT_FALSE(QuickEntryChecked(m, st.cleared)) << st.command;
    }
  }
  EXPECT_FALSE(ApplyQuickEntryCommand(m, 40004));
  EXPECT_FALSE(QuickEntryChecked(m, 40004));
}

}  // namespace
}  // namespace velmo

namespace velmo::testing {
namespace {

class QuickEntryBoxTest : public UiTest {
 protected:
  QuickEntryBoxTest() : UiTest(40, 12) {}
  void SetUp() override {
    ASSERT_TRUE(device::EnsureRoot() && cedb::EnsureDeviceVolume());
    CurrentSettings() = Settings{};
    Store() = StoreConnection{};
    ASSERT_TRUE(OpenTasksDatabaseHandle(nullptr, false, 0));
    ASSERT_TRUE(LogOnObjectModel(nullptr));
    handlers_[kMsgTaskWritten] = [&](HWND, UINT, WPARAM w, LPARAM l, bool*) -> LRESULT {
      if (w == kTaskWrittenCode) written_.push_back(static_cast<CEOID>(l));
      return 0;
    };
    handlers_[kMsgQuickEntryMode] = [&](HWND, UINT, WPARAM w, LPARAM, bool*) -> LRESULT {
      modes_.push_back(w != 0);
      return 0;
    };
    main_ = MakeMain();
    Store().window = main_;
    list_ = CreateWindowExW(0, WC_LISTVIEWW, L"", WS_CHILD | WS_VISIBLE, 0, 0, 40, 8, main_,
                            nullptr, nullptr, nullptr);
    box_ = CreateQuickEntryBox(main_, 7, list_, RECT{0, 9, 40, 10});
    ASSERT_NE(box_, nullptr);
    SetFocus(list_);
    Pump();
  }
  void TearDown() override {
    DestroyWindow(main_);
    CurrentQuickEntry() = QuickEntryMode{};
    LogOffObjectModel();
    CloseConnection();
    Store() = StoreConnection{};
  }
  std::wstring BoxText() const {
    wchar_t buffer[64] = {};
    GetWindowTextW(box_, buffer, 64);
    return buffer;
  }
  void Enter() {
    SetFocus(box_);
    Pump();
  }
  void Key(UINT vk) {
    screen_.TypeKey(vk);
    Pump();
  }
  // The commands the box sent, its own edit notifications left out.
  std::vector<UINT> BoxCommands() const {
    std::vector<UINT> out;
    for (UINT c : Commands()) {
      if (c != 7) out.push_back(c);
    }
    return out;
  }
  ITask* Created() {
    ITask* item = nullptr;
    EXPECT_EQ(written_.size(), 1u);
    if (!written_.empty()) Store().app->GetItemFromOid(written_.back(), &item);
    return item;
  }

  TempRoot root_;
  HWND main_ = nullptr, list_ = nullptr, box_ = nullptr;
  std::vector<CEOID> written_;
  std::vector<bool> modes_;
};

TEST_F(QuickEntryBoxTest, FocusEntersAndEmptyBoxKeysLeave) {
  EXPECT_EQ(BoxText(), L"Enter new task here");
  Enter();
  EXPECT_TRUE(CurrentQuickEntry().active);
  EXPECT_EQ(BoxText(), L"");
  EXPECT_FALSE(IsWindowEnabled(list_));
  Key(VK_UP);  // "NoEndScroll" 0: nothing
  EXPECT_TRUE(CurrentQuickEntry().active);
  Key(VK_RETURN);
  Key(VK_TTALK);
  Key(VK_DOWN);
  EXPECT_FALSE(CurrentQuickEntry().active);
  EXPECT_EQ(BoxCommands(), (std::vector<UINT>{kCmdQuickEntryEnter, 40092, kCmdFirstTask}));
  EXPECT_EQ(modes_, (std::vector<bool>{true, false}));
  EXPECT_EQ(GetFocus(), list_);
  EXPECT_TRUE(IsWindowEnabled(list_));
  EXPECT_EQ(BoxText(), L"Enter new task here");

  CurrentSettings().no_end_scroll = 1;
  Enter();
  Key(VK_UP);
  EXPECT_FALSE(CurrentQuickEntry().active);
  EXPECT_EQ(BoxCommands().back(), kCmdLastTask);
  EXPECT_TRUE(written_.empty());
}

TEST_F(QuickEntryBoxTest, BackKeyDeletesThenLeaves) {
  Enter();
  screen_.TypeText(L"ab");
  Pump();
  QuickEntryBackKey(box_);
  EXPECT_EQ(BoxText(), L"a");
  QuickEntryBackKey(box_);
  EXPECT_TRUE(CurrentQuickEntry().active);
  QuickEntryBackKey(box_);
  EXPECT_FALSE(CurrentQuickEntry().active);
}

TEST_F(QuickEntryBoxTest, TextWithUpMakesTheTaskWithTheModesMarks) {
  const DATE due = MakeDate(2025, 3, 14);
  Enter();
  QuickEntryMode& mode = CurrentQuickEntry();
  for (UINT command : {kCmdQuickHigh, kCmdQuickSensitivityPrivate, kCmdQuickTeamTask,
                       kCmdQuickReminder})
    ApplyQuickEntryCommand(mode, command);
  mode.due_date = due;
  mode.categories = L"Work";
  screen_.TypeText(L"Buy milk");
  Key(VK_UP);
  EXPECT_FALSE(CurrentQuickEntry().active);
  Ref<ITask> item;
  item.p = Created();
  ASSERT_NE(item.p, nullptr);
  EXPECT_EQ(TextOf(&ITask::get_Subject, item.p), L"Buy milk");
  LONG importance = 0, sensitivity = 0;
  VARIANT_BOOL team = 0, reminder = 0;
  DATE item_due = 0, reminder_time = 0;
  item->get_Importance(&importance);
  item->get_Sensitivity(&sensitivity);
  item->get_TeamTask(&team);
  item->get_ReminderSet(&reminder);
  item->get_DueDate(&item_due);
  item->get_ReminderTime(&reminder_time);
  EXPECT_EQ(importance, olImportanceHigh);
  EXPECT_EQ(sensitivity, olPrivate);
  EXPECT_EQ(team, VARIANT_TRUE);
  EXPECT_EQ(reminder, VARIANT_TRUE);
  EXPECT_EQ(item_due, due);
  EXPECT_EQ(reminder_time, due);  // 08:00 kept pending for the re-read
  EXPECT_DOUBLE_EQ(Store().pending_reminder_time, due + 8 / 24.0);
  std::wstring categories;
  EXPECT_EQ(ReadTaskCategories(item.p, &categories), S_OK);
  EXPECT_EQ(categories, L"Work");
}

TEST_F(QuickEntryBoxTest, WithoutADueDateNoReminderEvenWhenChecked) {
  CurrentSettings().reminder_for_new = 1;
  Enter();
  EXPECT_TRUE(CurrentQuickEntry().reminder);
  screen_.TypeText(L"Someday");
  Key(VK_DOWN);
  Ref<ITask> item;
  item.p = Created();
  ASSERT_NE(item.p, nullptr);
  VARIANT_BOOL reminder = VARIANT_TRUE;
  item->get_ReminderSet(&reminder);
  EXPECT_EQ(reminder, VARIANT_FALSE);
  std::wstring categories;
  ReadTaskCategories(item.p, &categories);
  EXPECT_EQ(categories, L"<NoCat>");
  EXPECT_EQ(BoxCommands(), std::vector<UINT>{});  // Down with text goes nowhere
}

}  // namespace
}  // namespace velmo::testing
