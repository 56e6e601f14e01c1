// The editor's date rules, date commands, menu state, titles and input modes,
// on its fields alone.
#include <gtest/gtest.h>

#include "editor/date_commands.h"
#include "editor/date_rules.h"
#include "editor/editor_title.h"
#include "editor/input_mode.h"
#include "editor/menu_state.h"
#include "editor/recurrence_choices.h"
#include "platform/locale.h"
#include "res/dialogs_editor.h"

namespace velmo {
namespace {

DATE On(int offset, int hour = 0, int minute = 0) { return MakeDate(2024, 5, 15, hour, minute) + offset; }

class EditorDatesTest : public ::testing::Test {
 protected:
  EditorDatesTest() {
    context_.today = On(0);
    context_.count_occurrences = [this](const EditorFields& f) {
      ++counts_;
      return f.occurs_choice == 1 ? 5 : 0;
    };
    f_.oid = 7;
    f_.start = f_.due = DateField{kNoDate, On(0), true};
    f_.reminder = DateField{kNoDate, On(0, 8), false};
    f_.recurrence_end = DateField{kNoDate, On(0), false};
    f_.remembered_reminder = On(0, 8);
    FillOccursList(&f_.occurs, On(0));
  }
  DateRuleResult Set(DateFieldKind kind, DATE date) { return SetFieldDate(&f_, kind, date, context_); }

