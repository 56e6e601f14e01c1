// Save's refusals, and the completion of one occurrence of a recurring task.
#include <tuple>

#include "platform/clock.h"
#include "platform/oletime.h"
#include "platform/poom_props.h"
#include "tests/platform/poom_fixture.h"
#include "tests/support/recurrence_pattern_builder.h"

namespace velmo::testing {
namespace {

using namespace velmo::poom;

const DATE kStart = MakeDate(2025, 4, 1);
const DATE kDue = MakeDate(2025, 4, 10);

struct SaveCase { const char* name; DATE start, due; bool reminder_set; DATE reminder; HRESULT expected; };

TEST_F(PoomTest, SaveRefusesInconsistentDates) {
  const SaveCase cases[] = {
      {"no dates", kNoDate, kNoDate, false, kNoDate, S_OK},
      {"due only", kNoDate, kDue, false, kNoDate, S_OK},
      {"start only", kStart, kNoDate, false, kNoDate, E_POOM_DATES},
      {"due before start", kDue, kStart, false, kNoDate, E_POOM_DATES},
      {"same day", kDue, kDue, false, kNoDate, S_OK},
      {"reminder without due", kNoDate, kNoDate, true, kDue, E_POOM_REMINDER},
      {"reminder one day after due", kStart, kDue, true, kDue + 1, S_OK},
      {"reminder later than that", kStart, kDue, true, kDue + 1 + 1.0 / 1440, E_POOM_REMINDER},
      {"reminder 45 days before due", kNoDate, kDue, true, kDue - 45, S_OK},
      {"reminder 46 days before due", kNoDate, kDue, true, kDue - 46, E_POOM_REMINDER},
      {"reminder 46 days before start", kStart, kDue, true, kStart - 46, E_POOM_REMINDER},
      {"an unset reminder is not checked", kStart, kDue, false, kDue + 30, S_OK},
  };
  for (const SaveCase& c : cases) {
    Ref<ITask> item{Fresh()};
    item->put_Subject(L"case");
    item->put_StartDate(c.start);
    item->put_DueDate(c.due);
    item->put_ReminderSet(c.reminder_set ? VARIANT_TRUE : VARIANT_FALSE);
    item->put_ReminderTime(c.reminder);
    EXPECT_EQ(item->Save(), c.expected) << c.name;
  }
}

TEST_F(PoomTest, SaveRefusesMoreThan999Occurrences) {
  struct Case { LONG occurrences; HRESULT expected; } const cases[] = {{999, S_OK}, {1000, E_POOM_DATES}};
  for (const Case& c : cases) {
    Ref<ITask> item{Fresh()};
    item->put_DueDate(kDue);
    Ref<IRecurrencePattern> pattern;
    ASSERT_EQ(item->GetRecurrencePattern(&pattern), S_OK);
    ASSERT_EQ(pattern->put_Occurrences(c.occurrences), S_OK);
    EXPECT_EQ(item->Save(), c.expected) << c.occurrences;
  }
}

TEST_F(PoomTest, ThePatternIsKeptInTheRecord) {
  Ref<ITask> item{Fresh()};
  item->put_DueDate(kDue);
  const RecurrencePattern written =
      Pattern(kRecursMonthNth, 2, WeekdayBit(2), 0, kLastInstance, 0, kDue, MakeDate(2025, 12, 31));
  {
    Ref<IRecurrencePattern> pattern;
    ASSERT_EQ(item->GetRecurrencePattern(&pattern), S_OK);
    ASSERT_EQ(WritePattern(written, pattern.p), S_OK);
  }
  ASSERT_EQ(item->Save(), S_OK);
  const CEOID oid = OidOf(item.p);
  EXPECT_EQ(Raw(oid)[kPropRecurring].number, 1);

  Ref<ITask> again{Item(oid)};
  VARIANT_BOOL recurring = VARIANT_FALSE;
  again->get_IsRecurring(&recurring);
  EXPECT_EQ(recurring, VARIANT_TRUE);
  Ref<IRecurrencePattern> pattern;
  ASSERT_EQ(again->GetRecurrencePattern(&pattern), S_OK);
  RecurrencePattern read;
  ASSERT_EQ(ReadPattern(pattern.p, &read), S_OK);
  // Every field as written; last Tuesday of April, June, August, October, December 2025.
  const auto fields = [](const RecurrencePattern& p) {
    return std::tuple(p.RecurrenceType, p.Interval, p.DayOfWeekMask, p.Instance,
                      p.PatternStartDate, p.PatternEndDate, p.NoEndDate);
  };
  EXPECT_EQ(fields(read), fields(written));
  EXPECT_EQ(read.Occurrences, 5);

  ASSERT_EQ(again->ClearRecurrencePattern(), S_OK);
  ASSERT_EQ(again->Save(), S_OK);
  auto raw = Raw(oid);
  EXPECT_EQ(raw[kPropRecurring].number, 0);
  EXPECT_EQ(raw.count(kPropPatternType), 0u);
}

// A weekly task due on Mondays, with a reminder the evening before.
CEOID WeeklyTask(IPOutlookApp* app, LONG occurrences) {
  Ref<ITask> item;
  EXPECT_EQ(app->CreateItem(olTaskItem, &item), S_OK);
  const DATE monday = MakeDate(2025, 6, 2);
  item->put_Subject(L"Bins out");
  item->put_DueDate(monday);
  item->put_ReminderSet(VARIANT_TRUE);
  item->put_ReminderTime(monday - 4.0 / 24);
  {
    Ref<IRecurrencePattern> pattern;
    item->GetRecurrencePattern(&pattern);
    pattern->put_RecurrenceType(olRecursWeekly);
    pattern->put_DayOfWeekMask(WeekdayBit(1));
    if (occurrences > 0) pattern->put_Occurrences(occurrences);
  }
  EXPECT_EQ(item->Save(), S_OK);
  return OidOf(item.p);
}

TEST_F(PoomTest, CompletingARecurringTaskCompletesTheOccurrenceAndMovesTheSeries) {
  ScopedClock clock(MakeDate(2025, 6, 2, 9, 0));
  for (LONG occurrences : {0, 3}) {
    const CEOID oid = WeeklyTask(app_, occurrences);
    ASSERT_EQ(WriteRaw(oid, {RawText(kPropCategories, L"Home"), RawI4(kPropNotificationHandle, 9)}), oid);
    const auto before = Records();
    Ref<ITask> item{Item(oid)};
    item->put_Complete(VARIANT_TRUE);
    ASSERT_EQ(item->Save(), S_OK);

    const auto after = Records();
    ASSERT_EQ(after.size(), before.size() + 1);
    const CEOID done = after.back();
    auto occurrence = Raw(done);
    EXPECT_EQ(occurrence[kPropComplete].number, 1);
    EXPECT_EQ(occurrence[kPropDateCompleted].date, MakeDate(2025, 6, 2));
    EXPECT_EQ(occurrence[kPropDueDate].date, MakeDate(2025, 6, 2));
    EXPECT_EQ(occurrence[kPropRecurring].number, 0);
    EXPECT_EQ(occurrence[kPropReminderSet].number, 0);
    EXPECT_EQ(occurrence[kPropCategories].text, L"Home");
    EXPECT_EQ(occurrence.count(kPropNotificationHandle), 0u);

    auto series = Raw(oid);
    EXPECT_EQ(series[kPropComplete].number, 0);
    EXPECT_EQ(series[kPropDueDate].date, MakeDate(2025, 6, 9));
    EXPECT_EQ(series[kPropRecurring].number, 1);
    EXPECT_EQ(series[kPropNotificationHandle].number, 9);
    VARIANT_BOOL complete = VARIANT_TRUE;
    item->get_Complete(&complete);
    EXPECT_EQ(complete, VARIANT_FALSE);
    EXPECT_NEAR(ReminderOf(item.p), MakeDate(2025, 6, 9) - 4.0 / 24, 1e-9);
    if (occurrences > 0) {
      Ref<IRecurrencePattern> pattern;
      item->GetRecurrencePattern(&pattern);
      LONG left = 0;
      pattern->get_Occurrences(&left);
      EXPECT_EQ(left, occurrences - 1);
    }
  }
}

TEST_F(PoomTest, CompletingTheLastOccurrenceCompletesTheTask) {
  const CEOID oid = WeeklyTask(app_, 1);
  Ref<ITask> item{Item(oid)};
  item->put_Complete(VARIANT_TRUE);
  ASSERT_EQ(item->Save(), S_OK);
  EXPECT_EQ(Records(), std::vector<CEOID>{oid});
  EXPECT_EQ(Raw(oid)[kPropComplete].number, 1);
  EXPECT_EQ(Raw(oid)[kPropDueDate].date, MakeDate(2025, 6, 2));
}

}  // namespace
}  // namespace velmo::testing
