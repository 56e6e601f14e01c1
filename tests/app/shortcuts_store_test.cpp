#include <gtest/gtest.h>

#include <filesystem>

#include "app/shortcut_apps.h"
#include "app/shortcut_store.h"
#include "platform/registry.h"
#include "tests/app/child_process.h"
#include "tests/settings/settings_fixture.h"

namespace velmo {
namespace {

using ShortcutsStoreTest = testing::SettingsTest;
using testing::WaitForFile;

TEST_F(ShortcutsStoreTest, SavedAsFortyTwoLittleEndianBytesAndReadBack) {
  ShortcutTable b = kDefaultShortcuts;
  b[0] = 0x0102;
  b[20] = 70;
  Settings s;
  ASSERT_EQ(SaveShortcutBindings(b, s), ERROR_SUCCESS);
  EXPECT_EQ(s.shortcuts, b);
  const registry::RawValue stored = Stored(L"Shortcuts");
  const std::vector<BYTE>& bytes = stored.bytes;
  EXPECT_EQ(stored.type, REG_BINARY);
  ASSERT_EQ(bytes.size(), 42u);
  EXPECT_EQ(bytes[0], 0x02);
  EXPECT_EQ(bytes[1], 0x01);
  EXPECT_EQ(bytes[40], 70);
  ShortcutTable read{};
  EXPECT_TRUE(ReadShortcutBindings(&read));
  EXPECT_EQ(read, b);
}

TEST_F(ShortcutsStoreTest, AnyOtherValueLeavesTheDefaults) {
  ShortcutTable read{};
  EXPECT_FALSE(ReadShortcutBindings(&read));  // missing
  EXPECT_EQ(read, kDefaultShortcuts);
  struct Case { DWORD type; size_t size; } cases[] = {{REG_BINARY, 40}, {REG_BINARY, 44}, {REG_DWORD, 42}};
  for (const Case& c : cases) {
    Set(L"Shortcuts", c.type, std::vector<BYTE>(c.size, 1));
    read.fill(7);
    EXPECT_FALSE(ReadShortcutBindings(&read)) << c.size;
    EXPECT_EQ(read, kDefaultShortcuts);
  }
}

TEST(ShortcutsPage, ValuesInNoListBecomeTheFirstChoice) {
  ShortcutTable b = kDefaultShortcuts;
  b[4] = 999;
  b[kSlotBackKey] = 9;
  ShortcutPage page = MakeShortcutPage(b);
  EXPECT_EQ(page[4].selected, 0);
  EXPECT_EQ(page[kSlotBackKey].selected, 0);
  page[kSlotNavRight].selected = 500;
  ShortcutTable back = ShortcutsFromPage(page);
  EXPECT_EQ(back[4], 0);
  EXPECT_EQ(back[kSlotBackKey], 0);
  EXPECT_EQ(back[kSlotNavRight], 0);
}

TEST(ShortcutApps, ShortcutFilesByPlatformVersion) {
  struct Case { UINT command; DWORD major; const wchar_t* file; } cases[] = {
      {39976, 3, L"\\Inbox.lnk"},       {39976, 4, L"\\Messaging.lnk"},
      {39979, 4, L"\\MSN Messenger.lnk"}, {39979, 5, L"\\Pocket MSN.lnk"},
  };
  for (const Case& c : cases) EXPECT_STREQ(AppShortcutFile(c.command, c.major), c.file);
  EXPECT_EQ(AppShortcutFile(40004), nullptr);
  EXPECT_EQ(AppLaunchName(39977), L"Call History");
}

TEST_F(ShortcutsStoreTest, AppCommandStartsTheLaunchCommandSetForIt) {
  const std::filesystem::path made = root() / "calendar started";
  ASSERT_EQ(WriteLaunchCommand(L"Calendar", {L"touch", made.wstring()}), ERROR_SUCCESS);
  EXPECT_EQ(ReadLaunchCommand(L"Calendar"), (std::vector<std::wstring>{L"touch", made.wstring()}));
  EXPECT_TRUE(StartAppShortcut(39974));
  EXPECT_TRUE(WaitForFile(made));

  // A plain string is a program without arguments; a missing program fails.
  HKEY key = nullptr;
  RegCreateKeyExW(HKEY_CURRENT_USER, L"Software\\Velmo ToDo\\Applications", 0, nullptr, 0,
                  KEY_ALL_ACCESS, nullptr, &key, nullptr);
  const wchar_t program[] = L"velmo-no-such-program";
  RegSetValueExW(key, L"Contacts", 0, REG_SZ, reinterpret_cast<const BYTE*>(program), sizeof program);
  RegCloseKey(key);
  EXPECT_EQ(ReadLaunchCommand(L"Contacts"), std::vector<std::wstring>{program});
  EXPECT_FALSE(StartAppShortcut(39975));
}

}  // namespace
}  // namespace velmo
