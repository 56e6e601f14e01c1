// The program's start-up as processes: one instance running, others handing
// their requests over, the after-synchronisation start, failed starts.
#include <gtest/gtest.h>
#include <signal.h>
#include <stdlib.h>
#include <sys/stat.h>

#include <fstream>

#include "platform/cedb.h"
#include "platform/registry.h"
#include "tests/app/child_process.h"
#include "tests/support/temp_root.h"

namespace velmo::app {
namespace {

using velmo::testing::ChildProcess;
using velmo::testing::RunToEnd;

class StartupProcessTest : public velmo::testing::DeviceTest {
 protected:
  void SetUp() override {
    const std::string run = root().string() + "/run";
    mkdir(run.c_str(), 0700);
    setenv("XDG_RUNTIME_DIR", run.c_str(), 1);
  }
  void TearDown() override { unsetenv("XDG_RUNTIME_DIR"); }

  // True when the settings key holds the value; a DWORD one lands in *value.
  static bool HasSetting(const wchar_t* name, DWORD* value = nullptr) {
    HKEY key = nullptr;
    if (RegOpenKeyExW(HKEY_CURRENT_USER, L"Software\\Velmo ToDo", 0, KEY_READ, &key) != ERROR_SUCCESS)
      return false;
    DWORD size = value ? sizeof *value : 0;
    const LONG rc = RegQueryValueExW(key, name, nullptr, nullptr, reinterpret_cast<BYTE*>(value), &size);
    RegCloseKey(key);
    return rc == ERROR_SUCCESS;
  }
  // The DWORD setting, or ~0 when absent.
  static DWORD DwordSetting(const wchar_t* name) {
    DWORD value = ~0u;
    return HasSetting(name, &value) ? value : ~0u;
  }

