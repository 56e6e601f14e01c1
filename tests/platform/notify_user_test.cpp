// User notifications: made, replaced, read back into the caller's buffer,
// listed and cleared, in the notifications file of the device.
#include <string>
#include <vector>

#include "platform/device.h"
#include "platform/lasterror.h"
#include "platform/notify.h"
#include "platform/notify_store.h"
#include "tests/support/temp_root.h"

namespace velmo::testing {
namespace {

using NotifyTest = DeviceTest;

const SYSTEMTIME kAt = {2025, 7, 0, 14, 9, 30, 0, 0};
const SYSTEMTIME kUntil = {2025, 7, 0, 14, 10, 42, 0, 0};

struct Request {
  std::wstring app = L"/usr/bin/velmo-todo";
  std::wstring args = L"4711";
  std::wstring title = L"Velmo ToDo List";
  std::wstring text = L"Pay rent\r\n14/07/2025 (!)";
  std::wstring sound = L"reminder";
  CE_NOTIFICATION_TRIGGER trigger{};
  CE_USER_NOTIFICATION user{};

  Request() {
    trigger = {kPlatformTriggerSize, CNT_TIME, 0, app.data(), args.data(), kAt, kUntil};
    user = {PUN_LED | PUN_DIALOG | PUN_SOUND, title.data(), text.data(), sound.data(),
            static_cast<DWORD>(sound.size()), 0};
  }
};

std::vector<BYTE> Get(HANDLE h) {
  DWORD needed = 0;
  EXPECT_FALSE(CeGetUserNotification(h, 0, &needed, nullptr));
  std::vector<BYTE> buffer(needed);
  if (!CeGetUserNotification(h, needed, &needed, buffer.data())) buffer.clear();
  return buffer;
}

TEST_F(NotifyTest, ANotificationReadsBackAsItWasSet) {
  Request r;
  const HANDLE h = CeSetUserNotificationEx(nullptr, &r.trigger, &r.user);
  ASSERT_NE(h, nullptr);
  std::vector<BYTE> buffer = Get(h);
  ASSERT_FALSE(buffer.empty());
  const auto* header = reinterpret_cast<const CE_NOTIFICATION_INFO_HEADER*>(buffer.data());
  EXPECT_EQ(header->hNotification, h);
  EXPECT_EQ(header->dwStatus, 0u);
  ASSERT_NE(header->pcent, nullptr);
  ASSERT_NE(header->pceun, nullptr);
  // Everything points into the caller's buffer.
  const BYTE* end = buffer.data() + buffer.size();
  for (const void* p : {static_cast<const void*>(header->pcent), static_cast<const void*>(header->pceun),
                        static_cast<const void*>(header->pcent->lpszApplication),
                        static_cast<const void*>(header->pceun->pwszDialogText)})
    EXPECT_TRUE(p > static_cast<const void*>(buffer.data()) && p < static_cast<const void*>(end));
  EXPECT_EQ(header->pcent->dwType, CNT_TIME);
  EXPECT_STREQ(header->pcent->lpszApplication, L"/usr/bin/velmo-todo");
  EXPECT_STREQ(header->pcent->lpszArguments, L"4711");
  EXPECT_EQ(header->pcent->stStartTime.wHour, 9);
  EXPECT_EQ(header->pcent->stStartTime.wMinute, 30);
  EXPECT_EQ(header->pcent->stStartTime.wDayOfWeek, 1) << "14 July 2025 is a Monday";
  EXPECT_EQ(header->pcent->stEndTime.wMinute, 42);
  EXPECT_EQ(header->pceun->ActionFlags, PUN_LED | PUN_DIALOG | PUN_SOUND);
  EXPECT_STREQ(header->pceun->pwszDialogTitle, L"Velmo ToDo List");
  EXPECT_STREQ(header->pceun->pwszDialogText, L"Pay rent\r\n14/07/2025 (!)");
  EXPECT_STREQ(header->pceun->pwszSound, L"reminder");

  DWORD needed = 0;
  EXPECT_FALSE(CeGetUserNotification(h, static_cast<DWORD>(buffer.size() - 1), &needed, buffer.data()));
  EXPECT_EQ(GetLastError(), ERROR_INSUFFICIENT_BUFFER);
  EXPECT_EQ(needed, buffer.size());
}

TEST_F(NotifyTest, ReplacingKeepsTheHandleAndClearingEndsIt) {
  Request r;
  const HANDLE first = CeSetUserNotificationEx(nullptr, &r.trigger, &r.user);
  const HANDLE second = CeSetUserNotificationEx(nullptr, &r.trigger, nullptr);
  ASSERT_NE(first, nullptr);
  ASSERT_NE(second, nullptr);
  EXPECT_NE(first, second);
  ASSERT_TRUE(notify::MarkSignalled(notify::HandleValue(first)));

  std::wstring text = L"Moved";
  r.user.pwszDialogText = text.data();
  EXPECT_EQ(CeSetUserNotificationEx(first, &r.trigger, &r.user), first);
  std::vector<BYTE> buffer = Get(first);
  const auto* header = reinterpret_cast<const CE_NOTIFICATION_INFO_HEADER*>(buffer.data());
  EXPECT_STREQ(header->pceun->pwszDialogText, L"Moved");
  EXPECT_EQ(header->dwStatus, 0u) << "a replaced notification waits again";
  EXPECT_EQ(reinterpret_cast<const CE_NOTIFICATION_INFO_HEADER*>(Get(second).data())->pceun, nullptr);

  HANDLE handles[4] = {};
  DWORD count = 0;
  EXPECT_FALSE(CeGetUserNotificationHandles(handles, 1, &count));
  EXPECT_EQ(GetLastError(), ERROR_INSUFFICIENT_BUFFER);
  EXPECT_EQ(count, 2u);
  ASSERT_TRUE(CeGetUserNotificationHandles(handles, 4, &count));
  EXPECT_EQ(handles[0], first);
  EXPECT_EQ(handles[1], second);

  EXPECT_TRUE(CeClearUserNotification(first));
  EXPECT_FALSE(CeClearUserNotification(first));
  EXPECT_EQ(GetLastError(), ERROR_INVALID_HANDLE);
  EXPECT_EQ(CeSetUserNotificationEx(first, &r.trigger, &r.user), nullptr);
  EXPECT_EQ(GetLastError(), ERROR_INVALID_HANDLE);
  DWORD needed = 0;
  EXPECT_FALSE(CeGetUserNotification(first, 0, &needed, nullptr));
  EXPECT_EQ(GetLastError(), ERROR_INVALID_HANDLE);

  // Handles are never reused.
  const HANDLE third = CeSetUserNotificationEx(nullptr, &r.trigger, &r.user);
  EXPECT_GT(notify::HandleValue(third), notify::HandleValue(second));
}

TEST_F(NotifyTest, BadTriggersAreRefused) {
  struct Case { const char* name; void (*spoil)(CE_NOTIFICATION_TRIGGER*); } const cases[] = {
      {"size", [](CE_NOTIFICATION_TRIGGER* t) { t->dwSize = 20; }},
      {"type", [](CE_NOTIFICATION_TRIGGER* t) { t->dwType = 9; }},
      {"no application", [](CE_NOTIFICATION_TRIGGER* t) { t->lpszApplication = nullptr; }},
      {"empty application", [](CE_NOTIFICATION_TRIGGER* t) { t->lpszApplication = const_cast<wchar_t*>(L""); }},
      {"month 13", [](CE_NOTIFICATION_TRIGGER* t) { t->stStartTime.wMonth = 13; }},
      {"30 February", [](CE_NOTIFICATION_TRIGGER* t) { t->stEndTime = {2025, 2, 0, 30, 0, 0, 0, 0}; }},
  };
  for (const Case& c : cases) {
    Request r;
    c.spoil(&r.trigger);
    SetLastError(0);
    EXPECT_EQ(CeSetUserNotificationEx(nullptr, &r.trigger, &r.user), nullptr) << c.name;
    EXPECT_EQ(GetLastError(), ERROR_INVALID_PARAMETER) << c.name;
  }
  EXPECT_EQ(CeSetUserNotificationEx(nullptr, nullptr, nullptr), nullptr);
  DWORD count = 9;
  EXPECT_TRUE(CeGetUserNotificationHandles(nullptr, 0, &count));
  EXPECT_EQ(count, 0u);

  // An event trigger needs no times.
  Request event;
  event.trigger.dwType = CNT_EVENT;
  event.trigger.dwEvent = NOTIFICATION_EVENT_SYNC_END;
  event.trigger.stStartTime = {};
  EXPECT_NE(CeSetUserNotificationEx(nullptr, &event.trigger, nullptr), nullptr);
}

TEST_F(NotifyTest, AnotherRootHasItsOwnNotifications) {
  Request r;
  ASSERT_NE(CeSetUserNotificationEx(nullptr, &r.trigger, &r.user), nullptr);
  std::vector<notify::PendingNotification> here;
  ASSERT_TRUE(notify::ListUserNotifications(&here));
  EXPECT_EQ(here.size(), 1u);
  {
    TempRoot other;
    std::vector<notify::PendingNotification> there;
    ASSERT_TRUE(notify::ListUserNotifications(&there));
    EXPECT_TRUE(there.empty());
  }
  device::SetRoot(root());
}

TEST_F(NotifyTest, ABatchIsOneTransaction) {
  Request r;
  ASSERT_TRUE(notify::BeginStoreBatch());
  for (int i = 0; i < 50; ++i) ASSERT_NE(CeSetUserNotificationEx(nullptr, &r.trigger, &r.user), nullptr);
  // Another connection does not see the batch before it ends.
  sqlite3* other = notify::OpenStore();
  ASSERT_NE(other, nullptr);
  auto count = [&] {
    notify::StoreStatement s = notify::PrepareStore(other, "SELECT count(*) FROM user_notifications");
    sqlite3_step(s.get());
    return sqlite3_column_int(s.get(), 0);
  };
  EXPECT_EQ(count(), 0);
  ASSERT_TRUE(notify::EndStoreBatch());
  EXPECT_EQ(count(), 50);
  sqlite3_close(other);
}

}  // namespace
}  // namespace velmo::testing
