// The reminder check: the wanted reminder time, the one notification per task,
// and what is written back to the record.
#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "platform/locale.h"
#include "platform/notify.h"
#include "reminders/task_notification.h"
#include "settings/settings.h"
#include "store/connection.h"
#include "store/store_session.h"
#include "store/task_props.h"
#include "store/task_table.h"
#include "tests/store/store_fixture.h"

namespace velmo::testing {
namespace {

constexpr double kMinute = 1.0 / 1440;
const DATE kNow = MakeDate(2024, 5, 15, 12, 0);  // the fixture's clock

class ReminderCheckTest : public StoreTest {
 protected:
  // A task due on `due` with a reminder `minutes` before it.
  CEOID AddReminder(DATE due, LONG minutes, DWORD handle = 0, bool set = true) {
    return AddRecord(Props().Text(kPropSubject, L"Dentist").Date(kPropDueDate, due)
                         .Int(kPropReminderBaseFlag, 1).Int(kPropReminderMinutes, minutes)
                         .Int(kPropReminderSet, set ? 1 : 0).Int(kPropReminderOptions, -1)
                         .Int(kPropNotificationHandle, static_cast<LONG>(handle)));
  }
  static std::vector<notify::PendingNotification> Pending() {
    std::vector<notify::PendingNotification> all;
    EXPECT_TRUE(notify::ListUserNotifications(&all));
    return all;
  }
  static DATE StartOf(const notify::PendingNotification& n) {
    DATE d = kNoDate;
    SystemTimeToVariantTime(&n.start, &d);
    return d;
  }
  // Reads the task as a new entry with the check; returns the table entry.
  Task& ReadChecked(CEOID oid) {
    EXPECT_TRUE(ReadTask(nullptr, oid, true));
    return *Tasks().back();
  }
};

TEST_F(ReminderCheckTest, FutureReminderKeepsExactlyOneNotification) {
  const DATE due = MakeDate(2024, 5, 20, 9, 0);
  const CEOID oid = AddReminder(due, 30);
  const Task& task = ReadChecked(oid);
  auto pending = Pending();
  ASSERT_EQ(pending.size(), 1u);
  EXPECT_EQ(pending[0].handle, task.notification_handle);
  EXPECT_EQ(Read(oid).notification_handle, task.notification_handle);
  EXPECT_NEAR(StartOf(pending[0]), due - 30 * kMinute, 1e-6);
  EXPECT_EQ(pending[0].application, L"/opt/velmo/bin/velmo-todo");
  EXPECT_EQ(pending[0].arguments, std::to_wstring(oid));
  EXPECT_EQ(pending[0].action_flags, 13u) << "the default options";
  EXPECT_EQ(pending[0].sound, L"reminder");
  EXPECT_EQ(pending[0].title, L"Velmo ToDo List");

  ReadChecked(oid);
  ReadChecked(oid);
  EXPECT_EQ(Pending().size(), 1u);
  EXPECT_NE(ReadChecked(AddReminder(kNow + 30 * kMinute, 30)).notification_handle, 0u)
      << "a reminder at this very moment is still set";
}

TEST_F(ReminderCheckTest, PassedOrUnsetReminderLosesItsNotification) {
  const struct { DATE due; bool set; } cases[] = {
      {MakeDate(2024, 5, 14), true}, {MakeDate(2024, 5, 20), false}};
  for (const auto& c : cases) {
    const DWORD made = ReadChecked(AddReminder(MakeDate(2024, 5, 20), 30)).notification_handle;
    const CEOID oid = AddReminder(c.due, 30, made, c.set);
    EXPECT_EQ(ReadChecked(oid).notification_handle, 0u);
    EXPECT_EQ(Read(oid).notification_handle, made)
        << "an unchanged reminder keeps the old handle in the record";
  }
  EXPECT_TRUE(Pending().empty());
}

TEST_F(ReminderCheckTest, WantedTimeAndMinutesWrittenBack) {
  const DATE due = MakeDate(2024, 5, 20);
  const DATE pending = MakeDate(2024, 5, 19, 21, 15);
  // An existing notification on the reminder's day, made by the program or by
  // the platform's own task program.
  const auto existing = [&](const wchar_t* application) {
    CE_NOTIFICATION_TRIGGER trigger{kPlatformTriggerSize, CNT_TIME, 0,
                                    const_cast<wchar_t*>(application), nullptr, {}, {}};
    VariantTimeToSystemTime(MakeDate(2024, 5, 20, 14, 30), &trigger.stStartTime);
    VariantTimeToSystemTime(MakeDate(2024, 5, 20, 15, 0), &trigger.stEndTime);
    return notify::HandleValue(CeSetUserNotificationEx(nullptr, &trigger, nullptr));
  };
  const struct { const char* what; DWORD handle; DATE process_pending; DATE wanted; } cases[] = {
      {"the default time of day", 0, kNoDate, MakeDate(2024, 5, 20, 8, 0)},
      {"the existing notification's time", existing(L"/usr/bin/velmo-todo"), kNoDate,
       MakeDate(2024, 5, 20, 14, 30)},
      {"not the platform's task program", existing(L"TASKS.EXE"), kNoDate, MakeDate(2024, 5, 20, 8, 0)},
      {"the pending time of a copy or edit", 0, pending, pending},
  };
  for (const auto& c : cases) {
    const CEOID oid = AddReminder(due, 0, c.handle);
    Store().pending_reminder_time = c.process_pending;
    const Task& task = ReadChecked(oid);
    EXPECT_NEAR(task.reminder_time, c.wanted, 1e-6) << c.what;
    EXPECT_EQ(Read(oid).reminder_minutes, task.reminder_minutes) << c.what;
    EXPECT_EQ(task.reminder_minutes, static_cast<LONG>(std::lround((due - c.wanted) * 1440))) << c.what;
    EXPECT_EQ(Store().pending_reminder_time, kNoDate);
  }
}

TEST_F(ReminderCheckTest, ReReadKeepsTheTimeOfDayWhenOnlyTheDayMoved) {
  const CEOID oid = AddReminder(MakeDate(2024, 5, 20), 0);
  Task& entry = ReadChecked(oid);
  entry.reminder_time = MakeDate(2024, 5, 20, 16, 40);  // set by the user on that day
  CEPROPVAL minutes{kPropReminderMinutes, 0, 0, {}};    // a synchronisation cleared them
  ASSERT_NE(CeWriteRecordProps(Store().tasks_db, oid, 1, &minutes), 0u);
  ASSERT_TRUE(ReadTask(&entry, oid, true));
  EXPECT_NEAR(entry.reminder_time, MakeDate(2024, 5, 20, 16, 40), 1e-6);
  EXPECT_EQ(Read(oid).reminder_minutes, -1000);

  entry.pending_reminder_time = MakeDate(2024, 5, 18, 7, 0);
  ASSERT_TRUE(ReadTask(&entry, oid, true));
  EXPECT_EQ(Read(oid).reminder_minutes, 2 * 1440 - 7 * 60);
}

TEST_F(ReminderCheckTest, DifferenceIsShownAndStoredBack) {
  CurrentSettings().reminder_delta = 2;
  const DATE due = MakeDate(2024, 5, 20, 9, 0);
  const CEOID oid = AddReminder(due, 60);
  Task& task = ReadChecked(oid);
  EXPECT_NEAR(task.reminder_time, MakeDate(2024, 5, 20, 10, 0), 1e-9);
  task.pending_reminder_time = MakeDate(2024, 5, 20, 10, 0);  // the editor keeps the time shown
  ASSERT_TRUE(ReadTask(&task, oid, true));
  EXPECT_EQ(Read(oid).reminder_minutes, 60);
  ASSERT_EQ(Pending().size(), 1u);
  EXPECT_NEAR(StartOf(Pending()[0]), MakeDate(2024, 5, 20, 10, 0), 1e-6);
}

TEST_F(ReminderCheckTest, CopyGetsANotificationOfItsOwn) {
  const CEOID source = AddReminder(MakeDate(2024, 5, 20), 30);
  const DWORD handle = ReadChecked(source).notification_handle;
  const CEOID copy = AddReminder(MakeDate(2024, 5, 20), 30, handle);
  Store().copy_flag = true;
  const DWORD own = ReadChecked(copy).notification_handle;
  EXPECT_FALSE(Store().copy_flag);
  EXPECT_NE(own, handle);
  EXPECT_EQ(Pending().size(), 2u);
  EXPECT_EQ(Read(source).notification_handle, handle);
}

TEST_F(ReminderCheckTest, DeletedTaskTakesItsNotificationAlong) {
  const CEOID going = AddReminder(MakeDate(2024, 5, 20), 30);
  const CEOID staying = AddReminder(MakeDate(2024, 5, 21), 30);
  ReadChecked(going);
  const DWORD kept = ReadChecked(staying).notification_handle;
  ASSERT_EQ(Pending().size(), 2u);
  ASSERT_TRUE(LogOnObjectModel(nullptr));
  ITask* item = nullptr;
  ASSERT_EQ(Store().app->GetItemFromOid(going, &item), S_OK);
  EXPECT_EQ(item->Delete(), S_OK);
  item->Release();
  LogOffObjectModel();
  const auto pending = Pending();
  ASSERT_EQ(pending.size(), 1u);
  EXPECT_EQ(pending[0].handle, kept);
}

TEST_F(ReminderCheckTest, ReminderText) {
  locale::ScopedLocale english("en_US");
  Task task;
  task.due_date = MakeDate(2024, 5, 20);
  const struct { const wchar_t* subject; LONG importance; DATE start; const wchar_t* text; } cases[] = {
      {L"Dentist", kImportanceNormal, kNoDate, L"Dentist\r\n5/20/24"},
      {L"", kImportanceHigh, kNoDate, L"<No Subject>\r\n5/20/24 (!)"},
      {L"Tyres", kImportanceLow, MakeDate(2024, 5, 18), L"Tyres\r\n5/18/24 - 5/20/24 (\u00A1)"},
  };
  for (const auto& c : cases) {
    task.subject = c.subject;
    task.importance = c.importance;
    task.start_date = c.start;
    EXPECT_EQ(ReminderText(task), c.text);
  }
  locale::ScopedLocale dutch("nl_NL");
  EXPECT_NE(ReminderText(task).find(L" / "), std::wstring::npos) << "dates written with dashes";
}

}  // namespace
}  // namespace velmo::testing
