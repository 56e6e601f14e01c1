// Mounting volumes: the ways of mounting, the invalid identifier, damaged,
// foreign and locked files, and the device's own volume.
#include <sqlite3.h>

#include <filesystem>

#include "platform/cedb_recover.h"
#include "platform/device.h"
#include "tests/platform/cedb_fixture.h"

namespace velmo::testing {
namespace {

using VolumeTest = DeviceTest;

// Every call given the identifier fails cleanly.
void ExpectEveryCallFails(CEGUID* guid) {
  CEOID oid = 0;
  EXPECT_EQ(CeOpenDatabaseEx(guid, &oid, L"Tasks Database", 0, CEDB_AUTOINCREMENT, nullptr),
            INVALID_HANDLE_VALUE);
  EXPECT_NE(GetLastError(), ERROR_SUCCESS);
  CEOIDINFOEX info{};
  EXPECT_FALSE(CeOidGetInfoEx(guid, 1, &info));
  CEDBASEINFO create{};
  create.dwFlags = CEDB_VALIDNAME;
  create.szDbaseName[0] = L'x';
  EXPECT_EQ(CeCreateDatabaseEx(guid, &create), 0u);
  EXPECT_FALSE(CeDeleteDatabaseEx(guid, 1));
  EXPECT_FALSE(CeUnmountDBVol(guid));
  // Reading through the invalid handle the failed open gave.
  WORD count = 0;
  BYTE* buffer = nullptr;
  DWORD size = 0;
  EXPECT_EQ(CeSeekDatabase(INVALID_HANDLE_VALUE, CEDB_SEEK_BEGINNING, 0, nullptr), 0u);
  EXPECT_EQ(CeReadRecordProps(INVALID_HANDLE_VALUE, CEDB_ALLOWREALLOC, &count, nullptr, &buffer, &size), 0u);
  EXPECT_EQ(GetLastError(), ERROR_INVALID_HANDLE);
  EXPECT_EQ(buffer, nullptr);
}

TEST_F(VolumeTest, WaysOfMounting) {
  std::filesystem::path file = device::MapPlatformPath(kTestVolume);
  EXPECT_EQ(file, root() / "IPSM" / "test.vol");
  struct Step { const char* name; DWORD flags; BOOL mounts; DWORD error; } steps[] = {
      {"open existing on no file", OPEN_EXISTING, FALSE, ERROR_FILE_NOT_FOUND},
      {"unknown way", 9, FALSE, ERROR_INVALID_PARAMETER},
      {"create new", CREATE_NEW, TRUE, 0},
      {"create new again", CREATE_NEW, FALSE, ERROR_ALREADY_EXISTS},
      {"open existing", OPEN_EXISTING, TRUE, 0},
      {"open always", OPEN_ALWAYS, TRUE, 0},
  };
  for (const Step& step : steps) {
    SCOPED_TRACE(step.name);
    CEGUID guid;
    EXPECT_EQ(CeMountDBVol(&guid, kTestVolume, step.flags), step.mounts);
    if (step.mounts) {
      EXPECT_FALSE(CHECK_INVALIDGUID(&guid));
      EXPECT_TRUE(CeUnmountDBVol(&guid));
    } else {
      EXPECT_TRUE(CHECK_INVALIDGUID(&guid));
      EXPECT_EQ(GetLastError(), step.error);
      if (step.error != ERROR_INVALID_PARAMETER) {
        EXPECT_NE(cedb::LastFailure().find(file.string()), std::string::npos);
      }
      ExpectEveryCallFails(&guid);
    }
    EXPECT_EQ(std::filesystem::exists(file), step.error != ERROR_FILE_NOT_FOUND && step.error != ERROR_INVALID_PARAMETER);
  }
}

TEST_F(VolumeTest, MountsAreCountedAndHandlesOutliveTheLastUnmount) {
  CEGUID first, second;
  ASSERT_TRUE(CeMountDBVol(&first, kTestVolume, OPEN_ALWAYS));
  ASSERT_TRUE(CeMountDBVol(&second, kTestVolume, OPEN_ALWAYS));
  CEDBASEINFO info{};
  info.dwFlags = CEDB_VALIDNAME;
  info.szDbaseName[0] = L'd';
  CEOID db = CeCreateDatabaseEx(&first, &info);
  HANDLE h = CeOpenDatabaseEx(&second, &db, nullptr, 0, 0, nullptr);
  ASSERT_NE(h, INVALID_HANDLE_VALUE);
  EXPECT_TRUE(CeUnmountDBVol(&first));
  CEOIDINFOEX oid_info{};
  EXPECT_TRUE(CeOidGetInfoEx(&second, db, &oid_info));
  EXPECT_TRUE(CeUnmountDBVol(&second));
  EXPECT_FALSE(CeOidGetInfoEx(&second, db, &oid_info));
  CEPROPVAL value = PropI2(1, 5);
  EXPECT_NE(CeWriteRecordProps(h, 0, 1, &value), 0u);
  EXPECT_TRUE(CeCloseHandle(h));
}

TEST_F(VolumeTest, BadFilesFailWithAClearMessageAndAreLeftUntouched) {
  std::filesystem::path file = device::MapPlatformPath(kTestVolume);
  std::string garbage(8192, '\0');
  for (size_t i = 0; i < garbage.size(); ++i) garbage[i] = static_cast<char>(i * 131 + 7);

  // A volume whose pages after the first were overwritten.
  std::string damaged;
  {
    CEGUID guid;
    ASSERT_TRUE(CeMountDBVol(&guid, kTestVolume, OPEN_ALWAYS));
    ASSERT_TRUE(cedb::EnsureDeviceVolume());
    CeUnmountDBVol(&guid);
    damaged = ReadFileBytes(file);
    std::filesystem::remove(file);
    ASSERT_GT(damaged.size(), 4096u);
    for (size_t i = 100; i < damaged.size(); ++i) damaged[i] = garbage[i % garbage.size()];
  }
  // Another program's SQLite file.
  std::string foreign;
  {
    std::filesystem::path other = root() / "other.db";
    sqlite3* db = nullptr;
    ASSERT_EQ(sqlite3_open(other.c_str(), &db), SQLITE_OK);
    sqlite3_exec(db, "CREATE TABLE notes(x); INSERT INTO notes VALUES(1)", nullptr, nullptr, nullptr);
    sqlite3_close(db);
    foreign = ReadFileBytes(other);
  }
  struct Case { const char* name; std::string bytes; DWORD error; } cases[] = {
      {"garbage", garbage, ERROR_FILE_CORRUPT},
      {"damaged pages", damaged, ERROR_FILE_CORRUPT},
      {"another program's file", foreign, ERROR_BAD_FORMAT}};
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    WriteFileBytes(file, c.bytes);
    for (DWORD flags : {OPEN_EXISTING, OPEN_ALWAYS, CREATE_ALWAYS}) {
      CEGUID guid;
      EXPECT_FALSE(CeMountDBVol(&guid, kTestVolume, flags));
      EXPECT_EQ(GetLastError(), c.error);
      EXPECT_TRUE(CHECK_INVALIDGUID(&guid));
      EXPECT_NE(cedb::LastFailure().find(file.string()), std::string::npos) << cedb::LastFailure();
      ExpectEveryCallFails(&guid);
    }
    EXPECT_EQ(ReadFileBytes(file), c.bytes);
    std::filesystem::remove(file);
  }
}

class LockedVolumeTest : public CedbTest {
 protected:
  void SetUp() override {
    cedb::SetBusyTimeout(100);
    CedbTest::SetUp();
    ASSERT_EQ(sqlite3_open(VolumeFile().c_str(), &other_), SQLITE_OK);
  }
  void TearDown() override {
    sqlite3_close(other_);
    CedbTest::TearDown();
    cedb::SetBusyTimeout(5000);
  }
  sqlite3* other_ = nullptr;
};

TEST_F(LockedVolumeTest, AWriterHoldingTheLockMakesWritesFailAndReadsGoOn) {
  CEOID oid = Write(0, {PropI2(1, 1)});
  ASSERT_EQ(sqlite3_exec(other_, "BEGIN IMMEDIATE; DELETE FROM changes", nullptr, nullptr, nullptr), SQLITE_OK);
  EXPECT_EQ(Write(0, {PropI2(1, 2)}), 0u);
  EXPECT_EQ(GetLastError(), ERROR_LOCK_VIOLATION);
  EXPECT_NE(cedb::LastFailure().find(VolumeFile()), std::string::npos) << cedb::LastFailure();
  EXPECT_NE(cedb::LastFailure().find("locked"), std::string::npos);
  EXPECT_FALSE(CeDeleteRecord(db_, oid));
  EXPECT_EQ(Walk(), std::vector<CEOID>{oid});
  ASSERT_EQ(sqlite3_exec(other_, "ROLLBACK", nullptr, nullptr, nullptr), SQLITE_OK);
  EXPECT_NE(Write(0, {PropI2(1, 2)}), 0u);
}

TEST_F(LockedVolumeTest, AnExclusiveHolderMakesMountingFail) {
  CeCloseHandle(db_);
  db_ = INVALID_HANDLE_VALUE;
  CeUnmountDBVol(&volume_);
  std::string before = ReadFileBytes(VolumeFile());
  ASSERT_EQ(sqlite3_exec(other_, "PRAGMA locking_mode=EXCLUSIVE; BEGIN EXCLUSIVE; DELETE FROM changes",
                         nullptr, nullptr, nullptr), SQLITE_OK);
  CEGUID guid;
  EXPECT_FALSE(CeMountDBVol(&guid, kTestVolume, OPEN_EXISTING));
  EXPECT_EQ(GetLastError(), ERROR_LOCK_VIOLATION);
  EXPECT_NE(cedb::LastFailure().find(VolumeFile()), std::string::npos) << cedb::LastFailure();
  EXPECT_TRUE(CHECK_INVALIDGUID(&guid));
  sqlite3_exec(other_, "ROLLBACK", nullptr, nullptr, nullptr);
  EXPECT_EQ(ReadFileBytes(VolumeFile()), before);
  volume_ = guid;
}

TEST_F(VolumeTest, TheDeviceVolumeHasTheThreeEmptyDatabases) {
  ASSERT_TRUE(cedb::EnsureDeviceVolume()) << cedb::LastFailure();
  EXPECT_TRUE(std::filesystem::exists(root() / "IPSM" / "mxip_initdb.vol"));
  CEGUID guid;
  ASSERT_TRUE(CeMountDBVol(&guid, cedb::kDefaultVolumePath, OPEN_EXISTING));
  std::vector<CEOID> oids;
  for (const wchar_t* name : {L"Tasks Database", L"Contacts Database", L"Appointments Database"}) {
    CEOID oid = 0;
    HANDLE h = CeOpenDatabaseEx(&guid, &oid, name, 0, 0, nullptr);
    ASSERT_NE(h, INVALID_HANDLE_VALUE) << name;
    CEOIDINFOEX info{};
    ASSERT_TRUE(CeOidGetInfoEx(&guid, oid, &info));
    EXPECT_EQ(info.infDatabase.dwNumRecords, 0u);
    oids.push_back(oid);
    CeCloseHandle(h);
  }
  // Making it again keeps what is there.
  ASSERT_TRUE(cedb::EnsureDeviceVolume());
  CEOID tasks = 0;
  HANDLE h = CeOpenDatabaseEx(&guid, &tasks, L"Tasks Database", 0, 0, nullptr);
  EXPECT_EQ(tasks, oids[0]);
  CeCloseHandle(h);
  CeUnmountDBVol(&guid);
}

}  // namespace
}  // namespace velmo::testing
