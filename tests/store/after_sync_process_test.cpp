// The after-synchronisation pass run as the real program, twice in a row.
#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>

#include "platform/clock.h"
#include "platform/notify.h"
#include "platform/wstr.h"
#include "store/task_props.h"
#include "tests/app/child_process.h"
#include "tests/store/store_fixture.h"

namespace velmo::testing {
namespace {

class AfterSyncProcessTest : public StoreTest {
 protected:
  ScopedClock real_clock_{NowOfTheSystem()};
  static DATE NowOfTheSystem() {
    const time_t now = time(nullptr);
    tm local{};
    localtime_r(&now, &local);
    return MakeDate(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_hour, local.tm_min);
  }
  CEOID AddReminder(DATE due, DWORD handle) {
    return AddRecord(Props()
                         .Text(kPropSubject, L"Call the garage")
                         .Date(kPropDueDate, due)
                         .Int(kPropReminderBaseFlag, 1)
                         .Int(kPropReminderMinutes, 30)
                         .Int(kPropReminderSet, 1)
                         .Int(kPropNotificationHandle, static_cast<LONG>(handle)));
  }
  static std::vector<notify::PendingNotification> Pending() {
    std::vector<notify::PendingNotification> all;
    EXPECT_TRUE(notify::ListUserNotifications(&all));
    return all;
  }
};

TEST_F(AfterSyncProcessTest, PassRepairsRemindersThenFindsNothingToDo) {
  const DATE today = std::trunc(NowAsDate());
  // A notification left from before, for a reminder that has passed since.
  CE_NOTIFICATION_TRIGGER trigger{kPlatformTriggerSize, CNT_TIME, 0,
                                  const_cast<wchar_t*>(L"/opt/velmo/bin/velmo-todo"), nullptr, {}, {}};
  VariantTimeToSystemTime(today - 2, &trigger.stStartTime);
  VariantTimeToSystemTime(today - 1.9, &trigger.stEndTime);
  const DWORD stale = notify::HandleValue(CeSetUserNotificationEx(nullptr, &trigger, nullptr));
  ASSERT_NE(stale, 0u);
  AddReminder(today - 2 + 0.5, stale);
  const CEOID future = AddReminder(today + 5 + 0.5, 0);

  std::string errors;
  ASSERT_EQ(RunToEnd(VELMO_TODO_BIN, {"AppRunAfterSync"}, &errors), 0) << errors;
  auto pending = Pending();
  ASSERT_EQ(pending.size(), 1u) << "the passed reminder's notification is gone";
  EXPECT_EQ(pending[0].arguments, std::to_wstring(future));
  EXPECT_EQ(pending[0].application, FromUtf8(std::filesystem::canonical(VELMO_TODO_BIN).string()));

  // Nothing changed since: the second pass ends at once and would not even
  // notice a notification that went missing.
  CeClearUserNotification(notify::HandleOf(pending[0].handle));
  ASSERT_EQ(RunToEnd(VELMO_TODO_BIN, {"AppRunAfterSync"}, &errors), 0) << errors;
  EXPECT_TRUE(Pending().empty());
  EXPECT_TRUE(errors.empty()) << errors;
}

}  // namespace
}  // namespace velmo::testing
