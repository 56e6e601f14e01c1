// The reminder service's decisions: which notifications are due, what happens
// to each, and when it wakes next.
#include "platform/notify_due.h"
#include "platform/oletime.h"

#include <gtest/gtest.h>

namespace velmo::notify {
namespace {

SYSTEMTIME At(int day, int hour, int minute) {
  return SYSTEMTIME{2025, 7, 0, static_cast<WORD>(day), static_cast<WORD>(hour),
                    static_cast<WORD>(minute), 0, 0};
}

PendingNotification Make(DWORD handle, SYSTEMTIME start, bool dialog, const wchar_t* app,
                         DWORD type = CNT_TIME, DWORD status = 0) {
  PendingNotification n;
  n.handle = handle;
  n.type = type;
  n.status = status;
  n.start = start;
  n.has_dialog = dialog;
  n.application = app;
  return n;
}

std::vector<DWORD> Handles(const std::vector<PendingNotification>& list) {
  std::vector<DWORD> out;
  for (const auto& n : list) out.push_back(n.handle);
  return out;
}

TEST(NotifyDueTest, DueNotificationsAreSortedByWhatHappensToThem) {
  const DATE now = MakeDate(2025, 7, 14, 9, 30);
  const std::vector<PendingNotification> pending = {
      Make(1, At(14, 9, 30), true, L"/app"),                       // due this minute
      Make(2, At(14, 8, 0), true, L"/gone"),                       // due, application gone
      Make(3, At(14, 9, 0), false, L"/app"),                       // due, no dialog: started
      Make(4, At(14, 9, 0), false, L"/gone"),                      // due, no dialog, gone
      Make(5, At(14, 9, 45), true, L"/app"),                       // later today
      Make(6, At(15, 7, 0), true, L"/app"),                        // tomorrow
      Make(7, At(14, 8, 0), true, L"/app", CNT_TIME, CNS_SIGNALLED),  // raised already
      Make(8, At(1, 0, 0), false, L"/app", CNT_EVENT),             // an event registration
      Make(9, SYSTEMTIME{2025, 2, 0, 30, 0, 0, 0, 0}, true, L"/app"),  // no real date
      Make(10, At(14, 9, 10), true, L"/app", CNT_PERIOD),          // a period under way
  };
  const DuePlan plan = PlanDue(pending, now, [](const std::wstring& app) { return app == L"/app"; });
  EXPECT_EQ(Handles(plan.raise), (std::vector<DWORD>{1, 10}));
  EXPECT_EQ(Handles(plan.raise_and_clear), std::vector<DWORD>{2});
  EXPECT_EQ(Handles(plan.start), std::vector<DWORD>{3});
  EXPECT_EQ(Handles(plan.clear), std::vector<DWORD>{4});
  EXPECT_EQ(plan.next, MakeDate(2025, 7, 14, 9, 45));
}

TEST(NotifyDueTest, NothingWaitingMeansNoNextTime) {
  const DuePlan plan = PlanDue({Make(7, At(14, 8, 0), true, L"/app", CNT_TIME, CNS_SIGNALLED)},
                               MakeDate(2025, 7, 14), [](const std::wstring&) { return true; });
  EXPECT_TRUE(plan.raise.empty());
  EXPECT_EQ(plan.next, kNoDate);
}

}  // namespace
}  // namespace velmo::notify
