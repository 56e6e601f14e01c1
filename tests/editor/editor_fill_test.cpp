// The editor's fields filled from a stored task and for a new one.
#include <gtest/gtest.h>

#include <functional>

#include "categories/category_state.h"
#include "editor/fill_fields.h"
#include "editor/recurrence_choices.h"
#include "platform/locale.h"
#include "tests/platform/poom_fixture.h"

namespace velmo::testing {
namespace {

// 2024-05-15 (a Wednesday) at noon; day offsets count from it.
DATE On(int offset, int hour = 0, int minute = 0) { return MakeDate(2024, 5, 15, hour, minute) + offset; }
const DATE kNow = On(0, 12);

class EditorFillTest : public PoomTest {
 protected:
  EditorFields Fill(const std::function<void(ITask*)>& setup) {
    ITask* item = Fresh();
    item->put_Subject(L"Call the plumber");
    setup(item);
    EXPECT_EQ(item->Save(), S_OK);
    const CEOID oid = OidOf(item);
    item->Release();
    Ref<ITask> task(Item(oid));
    EditorFields f;
    f.oid = oid;
    EXPECT_EQ(FillFieldsFromTask(task.p, settings_, kNow, &f), S_OK);
    return f;
  }
  static void Recurs(ITask* item, LONG type, LONG interval, LONG mask = 0, LONG day = 0) {
    IRecurrencePattern* p = nullptr;
    ASSERT_EQ(item->GetRecurrencePattern(&p), S_OK);
    p->put_RecurrenceType(type);
    p->put_Interval(interval);
    if (mask) p->put_DayOfWeekMask(mask);
    if (day) p->put_DayOfMonth(day);
    p->Release();
  }
  Settings settings_;
  locale::ScopedLocale locale_{"en_US"};
};

TEST_F(EditorFillTest, PrioritySensitivityAndTeamFromTheTask) {
  struct Case { LONG importance, sensitivity; bool team; int index; bool private_box; int sensitivity_index; };
  const Case cases[] = {
      {0, 0, false, 0, false, 0},
      {2, 2, true, 2, true, 1},
      {7, 0, false, 1, false, 0},  // importance outside 0-2: Normal
  };
  for (const Case& c : cases) {
    const EditorFields f = Fill([&](ITask* t) {
      t->put_Importance(c.importance);
      t->put_Sensitivity(c.sensitivity);
      t->put_TeamTask(c.team ? VARIANT_TRUE : VARIANT_FALSE);
    });
    EXPECT_EQ(f.priority_index, c.index) << c.importance;
    EXPECT_EQ(f.private_checked, c.private_box) << c.sensitivity;
    EXPECT_EQ(f.sensitivity_index, c.sensitivity_index) << c.sensitivity;
    EXPECT_EQ(f.team_task, c.team);
    EXPECT_EQ(f.subject, L"Call the plumber");
  }
}

TEST_F(EditorFillTest, PickersAndTheirDefaultsFollowTheOtherDates) {
  // Due only: the start picker defaults to the due date; the reminder the
  // object model keeps for a task without one (its due date) is remembered.
  EditorFields f = Fill([](ITask* t) { t->put_DueDate(On(3)); });
  EXPECT_EQ(f.due.value, On(3));
  EXPECT_TRUE(f.start.empty());
  EXPECT_EQ(f.start.fallback, On(3));
  EXPECT_TRUE(f.reminder.empty());
  EXPECT_TRUE(f.reminder.enabled);
  EXPECT_EQ(f.remembered_reminder, On(3));
  EXPECT_EQ(f.reminder.fallback, On(3));

  // A set reminder is shown and remembered.
  f = Fill([](ITask* t) {
    t->put_DueDate(On(5));
    t->put_ReminderSet(VARIANT_TRUE);
    t->put_ReminderTime(On(4, 9, 30));
  });
  EXPECT_EQ(f.reminder.value, On(4, 9, 30));
  EXPECT_EQ(f.remembered_reminder, On(4, 9, 30));

  // No dates at all: every picker defaults to today, the reminder is disabled
  // and remembered now.
  f = Fill([](ITask*) {});
  EXPECT_EQ(f.due.fallback, On(0));
  EXPECT_EQ(f.start.fallback, On(0));
  EXPECT_FALSE(f.reminder.enabled);
  EXPECT_EQ(f.remembered_reminder, kNow);
}

TEST_F(EditorFillTest, RecurrenceChoiceMatchedAndCompletedTaskLocked) {
  EditorFields f = Fill([](ITask* t) {
    t->put_StartDate(On(0));
    t->put_DueDate(On(0));
    Recurs(t, olRecursWeekly, 1, WeekdayBit(3));  // every Wednesday
  });
  EXPECT_EQ(f.occurs.selection, 2);
  EXPECT_EQ(f.occurs.entries[2], L"Every Wednesday");
  EXPECT_TRUE(f.end_enabled);
  EXPECT_TRUE(f.no_end);

  f = Fill([](ITask* t) {
    t->put_DueDate(On(0));
    Recurs(t, olRecursMonthly, 5, 0, 15);
  });
  EXPECT_EQ(f.occurs.selection, kCustomPattern);
  EXPECT_EQ(f.occurs.entries.back(), L"Custom pattern");
  ASSERT_TRUE(f.pattern.has_value());
  EXPECT_EQ(f.pattern->Interval, 5);

  f = Fill([](ITask* t) {
    t->put_DueDate(On(0));
    Recurs(t, olRecursDaily, 1);
    IRecurrencePattern* p = nullptr;
    t->GetRecurrencePattern(&p);
    p->put_Occurrences(1);  // nothing left after it: the task itself completes
    p->Release();
    t->put_Complete(VARIANT_TRUE);
  });
  EXPECT_TRUE(f.completed);
  EXPECT_FALSE(f.recurrence_enabled);
  EXPECT_FALSE(f.end_enabled);
  EXPECT_FALSE(f.recurrence_end.enabled);
}

TEST_F(EditorFillTest, NewTaskDefaultsFromTheSettingsAndTheFilter) {
  struct Case {
    const wchar_t* filter;
    DWORD filtered_cat_for_new;
    const wchar_t* expected;
  };
  const Case cases[] = {
      {L"<NoCat>", 1, L""},          // the no-category filter: no categories, not the default
      {L"Work", 1, L"Work"},
      {L"Work", 0, L"Home"},
      {L"Work,Errands", 1, L"Home"},  // more than one category filtered
      {L"", 1, L"Home"},
  };
  for (const Case& c : cases) {
    SetCategoryFilter(c.filter);
    Settings s;
    s.categories_for_new = L"Home";
    s.filtered_cat_for_new = c.filtered_cat_for_new;
    EditorFields f;
    FillNewTaskDefaults(s, CategoryFilterList(), kNow, &f);
    EXPECT_EQ(f.categories, c.expected) << c.filter << " " << c.filtered_cat_for_new;
  }
  SetCategoryFilter(L"");

  struct Flags { DWORD importance, sensitivity, team; int index; bool private_box; int sensitivity_index; bool team_box; };
  const Flags flags[] = {
      {0, 2, 1, 0, true, 1, true}, {2, 1, 0, 2, true, 0, false}, {5, 0, 0, 1, false, 0, false}};
  for (const Flags& c : flags) {
    Settings s;
    s.importance_for_new = c.importance;
    s.sensitivity_for_new = c.sensitivity;
    s.team_task_for_new = c.team;
    EditorFields f;
    FillNewTaskDefaults(s, CategoryFilterList(), kNow, &f);
    EXPECT_EQ(f.priority_index, c.index);
    EXPECT_EQ(f.private_checked, c.private_box);
    EXPECT_EQ(f.sensitivity_index, c.sensitivity_index);
    EXPECT_EQ(f.team_task, c.team_box);
    EXPECT_TRUE(f.start.empty() && f.due.empty() && f.reminder.empty());
    EXPECT_EQ(f.due.fallback, On(0));
    EXPECT_FALSE(f.reminder.enabled);
  }
}

TEST(NotesLookTruncated, LongNotesEndingInABracket) {
  EXPECT_TRUE(NotesLookTruncated(std::wstring(31744, L'x') + L"]"));
  EXPECT_FALSE(NotesLookTruncated(std::wstring(31743, L'x') + L"]"));
  EXPECT_FALSE(NotesLookTruncated(std::wstring(40000, L'x')));
}

}  // namespace
}  // namespace velmo::testing
