#include <gtest/gtest.h>

#include "list/quick_entry.h"
#include "list/quick_entry_box.h"
#include "platform/cedb.h"
#include "platform/device.h"
#include "platform/ui/list_view.h"
#include "platform/ui/virtual_keys.h"
#include "store/connection.h"
#include "store/record_reader.h"
#include "store/store_messages.h"
#include "store/store_session.h"
#include "tests/support/temp_root.h"
#include "tests/ui/ui_fixture.h"

namespace velmo::testing {
namespace {

const DATE kDue = MakeDate(2025, 3, 14);

TEST(QuickEntry, ReminderFromTheDueDay) {
  const DATE no = kNoDate;
  struct Case { DATE due; DWORD time_for_new; LONG delta; QuickReminder expected; } cases[] = {
      {no, 480, 0, {false, no, no}},  // no due date: never a reminder
      {kDue, 480, 0, {true, kDue, kDue + 8 / 24.0}},
      {kDue + 0.6, 600, -3, {true, kDue, kDue + 10 / 24.0}},  // moved later: still the day
      {kDue, 480, 8, {true, kDue, kDue + 8 / 24.0}},          // moved to 00:00 exactly
      {kDue, 480, 10, {true, kDue - 2 / 24.0, no}},           // moved to the day before
  };
  for (const Case& c : cases) {
    Settings s;
    s.reminder_time_for_new = c.time_for_new;
    s.reminder_delta = c.delta;
    QuickEntryMode mode;
    mode.due_date = c.due;
    mode.reminder = true;
    QuickReminder r = QuickEntryReminder(mode, s);
    EXPECT_EQ(r.set, c.expected.set) << c.delta;
    EXPECT_NEAR(r.time, c.expected.time, 1e-9) << c.delta;
    EXPECT_NEAR(r.pending, c.expected.pending, 1e-9) << c.delta;
  }
}

TEST(QuickEntry, ModeStartsFromTheNewTaskSettings) {
  Settings s;
  s.importance_for_new = 2;
  s.categories_for_new = L"Home";
  QuickEntryMode m = StartQuickEntryMode(s, L"Work,Travel");
  EXPECT_TRUE(m.high && !m.normal && m.sensitivity_normal && !m.reminder);
  EXPECT_EQ(m.categories, L"Work,Travel");  // the filter in force
  s.filtered_cat_for_new = 0;
  EXPECT_EQ(StartQuickEntryMode(s, L"Work").categories, L"Home");
  s.categories_for_new.clear();
  EXPECT_EQ(StartQuickEntryMode(s, L"").categories, L"<NoCat>");
  EXPECT_TRUE(ApplyQuickEntryCommand(m, kCmdQuickLow));
  EXPECT_TRUE(QuickEntryChecked(m, kCmdQuickLow) && !QuickEntryChecked(m, kCmdQuickHigh));
  EXPECT_FALSE(ApplyQuickEntryCommand(m, 40004));
}

class QuickEntryBoxTest : public UiTest {
 protected:
  void SetUp() override {
    ASSERT_TRUE(device::EnsureRoot() && cedb::EnsureDeviceVolume());
    CurrentSettings() = Settings{};
    Store() = StoreConnection{};
    ASSERT_TRUE(OpenTasksDatabaseHandle(nullptr, false, 0) && LogOnObjectModel(nullptr));
    handlers_[kMsgTaskWritten] = [&](HWND, UINT, WPARAM, LPARAM l, bool*) -> LRESULT {
      written_.push_back(static_cast<CEOID>(l));
      return 0;
    };
    main_ = MakeMain();
    Store().window = main_;
    list_ = MakeChild(main_, 0, 0, 0, 40, 8, WC_LISTVIEWW);
    box_ = CreateQuickEntryBox(main_, 7, list_, RECT{0, 9, 40, 10});
    SetFocus(list_);
  }
  void TearDown() override {
    DestroyWindow(main_);
    CurrentQuickEntry() = QuickEntryMode{};
    LogOffObjectModel();
    CloseConnection();
  }
  void Type(std::wstring_view text, std::initializer_list<UINT> keys) {
    screen_.TypeText(text);
    for (UINT vk : keys) screen_.TypeKey(vk);
    Pump();
  }
  // The commands the box sent, its edit's own notifications (identifier 7) left out.
  std::vector<UINT> BoxCommands() const {
    std::vector<UINT> out = Commands();
    std::erase(out, 7u);
    return out;
  }
  Task Made() {
    Task t;
    EXPECT_EQ(written_.size(), 1u);
    EXPECT_TRUE(!written_.empty() && ReadTaskRecord(&t, written_.back()));
    return t;
  }