  // Adds tasks with these subjects (an empty one: a record without a subject) and
  // returns the database's last-modified time afterwards.
  static FILETIME AddTasks(std::initializer_list<const wchar_t*> subjects) {
    EXPECT_TRUE(cedb::EnsureDeviceVolume());
    CEGUID volume;
    EXPECT_TRUE(CeMountDBVol(&volume, cedb::kDefaultVolumePath, OPEN_EXISTING));
    CEOID database = 0;
    HANDLE db = CeOpenDatabaseEx(&volume, &database, cedb::kTasksDatabaseName, 0, 0, nullptr);
    EXPECT_NE(db, INVALID_HANDLE_VALUE);
    for (const wchar_t* subject : subjects) {
      CEPROPVAL values[2] = {};
      values[0].propid = 0x00040003;  // a property every record has
      values[1].propid = 0x0037001F;
      values[1].val.lpwstr = const_cast<LPWSTR>(subject);
      EXPECT_NE(CeWriteRecordProps(db, 0, *subject ? 2 : 1, values), 0u);
    }
    CEOIDINFOEX info{};
    EXPECT_TRUE(CeOidGetInfoEx(&volume, database, &info));
    CeCloseHandle(db);
    CeUnmountDBVol(&volume);
    return info.infDatabase.ftLastModified;
  }
};

TEST_F(StartupProcessTest, SecondInstanceHandsItsRequestOver) {
  ChildProcess first(VELMO_TODO_BIN, {"-today"});
  ASSERT_TRUE(first.started());
  ASSERT_NE(first.WaitForLine("Today ["), "") << first.error_output();

  // What the running instance's screen shows after each hand-over; nullptr:
  // nothing that a screen shows (the request is answered all the same).
  struct Case { std::vector<std::string> args; const char* shown; } cases[] = {
      {{"-default"}, "Tasks ["},    {{"-today"}, "Today ["},       {{"-new"}, nullptr},
      {{"12345", "-new"}, nullptr}, {{"4294967295"}, nullptr},     {{"AppRunAfterSync"}, nullptr},
      {{}, nullptr},                {{"apprunaftersync"}, nullptr}, {{"-default"}, "Tasks ["},
  };
  for (const Case& c : cases) {
    ChildProcess second(VELMO_TODO_BIN, c.args);
    second.CloseInput();
    EXPECT_EQ(second.Wait(), 0) << second.error_output();
    // The hand-over is synchronous: it is handled before the second one ends.
    if (c.shown) {
      EXPECT_NE(first.WaitForLine(c.shown, std::chrono::milliseconds(2000)), "")
          << "second instance printed: " << second.output() << second.error_output();
    }
  }
  first.CloseInput();
  EXPECT_EQ(first.Wait(), 0);
  EXPECT_EQ(first.error_output().find("refused"), std::string::npos) << first.error_output();

  // With the first one gone, the next start is the first instance again.
  ChildProcess again(VELMO_TODO_BIN, {"77"});
  EXPECT_NE(again.WaitForLine("Tasks ["), "");
  again.Signal(SIGTERM);
  EXPECT_EQ(again.Wait(), 0);
}

TEST_F(StartupProcessTest, RunningInstanceListsTheTasks) {
  AddTasks({L"Buy milk", L"", L"Call \u00c5sa"});
  ChildProcess first(VELMO_TODO_BIN, {});
  // The welcome task of the first run joins them.
  EXPECT_NE(first.WaitForLine("Tasks [4]"), "") << first.error_output();
  EXPECT_NE(first.WaitForLine("Buy milk"), "") << first.output();
  EXPECT_NE(first.output().find("Call \xc3\x85sa"), std::string::npos) << first.output();
  first.CloseInput();
  EXPECT_EQ(first.Wait(), 0);
}

TEST_F(StartupProcessTest, AfterSyncStoresTheDatabaseTimeOnlyWhenItChanged) {
  const FILETIME before = AddTasks({L"one"});
  EXPECT_EQ(RunToEnd(VELMO_TODO_BIN, {"AppRunAfterSync"}), 0);
  EXPECT_EQ(DwordSetting(L"LastModifiedHigh"), before.dwHighDateTime);
  EXPECT_EQ(DwordSetting(L"LastModifiedLow"), before.dwLowDateTime);
  const FILETIME after = AddTasks({L"two"});
  ASSERT_NE(after.dwLowDateTime, before.dwLowDateTime);
  EXPECT_EQ(RunToEnd(VELMO_TODO_BIN, {"AppRunAfterSync"}), 0);
  EXPECT_EQ(DwordSetting(L"LastModifiedLow"), after.dwLowDateTime);
  EXPECT_FALSE(HasSetting(L"ReminderTime"));
}

TEST_F(StartupProcessTest, AfterSyncOnAFreshRootSavesNoIncompleteSettings) {
  std::string errors;
  EXPECT_EQ(RunToEnd(VELMO_TODO_BIN, {"AppRunAfterSync"}, &errors), 0);
  EXPECT_EQ(errors, "");
  for (const wchar_t* name : {L"ReminderTime", L"Sort", L"Shortcuts", L"VersionMajor", L"Txt1"})
    EXPECT_FALSE(HasSetting(name)) << name;
}

TEST_F(StartupProcessTest, ForeignStringTableStopsTheStart) {
  const std::string table = (root() / "foreign.txt").string();
  std::ofstream(table) << "120\tOther resources\n121\tOther Program\n";
  ChildProcess start(VELMO_TODO_BIN, {}, {"VELMO_LANGUAGE_FILE=" + table});
  start.CloseInput();
  EXPECT_EQ(start.Wait(), 0);
  EXPECT_EQ(start.error_output(), "Velmo ToDo List: Restart the device\n");
  EXPECT_EQ(start.output(), "");
}

TEST_F(StartupProcessTest, DamagedVolumeIsNamedAndLeftAlone) {
  const std::string volume = (root() / "IPSM" / "mxip_initdb.vol").string();
  const std::string garbage(4096, 'g');
  testing::WriteFileBytes(volume, garbage);
  // The program refuses the device, saying which file and what to do.
  ChildProcess first(VELMO_TODO_BIN, {});
  first.CloseInput();
  EXPECT_EQ(first.Wait(), 1);
  EXPECT_NE(first.error_output().find(volume), std::string::npos) << first.error_output();
  EXPECT_NE(first.error_output().find("velmo recover"), std::string::npos) << first.error_output();
  EXPECT_EQ(testing::ReadFileBytes(volume), garbage);
}

TEST_F(StartupProcessTest, UnusableDeviceRootIsNamed) {
  const std::string file = (root() / "not-a-folder").string();
  std::ofstream(file) << "x";
  ChildProcess start(VELMO_TODO_BIN, {}, {"VELMO_ROOT=" + file + "/root"});
  start.CloseInput();
  EXPECT_EQ(start.Wait(), 1);
  EXPECT_NE(start.error_output().find(file + "/root"), std::string::npos) << start.error_output();
}

}  // namespace
}  // namespace velmo::app
