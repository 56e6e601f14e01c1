// The registry file under bad conditions: a damaged or foreign file, a root that
// cannot be written, a lock held by another connection.
#include <sqlite3.h>

#include <fstream>
#include <string>

#include "platform/device.h"
#include "platform/registry.h"
#include "platform/registry_file.h"
#include "tests/support/temp_root.h"

namespace {

LONG CreateSettingsKey() {
  HKEY key = nullptr;
  const LONG rc = RegCreateKeyExW(HKEY_CURRENT_USER, L"Software\\Velmo ToDo", 0, nullptr, 0, 0,
                                  nullptr, &key, nullptr);
  if (rc == ERROR_SUCCESS) RegCloseKey(key);
  return rc;
}

class RegistryFileTest : public velmo::testing::DeviceTest {};

TEST_F(RegistryFileTest, RefusesFilesItDidNotMakeAndLeavesThemAlone) {
  struct Case { const char* what; void (*make)(const std::string& path); };
  const Case cases[] = {
      {"garbage",
       [](const std::string& path) { velmo::testing::WriteFileBytes(path, std::string(4096, 'x')); }},
      {"another program's database", [](const std::string& path) {
         sqlite3* db = nullptr;
         sqlite3_open(path.c_str(), &db);
         sqlite3_exec(db, "CREATE TABLE notes(text); INSERT INTO notes VALUES('mine');", nullptr,
                      nullptr, nullptr);
         sqlite3_close(db);
       }},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    const std::string path = velmo::registry::FilePath();
    std::filesystem::remove(path);
    c.make(path);
    const std::string before = velmo::testing::ReadFileBytes(path);
    EXPECT_EQ(static_cast<LONG>(ERROR_BADDB), CreateSettingsKey());
    EXPECT_NE(std::string::npos, velmo::registry::LastFailure().find(path));
    EXPECT_EQ(before, velmo::testing::ReadFileBytes(path));
  }
}

TEST_F(RegistryFileTest, UnwritableRootIsReportedWithTheFileName) {
  std::ofstream(root() / "plain-file") << "not a folder";
  velmo::device::SetRoot(root() / "plain-file" / "device");
  EXPECT_EQ(static_cast<LONG>(ERROR_ACCESS_DENIED), CreateSettingsKey());
  EXPECT_NE(std::string::npos, velmo::registry::LastFailure().find("plain-file/device/registry.db"));
  velmo::device::SetRoot(root());
  EXPECT_EQ(ERROR_SUCCESS, CreateSettingsKey());
  EXPECT_EQ("", velmo::registry::LastFailure());
}

TEST_F(RegistryFileTest, AWriteLockHeldTooLongGivesALockViolationAndLosesNothing) {
  ASSERT_EQ(ERROR_SUCCESS, CreateSettingsKey());
  HKEY key = nullptr;
  ASSERT_EQ(ERROR_SUCCESS, RegOpenKeyExW(HKEY_CURRENT_USER, L"Software\\Velmo ToDo", 0, 0, &key));

  sqlite3* other = nullptr;
  ASSERT_EQ(SQLITE_OK, sqlite3_open(velmo::registry::FilePath().c_str(), &other));
  ASSERT_EQ(SQLITE_OK, sqlite3_exec(other, "BEGIN EXCLUSIVE", nullptr, nullptr, nullptr));
  velmo::registry::SetBusyTimeoutForTesting(50);
  const DWORD value = 480;
  EXPECT_EQ(static_cast<LONG>(ERROR_LOCK_VIOLATION),
            RegSetValueExW(key, L"ReminderTime", 0, REG_DWORD,
                           reinterpret_cast<const BYTE*>(&value), sizeof value));
  EXPECT_NE(std::string::npos, velmo::registry::LastFailure().find("locked"));
  sqlite3_exec(other, "ROLLBACK", nullptr, nullptr, nullptr);
  sqlite3_close(other);
  velmo::registry::SetBusyTimeoutForTesting(5000);

  EXPECT_EQ(ERROR_SUCCESS, RegSetValueExW(key, L"ReminderTime", 0, REG_DWORD,
                                          reinterpret_cast<const BYTE*>(&value), sizeof value));
  DWORD read = 0;
  DWORD size = sizeof read;
  EXPECT_EQ(ERROR_SUCCESS, RegQueryValueExW(key, L"ReminderTime", nullptr, nullptr,
                                            reinterpret_cast<BYTE*>(&read), &size));
  EXPECT_EQ(480u, read);
  RegCloseKey(key);
}

}  // namespace