  TempRoot root_;
  HWND main_ = nullptr, list_ = nullptr, box_ = nullptr;
  std::vector<CEOID> written_;
};

TEST_F(QuickEntryBoxTest, FocusEntersAndEmptyBoxKeysLeave) {
  EXPECT_EQ(TextOf(box_), L"Enter new task here");
  SetFocus(box_);
  EXPECT_TRUE(CurrentQuickEntry().active);
  EXPECT_EQ(TextOf(box_), L"");
  EXPECT_FALSE(IsWindowEnabled(list_));
  Type(L"", {VK_UP, VK_RETURN, VK_TTALK});  // "NoEndScroll" 0: Up does nothing
  EXPECT_TRUE(CurrentQuickEntry().active);
  Type(L"", {VK_DOWN});
  EXPECT_FALSE(CurrentQuickEntry().active);
  EXPECT_EQ(BoxCommands(), (std::vector<UINT>{kCmdQuickEntryEnter, 40092, kCmdFirstTask}));
  EXPECT_EQ(GetFocus(), list_);
  EXPECT_TRUE(IsWindowEnabled(list_));
  EXPECT_EQ(TextOf(box_), L"Enter new task here");

  CurrentSettings().no_end_scroll = 1;
  SetFocus(box_);
  Type(L"", {VK_UP});
  EXPECT_EQ(BoxCommands().back(), kCmdLastTask);
  // The back key deletes, and on an empty box leaves.
  SetFocus(box_);
  Type(L"ab", {});
  QuickEntryBackKey(box_);
  EXPECT_EQ(TextOf(box_), L"a");
  QuickEntryBackKey(box_);
  QuickEntryBackKey(box_);
  EXPECT_FALSE(CurrentQuickEntry().active);
  EXPECT_TRUE(written_.empty());
}

TEST_F(QuickEntryBoxTest, TextWithUpOrDownMakesTheTaskWithTheModesMarks) {
  SetFocus(box_);
  QuickEntryMode& mode = CurrentQuickEntry();
  for (UINT c : {kCmdQuickHigh, kCmdQuickSensitivityPrivate, kCmdQuickTeamTask, kCmdQuickReminder})
    ApplyQuickEntryCommand(mode, c);
  mode.due_date = kDue;
  mode.categories = L"Work";
  Type(L"Buy milk", {VK_UP});
  Task t = Made();
  EXPECT_FALSE(CurrentQuickEntry().active);
  EXPECT_EQ(t.subject, L"Buy milk");
  EXPECT_EQ(t.importance, kImportanceHigh);
  EXPECT_EQ(t.sensitivity, kSensitivityPrivate);
  EXPECT_EQ(t.team_task, 1);
  EXPECT_EQ(t.due_date, kDue);
  EXPECT_EQ(t.reminder_set, 1);
  EXPECT_EQ(t.reminder_time, kDue);  // 08:00 is kept pending for the re-read
  EXPECT_DOUBLE_EQ(Store().pending_reminder_time, kDue + 8 / 24.0);
  EXPECT_EQ(t.categories, L"Work");
}

TEST_F(QuickEntryBoxTest, WithoutADueDateNoReminderEvenWhenChecked) {
  CurrentSettings().reminder_for_new = 1;
  SetFocus(box_);
  EXPECT_TRUE(CurrentQuickEntry().reminder);
  Type(L"Someday", {VK_DOWN});
  Task t = Made();
  EXPECT_EQ(t.reminder_set, 0);
  EXPECT_EQ(t.categories, L"<NoCat>");
  EXPECT_EQ(BoxCommands(), std::vector<UINT>{});  // Down with text goes nowhere
}

}  // namespace
}  // namespace velmo::testing
