// The after-synchronisation pass run as the real program, twice in a row.
#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

#include "platform/clock.h"
#include "platform/notify.h"
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
    return AddRecord(Props().Text(kPropSubject, L"Call the garage").Date(kPropDueDate, due)
                         .Int(kPropReminderBaseFlag, 1).Int(kPropReminderMinutes, 30)
                         .Int(kPropReminderSet, 1)
                         .Int(kPropNotificationHandle, static_cast<LONG>(handle)));
  }
  // The lines of `velmo notifications`: handle, time, application, arguments, ...
  static std::vector<std::vector<std::string>> Notifications() {
    ChildProcess velmo(VELMO_BIN, {"notifications"});
    EXPECT_EQ(velmo.Wait(), 0) << velmo.error_output();
    std::vector<std::vector<std::string>> lines;
    std::istringstream out(velmo.output());
    for (std::string line; std::getline(out, line);) {
      std::istringstream fields(line);
      lines.emplace_back();
      for (std::string f; std::getline(fields, f, '\t');) lines.back().push_back(f);
    }
    return lines;
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
  auto pending = Notifications();
  ASSERT_EQ(pending.size(), 1u) << "the passed reminder's notification is gone";
  ASSERT_GE(pending[0].size(), 4u);
  EXPECT_EQ(pending[0][2], std::filesystem::canonical(VELMO_TODO_BIN).string());
  EXPECT_EQ(pending[0][3], std::to_string(future));

  // Nothing changed since: the second pass ends at once and would not even
  // notice a notification that went missing.
  CeClearUserNotification(notify::HandleOf(std::stoul(pending[0][0])));
  ASSERT_EQ(RunToEnd(VELMO_TODO_BIN, {"AppRunAfterSync"}, &errors), 0) << errors;
  EXPECT_TRUE(Notifications().empty());
  EXPECT_TRUE(errors.empty()) << errors;
}

}  // namespace
}  // namespace velmo::testing
