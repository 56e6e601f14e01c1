#include "editor/save_failure.h"

#include <gtest/gtest.h>

namespace velmo {
namespace {

constexpr UINT kDateInputs = 358;
constexpr UINT kTask = 329;

TEST(DescribeSaveFailure, FirstRuleThatHoldsDecides) {
  const DATE day = MakeDate(2026, 5, 10);
  const DATE x = kNoDate;
  const HRESULT other = E_FAIL;
  struct Case { DATE start, due, reminder; LONG occurrences; HRESULT result; UINT caption;
                const wchar_t* text; } cases[] = {
      // Too many occurrences wins over everything.
      {day + 1, day, x, 1000, kDatesRefused, kDateInputs, L"Too many Occurrences."},
      {x, day, x, 999, kDatesRefused, kDateInputs, L"Invalid Dates."},
      // The date rules hold whatever the result was.
      {x, x, day, 0, other, kDateInputs, L"ReminderTime needs a DueDate"},
      {day, x, day, 0, kReminderTimeRefused, kDateInputs, L"ReminderTime needs a DueDate"},
      {x, day, day + 1.001, 0, other, kDateInputs, L"ReminderTime after DueDate"},
      {x, day, day + 1, 0, kReminderTimeRefused, kDateInputs, L"Invalid Reminder Time."},  // exactly a day later passes
      {day, x, x, 0, S_FALSE, kDateInputs, L"StartDate needs a DueDate"},
      {day, day - 1, x, 0, other, kDateInputs, L"DueDate before StartDate"},
      {day, day, x, 0, kDatesRefused, kDateInputs, L"Invalid Dates."},
      // Reminders long before the dates, only when the reminder was refused.
      {day, day + 10, day - 45.5, 0, kReminderTimeRefused, kDateInputs, L"ReminderTime < StartDate - 45 Days"},
      {day, day + 10, day - 45.5, 0, kDatesRefused, kDateInputs, L"Invalid Dates."},
      {day, day + 10, day - 40, 0, kReminderTimeRefused, kDateInputs, L"ReminderTime < DueDate - 45 Days"},
      {x, day, day - 46, 0, kReminderTimeRefused, kDateInputs, L"ReminderTime < DueDate - 45 Days"},
      {x, day, day - 45, 0, kReminderTimeRefused, kDateInputs, L"Invalid Reminder Time."},
      // The result alone.
      {x, x, x, 0, E_INVALIDARG, kTask, L"This task could not be modified.\r\nTry to synchronize it."},
      {x, x, x, 0, E_FAIL, kTask, L"Error -2147467259"},
      {x, x, x, 0, E_OUTOFMEMORY, kTask, L"Error -2147024882"},
  };
  for (const Case& c : cases) {
    const SaveFailureMessage m = DescribeSaveFailure({c.start, c.due, c.reminder, c.occurrences, c.result});
    EXPECT_EQ(m.text, c.text) << ::testing::PrintToString(std::wstring(c.text));
    EXPECT_EQ(m.caption_id, c.caption) << ::testing::PrintToString(std::wstring(c.text));
  }
  EXPECT_EQ(DescribeSaveFailure({x, x, x, 0, kDatesRefused}).caption, L"Invalid Date inputs");
  EXPECT_EQ(DescribeSaveFailure({x, x, x, 0, E_FAIL}).caption, L"Invalid Task.");
}

}  // namespace
}  // namespace velmo
