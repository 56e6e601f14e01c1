// The reminder time a record gives, and the minutes stored back for one.
#include <gtest/gtest.h>

#include "reminders/reminder_time.h"

namespace velmo {
namespace {

constexpr double kMinute = 1.0 / 1440;

TEST(ReminderTimeTest, FromRecord) {
  const DATE due = MakeDate(2024, 5, 20);
  const DATE start = MakeDate(2024, 5, 18);
  const struct { LONG base_flag, minutes, delta; DATE start, due, expected; } cases[] = {
      {1, 60, 0, start, due, due - 60 * kMinute},     {1, -90, 0, kNoDate, due, due + 90 * kMinute},
      {1, 60, 0, start, kNoDate, kNoDate},            {0, 60, 0, start, due, start - 60 * kMinute},
      {0, 60, 0, kNoDate, due, kNoDate - 60 * kMinute},  // no test of the start date
      {0, 0, 0, kNoDate, due, kNoDate},
      {1, 60, -3, start, due, due - 240 * kMinute},
      // 44 days 23:59 before the due date: that day at the default time.
      {1, kMinutesAtDefaultTime, 5, start, due, MakeDate(2024, 4, 5, 17, 45)},
  };
  Settings s;
  s.reminder_time = 17 * 60 + 45;
  for (const auto& c : cases) {
    Task task;
    task.reminder_base_flag = c.base_flag;
    task.reminder_minutes = c.minutes;
    task.start_date = c.start;
    task.due_date = c.due;
    s.reminder_delta = c.delta;
    EXPECT_NEAR(ReminderTimeOf(task, s), c.expected, 1e-9) << c.base_flag << " " << c.minutes;
  }
}

TEST(ReminderTimeTest, MinutesIgnoreConversionNoise) {
  Settings s;
  Task task;
  task.reminder_base_flag = 1;
  task.due_date = MakeDate(2024, 5, 20, 9, 0);
  const DATE due = task.due_date;
  const struct { DATE reminder; LONG minutes; } cases[] = {
      {due - 30 * kMinute + 1e-9, 30}, {due - 30 * kMinute - 1e-9, 30},
               {due + 30 * kMinute - 1e-9, -30}, {due + 30 * kMinute + 1e-9, -30},
               {due - 30.5 * kMinute, 30}};
  for (const auto& c : cases) EXPECT_EQ(ReminderMinutesFor(task, c.reminder, s), c.minutes);
  task.reminder_base_flag = 0;
  task.start_date = MakeDate(2024, 5, 19);
  EXPECT_EQ(ReminderMinutesFor(task, MakeDate(2024, 5, 18, 23, 0), s), 60) << "from the start date";
}

}  // namespace
}  // namespace velmo