  EditorFields f_;
  DateRuleContext context_;
  int counts_ = 0;
  locale::ScopedLocale locale_{"en_US"};
};

TEST_F(EditorDatesTest, StartMovesTheOtherDatesOnlyInTheOutlookMode) {
  for (bool outlook : {true, false}) {
    context_.outlook_dates = outlook;
    f_.start.value = On(1);
    f_.due.value = On(4);
    f_.remembered_reminder = On(3, 9);
    f_.no_end = false;
    f_.recurrence_end.value = On(30);
    EXPECT_EQ(Set(DateFieldKind::kStart, On(3)), DateRuleResult::kApplied);
    const int moved = outlook ? 2 : 0;
    EXPECT_EQ(f_.due.value, On(4 + moved)) << outlook;
    EXPECT_EQ(f_.remembered_reminder, On(3 + moved, 9)) << outlook;
    EXPECT_EQ(f_.recurrence_end.value, On(30 + moved)) << outlook;
  }
}

TEST_F(EditorDatesTest, DueBeforeStartIsRefused) {
  struct Case { bool outlook; DATE due_after; };
  for (const Case& c : {Case{true, On(5)}, Case{false, On(2)}}) {
    context_.outlook_dates = c.outlook;
    f_.start.value = On(5);
    f_.due.value = On(6);
    EXPECT_EQ(Set(DateFieldKind::kDue, On(2)), DateRuleResult::kRefused);
    EXPECT_EQ(f_.due.value, c.due_after) << c.outlook;
    EXPECT_EQ(RecheckDueDate(&f_, context_),
              c.outlook ? DateRuleResult::kApplied : DateRuleResult::kRefused);
  }
  f_.start.value = On(5);
  EXPECT_EQ(Set(DateFieldKind::kDue, On(5, 0)), DateRuleResult::kApplied);  // the same day stands
}

TEST_F(EditorDatesTest, DueDateTurnsTheReminderOnForANewTaskWithReminderForNew) {
  struct Case { CEOID oid; bool reminder_on_due; bool expect_on; };
  for (const Case& c : {Case{0, true, true}, Case{0, false, false}, Case{9, true, false}}) {
    f_.oid = c.oid;
    f_.reminder_on_due = c.reminder_on_due;
    f_.reminder = DateField{kNoDate, On(0, 8), false};
    f_.due.value = kNoDate;
    Set(DateFieldKind::kDue, On(2));
    EXPECT_TRUE(f_.reminder.enabled);
    EXPECT_EQ(f_.reminder.value, c.expect_on ? On(0, 8) : kNoDate) << c.oid << c.reminder_on_due;
  }
  // Emptied again: the reminder picker is disabled but keeps what it held.
  Set(DateFieldKind::kReminder, On(1, 7));
  Set(DateFieldKind::kDue, kNoDate);
  EXPECT_FALSE(f_.reminder.enabled);
  EXPECT_EQ(f_.reminder.value, On(1, 7));
}

TEST_F(EditorDatesTest, EmptyStartTakesTheNewDueAsItsDefaultInTheOutlookMode) {
  for (bool outlook : {true, false}) {
    context_.outlook_dates = outlook;
    f_.start = DateField{kNoDate, On(0), true};
    Set(DateFieldKind::kDue, On(6));
    EXPECT_EQ(f_.start.fallback, outlook ? On(6) : On(0));
  }
}

TEST_F(EditorDatesTest, StartRewordsTheOccursListKeepingTheChoice) {
  f_.occurs.selection = 2;
  EXPECT_EQ(f_.occurs.entries[2], L"Every Wednesday");
  Set(DateFieldKind::kStart, On(1));
  EXPECT_EQ(f_.occurs.entries[2], L"Every Thursday");
  EXPECT_EQ(f_.occurs.selection, 2);
}

TEST_F(EditorDatesTest, LeavingOccurs) {
  f_.start.value = On(2);
  LeaveOccursList(&f_, 1, context_);
  EXPECT_EQ(f_.due.value, On(2));  // from the start
  EXPECT_TRUE(f_.end_enabled);
  EXPECT_TRUE(f_.reminder.enabled);
  EXPECT_EQ(f_.occurrences_text, L"No End");  // no end: nothing to count
  EXPECT_EQ(counts_, 0);

  Set(DateFieldKind::kRecurrenceEnd, On(6));
  EXPECT_EQ(counts_, 1);
  EXPECT_EQ(f_.occurrences_text, L"5 occur.");

  LeaveOccursList(&f_, kOccursOnce, context_);
  EXPECT_FALSE(f_.end_enabled);
  EXPECT_TRUE(f_.no_end);
  EXPECT_EQ(f_.recurrence_end.value, kNoDate);

  // A completed task's end controls stay off whatever is chosen.
  f_.recurrence_enabled = false;
  LeaveOccursList(&f_, 1, context_);
  EXPECT_FALSE(f_.end_enabled);
}

TEST_F(EditorDatesTest, DateCommandsGiveTheFocusedFieldItsDay) {
  f_.start.value = On(3, 10);
  f_.due.value = On(9);
  f_.reminder.value = On(2, 9, 15);
  struct Case { UINT command; DateFieldKind field; DATE expected; };
  const Case cases[] = {
      {kCmdYesterday, DateFieldKind::kDue, On(-1)},
      {kCmdToday, DateFieldKind::kStart, On(0)},
      {kCmdTomorrow, DateFieldKind::kReminder, On(1, 9, 15)},  // the reminder keeps its time
      {kCmdSelectDayFirst, DateFieldKind::kDue, On(2)},
      {kCmdSelectDayLast, DateFieldKind::kDue, On(7)},
      {kCmdStartDate, DateFieldKind::kDue, On(3)},
      {kCmdDueDate, DateFieldKind::kStart, On(9)},
      {kCmdNextDay, DateFieldKind::kDue, On(10)},
      {kCmdPreviousDay, DateFieldKind::kStart, On(2)},
      {kCmdNextDay, DateFieldKind::kRecurrenceEnd, On(0)},  // empty: its default unchanged
  };
  for (const Case& c : cases)
    EXPECT_EQ(DateForCommand(c.command, c.field, f_, On(0, 12)), c.expected) << c.command;

  f_.reminder.value = kNoDate;
  f_.remembered_reminder = On(-4, 7, 45);
  EXPECT_EQ(DateForCommand(kCmdToday, DateFieldKind::kReminder, f_, On(0, 12)), On(0, 7, 45));
  f_.start.value = kNoDate;
  EXPECT_EQ(DateForCommand(kCmdStartDate, DateFieldKind::kDue, f_, On(0)), kNoDate);
}

TEST_F(EditorDatesTest, SelectDayEntriesAreWeekdayNames) {
  EXPECT_EQ(SelectDayText(kCmdSelectDayFirst, On(0, 12)), L"Friday");  // two days after Wednesday
  EXPECT_EQ(SelectDayText(kCmdSelectDayLast, On(0, 12)), L"Wednesday");
}

TEST(EditorMenuState, InsertOnTextDatesOnDateFields) {
  struct Case { UINT command; EditorFocus focus; bool is_new; bool enabled; bool has_calls = false; };
  const Case cases[] = {
      {40085, EditorFocus::kText, false, true},   {40085, EditorFocus::kDate, false, false},
      {40141, EditorFocus::kNotes, false, true},  {47000, EditorFocus::kOther, false, false},
      {40086, EditorFocus::kText, false, true},   {40086, EditorFocus::kDate, false, false},
      {40092, EditorFocus::kNotes, false, false},  {40092, EditorFocus::kNotes, false, true, true},
      {40092, EditorFocus::kDate, false, false, true},
      {40095, EditorFocus::kDate, false, true},   {40095, EditorFocus::kText, false, false},
      {40095, EditorFocus::kRecurrenceEnd, false, false},
      {40107, EditorFocus::kRecurrenceEnd, false, true},
      {40107, EditorFocus::kOther, false, false},
      {40008, EditorFocus::kText, true, false},   {40008, EditorFocus::kText, false, true},
      {40022, EditorFocus::kDate, true, true},
  };
  for (const Case& c : cases)
    EXPECT_EQ(EditorCommandEnabled(c.command, c.focus, c.is_new, c.has_calls), c.enabled) << c.command;
}

TEST(EditorTitle, SubjectAndFieldNames) {
  EXPECT_EQ(SubjectTitle(L"", true), L"Subject");
  EXPECT_EQ(SubjectTitle(L"", false), L"<No Subject>");
  EXPECT_EQ(SubjectTitle(std::wstring(60, L'a'), false), std::wstring(48, L'a'));
  EXPECT_EQ(OpeningTitle(true, true), L"Subject");
  EXPECT_EQ(OpeningTitle(true, false), L"New Task");
  EXPECT_EQ(OpeningTitle(false, true), L"Edit Task");
  EXPECT_EQ(FieldNameId(res::editor_id::kRecurrenceEnd), 1077u);
  EXPECT_EQ(FieldNameId(res::editor_id::kPrivate), 1081u);
}

TEST(EditorInputMode, CapitalFirstOnlyInCapsRowsAndEmptyFields) {
  struct Case { DWORD mode; bool empty; wchar_t typed, expected; };
  const Case cases[] = {
      {1, true, L'b', L'B'}, {3, true, L'é', L'É'}, {5, true, L'7', L'7'},
      {1, false, L'b', L'b'}, {0, true, L'b', L'b'}, {6, true, L'b', L'b'}, {99, true, L'b', L'b'},
  };
  for (const Case& c : cases) EXPECT_EQ(CharacterForField(c.typed, c.empty, c.mode), c.expected) << c.mode;
}

}  // namespace
}  // namespace velmo
