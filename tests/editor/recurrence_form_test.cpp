// The recurrence dialog's fields: every pattern type written through the
// object model, saved, read back from the record and shown again as the same
// fields; and the words the dialog shows for them.
#include "editor/recurrence_form.h"

#include <gtest/gtest.h>

#include "format/current_pictures.h"
#include "platform/locale.h"
#include "store/task_recurrence.h"
#include "tests/platform/poom_fixture.h"
#include "tests/support/recurrence_pattern_builder.h"

namespace velmo::testing {
namespace {

const DATE kBase = MakeDate(2026, 3, 30);  // a Monday, in the last week of March

RecurrenceForm Form(int type, LONG interval, LONG mask, LONG day, LONG instance, LONG month,
                    FormEnd end = FormEnd::kNone, DATE end_date = kBase, LONG count = 1) {
  return {type, interval, mask, day, instance, month, end, end_date, count};
}

class RecurrenceFormTest : public PoomTest {
 protected:
  void SetUp() override {
    PoomTest::SetUp();
    format::RefreshPictures();
  }
  // The form's pattern saved on a new task, read back from the database.
  RecurrencePattern SavedAndRead(const RecurrencePattern& written) {
    Ref<ITask> item{Fresh()};
    item->put_Subject(L"recurs");
    item->put_StartDate(kBase);
    item->put_DueDate(kBase);
    {
      Ref<IRecurrencePattern> pattern;
      EXPECT_EQ(item->GetRecurrencePattern(&pattern), S_OK);
      EXPECT_EQ(poom::WritePattern(written, pattern.p), S_OK);
    }
    EXPECT_EQ(item->Save(), S_OK);
    CEOID oid = 0;
    item->get_Oid(&oid);
    Ref<ITask> again{Item(oid)};
    bool recurring = false;
    RecurrencePattern read;
    EXPECT_EQ(ReadRecurrenceFromItem(again.p, &recurring, &read), S_OK);
    EXPECT_TRUE(recurring);
    return read;
  }
  locale::ScopedLocale locale_{"en_US"};
};

TEST_F(RecurrenceFormTest, EveryTypeAndEndComesBackAsTheSameFields) {
  const LONG mon = WeekdayBit(1), wed = WeekdayBit(3), fri = WeekdayBit(5);
  const RecurrenceForm cases[] = {
      Form(0, 3, mon, 30, 5, 3),                                      // every 3 days
      Form(1, 2, mon | wed | fri, 30, 5, 3),                          // Mon, Wed, Fri every 2 weeks
      Form(1, 1, kMondayToFriday, 30, 5, 3, FormEnd::kDate, MakeDate(2026, 4, 30)),
      Form(2, 5, mon, 15, 5, 3, FormEnd::kDate, MakeDate(2027, 3, 30)),  // day 15 every 5 months
      Form(3, 1, wed, 30, 2, 3),                                      // 2nd Wednesday monthly
      Form(3, 2, kSaturdayAndSunday, 30, kLastInstance, 3),           // last weekend day
      Form(4, 1, mon, 29, 5, 2, FormEnd::kDate, MakeDate(2036, 3, 30)),  // February 29
      Form(5, 3, fri, 30, 1, 11),                                     // 1st Friday of November
  };
  for (const RecurrenceForm& form : cases) {
    RecurrencePattern written;
    ASSERT_TRUE(PatternFromForm(form, kBase, &written)) << form.type;
    const RecurrencePattern read = SavedAndRead(written);
    const RecurrenceForm shown = FormFromPattern(read, kBase);
    // Only the fields of the type are compared; the others show the base date's.
    RecurrenceForm expected = form;
    const unsigned fields = FieldsOfType(form.type);
    if (!(fields & kFieldDays)) expected.day_mask = shown.day_mask;
    if (!(fields & kFieldDayOfMonth)) expected.day_of_month = shown.day_of_month;
    if (!(fields & kFieldInstance)) expected.instance = shown.instance;
    if (!(fields & kFieldMonth)) expected.month = shown.month;
    if (form.end == FormEnd::kNone) expected.end_date = shown.end_date;
    expected.occurrences = shown.occurrences;
    EXPECT_EQ(shown, expected) << form.type;
  }
}

TEST_F(RecurrenceFormTest, ACountOfOccurrencesEndsOnTheLastOne) {
  struct Case { RecurrenceForm form; DATE last; } const cases[] = {
      {Form(0, 2, 0, 0, 0, 0, FormEnd::kCount, kNoDate, 4), MakeDate(2026, 4, 5)},
      {Form(1, 1, WeekdayBit(1) | WeekdayBit(4), 0, 0, 0, FormEnd::kCount, kNoDate, 3),
       MakeDate(2026, 4, 6)},
      {Form(3, 1, WeekdayBit(1), 0, kLastInstance, 0, FormEnd::kCount, kNoDate, 2),
       MakeDate(2026, 4, 27)},
  };
  for (const Case& c : cases) {
    RecurrencePattern written;
    ASSERT_TRUE(PatternFromForm(c.form, kBase, &written));
    EXPECT_EQ(written.PatternEndDate, c.last) << c.form.type;
    const RecurrenceForm shown = FormFromPattern(SavedAndRead(written), kBase);
    EXPECT_EQ(shown.end, FormEnd::kDate);
    EXPECT_EQ(shown.occurrences, c.form.occurrences) << "the count is shown again";
  }
}

TEST_F(RecurrenceFormTest, FieldsOutOfRangeAreBroughtInAndImpossibleEndsRefused) {
  RecurrencePattern p;
  ASSERT_TRUE(PatternFromForm(Form(1, 0, 0, 0, 0, 0), kBase, &p));
  EXPECT_EQ(p.Interval, 1);
  EXPECT_EQ(p.DayOfWeekMask, WeekdayBit(1)) << "no day checked: the base date's weekday";
  ASSERT_TRUE(PatternFromForm(Form(2, 500, 0, 40, 0, 0), kBase, &p));
  EXPECT_EQ(p.Interval, kMaxFormInterval);
  EXPECT_EQ(p.DayOfMonth, 31);
  EXPECT_TRUE(p.NoEndDate);

  EXPECT_FALSE(PatternFromForm(Form(0, 1, 0, 0, 0, 0, FormEnd::kDate, kBase - 1), kBase, &p));
  EXPECT_FALSE(PatternFromForm(Form(0, 1, 0, 0, 0, 0, FormEnd::kDate, kNoDate), kBase, &p));
  EXPECT_FALSE(PatternFromForm(Form(7, 1, 0, 0, 0, 0), kBase, &p));
}

TEST_F(RecurrenceFormTest, APatternOfAnotherShapeOffersTheBaseDatesDay) {
  // "Every weekday" as the daily pattern keeps it: the weekly one of those days.
  RecurrenceForm form = FormFromPattern(Pattern(kRecursDaily, 0, kMondayToFriday), kBase);
  EXPECT_EQ(form, Form(1, 1, kMondayToFriday, 30, 5, 3, FormEnd::kNone, kBase, 1));
  // Yearly in months is yearly in years; unused fields are the base date's.
  form = FormFromPattern(Pattern(kRecursYearly, 24, 0, 4, 0, 7), kBase);
  EXPECT_EQ(form, Form(4, 2, WeekdayBit(1), 4, 5, 7, FormEnd::kNone, kBase, 1));
}

TEST_F(RecurrenceFormTest, TheWordsUnderTheFields) {
  const DATE today = MakeDate(2026, 3, 25);
  struct Case { RecurrenceForm form; const wchar_t* pattern; const wchar_t* next; } const cases[] = {
      {Form(1, 1, WeekdayBit(1), 0, 0, 0), L"Every Monday effective 3/30/2026",
       L"Next Mon 3/30/26"},
      {Form(1, 1, WeekdayBit(1), 0, 0, 0, FormEnd::kCount, kNoDate, 1),
       L"Every Monday until 3/30/2026 (1 occurrence)", L"Next Mon 3/30/26"},
      {Form(0, 2, 0, 0, 0, 0, FormEnd::kDate, MakeDate(2026, 4, 3)),
       L"Every 2 days until 4/3/2026 (3 occurrences)", L"Next Mon 3/30/26"},
      {Form(0, 1, 0, 0, 0, 0, FormEnd::kDate, kBase - 3), L"", L""},
  };
  for (const Case& c : cases) {
    const FormDescription d = DescribeForm(c.form, kBase, today);
    EXPECT_EQ(d.pattern, c.pattern);
    EXPECT_EQ(d.next, c.next);
  }
}

}  // namespace
}  // namespace velmo::testing
