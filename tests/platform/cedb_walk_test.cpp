// Database order, seeking, walking, deleting, identifiers and database
// information.
#include "platform/oletime.h"
#include "tests/platform/cedb_fixture.h"

namespace velmo::testing {
namespace {

using WalkTest = CedbTest;

class WalkRecordsTest : public CedbTest {
 protected:
  void SetUp() override {
    CedbTest::SetUp();
    for (int i = 0; i < 5; ++i) oids_.push_back(Write(0, {PropI4(1, i)}));
  }
  std::vector<CEOID> oids_;
};

TEST_F(WalkRecordsTest, AutoIncrementReadsInCreationOrderToTheEnd) {
  EXPECT_EQ(Walk(), oids_);
  for (size_t i = 1; i < oids_.size(); ++i) EXPECT_GT(oids_[i], oids_[i - 1]);
  // Without CEDB_AUTOINCREMENT the position stays on the record.
  HANDLE still = OpenDatabase(L"Tasks Database", 0);
  std::vector<CEPROPVAL> props;
  EXPECT_EQ(Read(&props, {}, still), oids_[0]);
  EXPECT_EQ(Read(&props, {}, still), oids_[0]);
  CeCloseHandle(still);
}

TEST_F(WalkRecordsTest, SeekKinds) {
  const LONG back_two = -2;
  // expected is an index into oids_, or -1 when the seek fails.
  struct Case { const char* name; DWORD type; DWORD value; int expected; DWORD error; } cases[] = {
      {"beginning", CEDB_SEEK_BEGINNING, 0, 0, 0},
      {"beginning + 3", CEDB_SEEK_BEGINNING, 3, 3, 0},
      {"past the end", CEDB_SEEK_BEGINNING, 5, -1, ERROR_NO_MORE_ITEMS},
      {"end", CEDB_SEEK_END, 0, 4, 0},       {"end - 1", CEDB_SEEK_END, 1, 3, 0},
      {"record", CEDB_SEEK_CEOID, 2, 2, 0},
      {"current + 1 from record 2", CEDB_SEEK_CURRENT, 1, 3, 0},
      {"current - 2 from record 3", CEDB_SEEK_CURRENT, static_cast<DWORD>(back_two), 1, 0},
      {"current - 2 from record 1", CEDB_SEEK_CURRENT, static_cast<DWORD>(back_two), -1, ERROR_NO_MORE_ITEMS},
      {"unknown kind", 0x40, 0, -1, ERROR_INVALID_PARAMETER},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    DWORD value = c.type == CEDB_SEEK_CEOID ? oids_[c.value] : c.value;
    DWORD index = 99;
    CEOID got = CeSeekDatabase(db_, c.type, value, &index);
    if (c.expected < 0) {
      EXPECT_EQ(got, 0u);
      EXPECT_EQ(GetLastError(), c.error);
    } else {
      EXPECT_EQ(got, oids_[c.expected]);
      EXPECT_EQ(index, static_cast<DWORD>(c.expected));
    }
  }
}

TEST_F(WalkRecordsTest, SeekToARecordOfAnotherDatabaseOrADeletedOneFails) {
  CreateDatabase(L"Contacts Database");
  HANDLE contacts = OpenDatabase(L"Contacts Database");
  CEOID contact = Write(0, {PropI2(1, 1)}, contacts);
  EXPECT_EQ(CeSeekDatabase(db_, CEDB_SEEK_CEOID, contact, nullptr), 0u);
  EXPECT_EQ(GetLastError(), ERROR_INVALID_PARAMETER);
  ASSERT_TRUE(CeDeleteRecord(db_, oids_[1]));
  EXPECT_EQ(CeSeekDatabase(db_, CEDB_SEEK_CEOID, oids_[1], nullptr), 0u);
  // Deleting it again, or through the wrong database, fails.
  EXPECT_FALSE(CeDeleteRecord(db_, oids_[1]));
  EXPECT_FALSE(CeDeleteRecord(db_, contact));
  EXPECT_EQ(GetLastError(), ERROR_INVALID_PARAMETER);
  CeCloseHandle(contacts);
}

TEST_F(WalkRecordsTest, DeleteRemovesTheRecordFromTheWalkCountAndVolume) {
  ASSERT_TRUE(CeDeleteRecord(db_, oids_[2]));
  EXPECT_EQ(Walk(), (std::vector<CEOID>{oids_[0], oids_[1], oids_[3], oids_[4]}));
  EXPECT_EQ(Info().dwNumRecords, 4u);
  CEOIDINFOEX info{};
  EXPECT_FALSE(CeOidGetInfoEx(&volume_, oids_[2], &info));
  ASSERT_TRUE(CeOidGetInfoEx(&volume_, oids_[3], &info));
  EXPECT_EQ(info.wObjType, OBJTYPE_RECORD);
  EXPECT_EQ(info.infRecord.oidParent, db_oid_);
}

TEST_F(WalkRecordsTest, DeletingTheRecordAtThePositionMovesReadsToTheNext) {
  std::vector<CEPROPVAL> props;
  ASSERT_EQ(CeSeekDatabase(db_, CEDB_SEEK_CEOID, oids_[1], nullptr), oids_[1]);
  ASSERT_TRUE(CeDeleteRecord(db_, oids_[1]));
  EXPECT_EQ(Read(&props), oids_[2]);
}

TEST_F(WalkRecordsTest, AWalkSeesWritesMadeMeanwhileInThisProcess) {
  HANDLE other = OpenDatabase(L"Tasks Database");
  std::vector<CEPROPVAL> props;
  ASSERT_EQ(CeSeekDatabase(db_, CEDB_SEEK_BEGINNING, 0, nullptr), oids_[0]);
  ASSERT_EQ(Read(&props), oids_[0]);
  ASSERT_EQ(Write(oids_[1], {PropI4(1, 100)}, other), oids_[1]);
  ASSERT_TRUE(CeDeleteRecord(other, oids_[2]));
  ASSERT_EQ(Read(&props), oids_[1]);
  EXPECT_EQ(props[0].val.lVal, 100);
  EXPECT_EQ(Read(&props), oids_[3]);
  CeCloseHandle(other);
}

TEST_F(WalkTest, WalksAcrossManyRunsOfReadAhead) {
  // More records than one run holds, and records larger than a run's bytes.
  std::vector<BYTE> large(300 * 1024, 1);
  std::vector<CEOID> written;
  for (int i = 0; i < 5000; ++i) {
    if (i % 1000 == 500)
      written.push_back(Write(0, {PropBlob(1, &large)}));
    else
      written.push_back(Write(0, {PropI4(1, i)}));
  }
  EXPECT_EQ(Walk(), written);
}

TEST_F(WalkTest, IdentifiersAreNeverReused) {
  CEOID first = Write(0, {PropI2(1, 1)});
  ASSERT_TRUE(CeDeleteRecord(db_, first));
  CEOID second = Write(0, {PropI2(1, 1)});
  EXPECT_GT(second, first);
  CEOID db2 = CreateDatabase(L"Other");
  EXPECT_GT(db2, second);
  ASSERT_TRUE(CeDeleteDatabaseEx(&volume_, db2));
  // Not after remounting, nor after the volume is made again over the old one.
  CeCloseHandle(db_);
  CeUnmountDBVol(&volume_);
  ASSERT_TRUE(CeMountDBVol(&volume_, kTestVolume, CREATE_ALWAYS));
  CEOIDINFOEX info{};
  EXPECT_FALSE(CeOidGetInfoEx(&volume_, db_oid_, &info));
  db_oid_ = CreateDatabase(L"Tasks Database");
  EXPECT_GT(db_oid_, db2);
  db_ = OpenDatabase(L"Tasks Database");
  EXPECT_GT(Write(0, {PropI2(1, 1)}), db_oid_);
}

TEST_F(WalkTest, EveryWriteAndDeleteMovesLastModifiedOnAndCountsAreKept) {
  FILETIME previous = Info().ftLastModified;
  std::vector<CEOID> oids;
  auto expect_later = [&](const char* what) {
    CEDBASEINFOEX info = Info();
    EXPECT_GT(velmo::FileTimeTicks(info.ftLastModified), velmo::FileTimeTicks(previous)) << what;
    previous = info.ftLastModified;
    return info;
  };
  for (int i = 0; i < 20; ++i) {
    oids.push_back(Write(0, {PropI2(1, 1)}));
    expect_later("create");
  }
  EXPECT_EQ(Write(oids[3], {PropString(2, L"abc")}), oids[3]);
  EXPECT_EQ(expect_later("change").dwSize, 20u * 10 + 14);
  ASSERT_TRUE(CeDeleteRecord(db_, oids[3]));
  CEDBASEINFOEX info = expect_later("delete");
  EXPECT_EQ(info.dwNumRecords, 19u);
  EXPECT_EQ(info.dwSize, 19u * 10);
  EXPECT_STREQ(info.szDbaseName, L"Tasks Database");
  // A failed write leaves it alone.
  EXPECT_EQ(Write(0x7FFFFFF0, {PropI2(1, 1)}), 0u);
  EXPECT_EQ(velmo::FileTimeTicks(Info().ftLastModified), velmo::FileTimeTicks(previous));
}

TEST_F(WalkTest, DatabasesByNameWithoutCaseAndNoDuplicates) {
  CEOID oid = 0;
  HANDLE h = CeOpenDatabaseEx(&volume_, &oid, L"TASKS database", 0, 0, nullptr);
  ASSERT_NE(h, INVALID_HANDLE_VALUE);
  EXPECT_EQ(oid, db_oid_);
  CeCloseHandle(h);
  EXPECT_EQ(CreateDatabase(L"tasks DATABASE"), 0u);
  EXPECT_EQ(GetLastError(), ERROR_DUP_NAME);
  EXPECT_EQ(CreateDatabase(L""), 0u);
  EXPECT_EQ(GetLastError(), ERROR_INVALID_PARAMETER);
  EXPECT_EQ(CeOpenDatabaseEx(&volume_, &oid, L"Missing", 0, 0, nullptr), INVALID_HANDLE_VALUE);
  EXPECT_EQ(GetLastError(), ERROR_FILE_NOT_FOUND);
  EXPECT_EQ(CeOpenDatabaseEx(&volume_, &oid, L"Tasks Database", PROPID(1, CEVT_I2), 0, nullptr),
            INVALID_HANDLE_VALUE);
  // By identifier, with no name.
  oid = db_oid_;
  h = CeOpenDatabaseEx(&volume_, &oid, nullptr, 0, 0, nullptr);
  EXPECT_NE(h, INVALID_HANDLE_VALUE);
  CeCloseHandle(h);
  EXPECT_FALSE(CeCloseHandle(h));
  EXPECT_EQ(GetLastError(), ERROR_INVALID_HANDLE);
}

TEST_F(WalkTest, DeletingADatabaseDeletesItsRecords) {
  CEOID oid = Write(0, {PropI2(1, 1)});
  ASSERT_TRUE(CeDeleteDatabaseEx(&volume_, db_oid_));
  CEOIDINFOEX info{};
  EXPECT_FALSE(CeOidGetInfoEx(&volume_, oid, &info));
  EXPECT_EQ(Write(0, {PropI2(1, 1)}), 0u);
  std::vector<CEPROPVAL> props;
  EXPECT_EQ(Read(&props), 0u);
}

}  // namespace
}  // namespace velmo::testing
