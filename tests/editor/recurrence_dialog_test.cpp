// The recurrence dialog on a headless screen: keys typed into its controls and
// the pattern "Done" writes, with the words under the fields as they go.
#include "editor/recurrence_dialog.h"

#include <string>
#include <vector>

#include "format/current_pictures.h"
#include "platform/clock.h"
#include "platform/locale.h"
#include "platform/ui/virtual_keys.h"
#include "tests/support/recurrence_pattern_builder.h"
#include "tests/ui/ui_fixture.h"

namespace velmo::testing {
namespace {

const DATE kBase = MakeDate(2026, 3, 30);  // a Monday in the last week of March

class RecurrenceDialogTest : public UiTest {
 protected:
  RecurrenceDialogTest() : UiTest(80, 24) { format::RefreshPictures(); }

  // Types `keys` into the dialog (a key with a character is a typed digit), then
  // checks that `shown` is on the screen, then presses `last` ("Done" unless told).
  bool Run(RecurrencePattern* pattern, const std::vector<UINT>& keys, const wchar_t* shown,
           UINT last = VK_TSOFT1) {
    screen_.AddIdleStep([&] {
      for (UINT key : keys) {
        if (key == VK_BACK) {
          screen_.TypeBackspace();
        } else {
          screen_.TypeKey(key, key >= '0' && key <= '9' ? static_cast<wchar_t>(key) : 0);
        }
      }
    });
    screen_.AddIdleStep([&, last] {
      EXPECT_TRUE(screen_.Contains(shown)) << screen_.Text();
      screen_.TypeKey(last);
    });
    return EditRecurrencePattern(main_, kBase, pattern);
  }

  locale::ScopedLocale locale_{"en_US"};
  ScopedClock clock_{MakeDate(2026, 3, 25, 12, 0)};
  HWND main_ = MakeMain();
};

TEST_F(RecurrenceDialogTest, KeysMakeEachTypeOfPattern) {
  const LONG mon = WeekdayBit(1);
  struct Case {
    const char* name;
    std::vector<UINT> keys;
    const wchar_t* shown;
    RecurrencePattern expected;
  } const cases[] = {
      {"unchanged", {}, L"Every Monday effective 3/30/2026", Pattern(kRecursWeekly, 1, mon)},
      {"every 3 weeks, Monday and Friday",
       {VK_DOWN, VK_BACK, '3', VK_DOWN, VK_DOWN, VK_DOWN, VK_DOWN, VK_DOWN, VK_DOWN, VK_SPACE},
       L"Every 3 weeks on Monday and Friday", Pattern(kRecursWeekly, 3, mon | WeekdayBit(5))},
      {"daily, every 2 days", {VK_LEFT, VK_DOWN, VK_RIGHT}, L"Every 2 days", Pattern(kRecursDaily, 2)},
      {"monthly on day 30", {VK_RIGHT}, L"Day 30 of every month", Pattern(kRecursMonthly, 1, 0, 30)},
      {"last Monday of every month", {VK_RIGHT, VK_RIGHT}, L"Last Monday of every month",
       Pattern(kRecursMonthNth, 1, mon, 0, kLastInstance)},
      {"yearly on March 30", {VK_RIGHT, VK_RIGHT, VK_RIGHT}, L"Every March 30",
       Pattern(kRecursYearly, 1, 0, 30, 0, 3)},
      {"last Monday of March", {VK_LEFT, VK_LEFT}, L"Last Monday of March",
       Pattern(kRecursYearNth, 1, mon, 0, kLastInstance, 3)},
  };
  for (const Case& c : cases) {
    RecurrencePattern pattern = Pattern(kRecursWeekly, 1, mon, 0, 0, 0, kBase);
    ASSERT_TRUE(Run(&pattern, c.keys, c.shown)) << c.name;
    const RecurrencePattern& e = c.expected;
    EXPECT_EQ(std::vector<LONG>({pattern.RecurrenceType, pattern.Interval, pattern.DayOfWeekMask,
                                 pattern.DayOfMonth, pattern.Instance, pattern.MonthOfYear}),
              std::vector<LONG>({e.RecurrenceType, e.Interval, e.DayOfWeekMask, e.DayOfMonth,
                                 e.Instance, e.MonthOfYear}))
        << c.name;
    EXPECT_EQ(pattern.PatternStartDate, kBase) << c.name;
    EXPECT_TRUE(pattern.NoEndDate) << c.name;
  }
}

TEST_F(RecurrenceDialogTest, TheEndIsADateOrANumberOfOccurrences) {
  // The end list is the eighth stop after the type (the weekly fields between).
  const std::vector<UINT> to_end(9, VK_DOWN);
  RecurrencePattern pattern = Pattern(kRecursWeekly, 1, WeekdayBit(1), 0, 0, 0, kBase);
  std::vector<UINT> keys = to_end;
  keys.insert(keys.end(), {VK_RIGHT, VK_RIGHT, VK_DOWN, VK_BACK, '4'});
  ASSERT_TRUE(Run(&pattern, keys, L"Every Monday until 4/20/2026 (4 occurrences)"));
  EXPECT_FALSE(pattern.NoEndDate);
  EXPECT_EQ(pattern.PatternEndDate, MakeDate(2026, 4, 20));

  keys = to_end;
  keys.push_back(VK_LEFT);  // back to no end
  ASSERT_TRUE(Run(&pattern, keys, L"Every Monday effective 3/30/2026"));
  EXPECT_TRUE(pattern.NoEndDate);
}

TEST_F(RecurrenceDialogTest, CancelLeavesThePatternAlone) {
  RecurrencePattern pattern = Pattern(kRecursMonthly, 5, 0, 12, 0, 0, kBase);
  const RecurrencePattern before = pattern;
  EXPECT_FALSE(Run(&pattern, {VK_LEFT, VK_DOWN, '7'}, L"Every", VK_ESCAPE));
  EXPECT_EQ(pattern.RecurrenceType, before.RecurrenceType);
  EXPECT_EQ(pattern.Interval, before.Interval);
  EXPECT_EQ(pattern.DayOfMonth, before.DayOfMonth);
}

}  // namespace
}  // namespace velmo::testing
