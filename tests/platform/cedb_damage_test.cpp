// Damaged volumes: damage anywhere in the file is found before anything is
// written, nothing is written into the file afterwards, and recovery copies
// every readable record into a new volume with its identifier.
#include <sqlite3.h>

#include <filesystem>
#include <map>
#include <string>

#include "platform/cedb_recover.h"
#include "platform/device.h"
#include "tests/platform/cedb_fixture.h"

namespace velmo::testing {
namespace {

constexpr size_t kPageSize = 4096;
constexpr int kRecords = 300;

// A volume of kRecords records, each with a text that names it, unmounted.
class DamagedVolumeTest : public CedbTest {
 protected:
  void SetUp() override {
    CedbTest::SetUp();
    const std::wstring padding(120, L'x');
    ASSERT_TRUE(cedb::BeginWriteBatch(&volume_));
    for (int i = 0; i < kRecords; ++i) {
      const std::wstring text = L"record " + std::to_wstring(i) + L" " + padding;
      const CEOID oid = Write(0, {PropString(1, text.c_str())});
      ASSERT_NE(oid, 0u);
      texts_[oid] = text;
    }
    ASSERT_TRUE(cedb::EndWriteBatch(&volume_));
    CeCloseHandle(db_);
    db_ = INVALID_HANDLE_VALUE;
    ASSERT_TRUE(CeUnmountDBVol(&volume_));
    original_ = ReadFileBytes(VolumeFile());
    ASSERT_EQ(original_.size() % kPageSize, 0u);
  }

  // The volume's bytes with page `page` (counted from 1) overwritten by noise.
  std::string WithNoiseOnPage(size_t page) const {
    std::string bytes = original_;
    unsigned state = static_cast<unsigned>(page) * 2654435761u;
    for (size_t i = (page - 1) * kPageSize; i < page * kPageSize; ++i) {
      state = state * 1103515245u + 12345u;
      bytes[i] = static_cast<char>(state >> 16);
    }
    return bytes;
  }

  // Another file in the volume's place (as a program other than this one would
  // put it there: a new file, not the old one rewritten).
  void PutFile(const std::string& bytes) {
    for (const char* suffix : {"-wal", "-shm"}) std::filesystem::remove(VolumeFile() + suffix);
    WriteFileBytes(VolumeFile() + ".new", bytes);
    std::filesystem::rename(VolumeFile() + ".new", VolumeFile());
  }

  // The pages of a table's or index's b-tree that are of the given kind.
  std::vector<size_t> Pages(const char* name, const char* type) {
    std::vector<size_t> pages;
    sqlite3* db = nullptr;
    sqlite3_open_v2(VolumeFile().c_str(), &db, SQLITE_OPEN_READONLY, nullptr);
    sqlite3_stmt* s = nullptr;
    if (sqlite3_prepare_v2(db, "SELECT pageno FROM dbstat WHERE name=?1 AND pagetype=?2", -1, &s,
                           nullptr) == SQLITE_OK) {
      sqlite3_bind_text(s, 1, name, -1, SQLITE_STATIC);
      sqlite3_bind_text(s, 2, type, -1, SQLITE_STATIC);
      while (sqlite3_step(s) == SQLITE_ROW) pages.push_back(static_cast<size_t>(sqlite3_column_int64(s, 0)));
    }
    sqlite3_finalize(s);
    sqlite3_close(db);
    return pages;
  }

  // Every record of the mounted volume's database, by identifier.
  std::map<CEOID, std::wstring> ReadAll(const wchar_t* database = L"Tasks Database") {
    std::map<CEOID, std::wstring> all;
    HANDLE db = OpenDatabase(database);
    EXPECT_NE(db, INVALID_HANDLE_VALUE) << cedb::LastFailure();
    std::vector<CEPROPVAL> props;
    CeSeekDatabase(db, CEDB_SEEK_BEGINNING, 0, nullptr);
    while (CEOID oid = Read(&props, {}, db)) all[oid] = props.at(0).val.lpwstr;
    CeCloseHandle(db);
    return all;
  }

  std::map<CEOID, std::wstring> texts_;
  std::string original_;
};

// One page of noise at every place in the file in turn: either the mount
// refuses the file, in words that name it and the way out, and leaves it
// byte for byte as it was, or the page was unused and every record reads back.
TEST_F(DamagedVolumeTest, NoiseOnAnyPageIsFoundBeforeAnythingIsWritten) {
  const size_t pages = original_.size() / kPageSize;
  ASSERT_GT(pages, 10u);
  size_t refused = 0;
  for (size_t page = 1; page <= pages; ++page) {
    SCOPED_TRACE("page " + std::to_string(page));
    const std::string damaged = WithNoiseOnPage(page);
    PutFile(damaged);
    CEGUID guid;
    if (!CeMountDBVol(&guid, kTestVolume, OPEN_ALWAYS)) {
      ++refused;
      EXPECT_EQ(GetLastError(), ERROR_FILE_CORRUPT);
      const std::string failure = cedb::LastFailure();
      EXPECT_NE(failure.find(VolumeFile()), std::string::npos) << failure;
      EXPECT_NE(failure.find("velmo recover"), std::string::npos) << failure;
      EXPECT_EQ(ReadFileBytes(VolumeFile()), damaged);
      continue;
    }
    volume_ = guid;
    EXPECT_EQ(ReadAll(), texts_);
    CeUnmountDBVol(&guid);
  }
  EXPECT_GE(refused, pages - 2);
}

// Damage met by a read after the mount: every later write is refused and the
// file is not changed.
TEST_F(DamagedVolumeTest, AVolumeFoundDamagedByAReadTakesNoWrite) {
  ASSERT_TRUE(CeMountDBVol(&volume_, kTestVolume, OPEN_EXISTING));
  const std::vector<size_t> leaves = Pages("records", "leaf");
  ASSERT_FALSE(leaves.empty());
  // Another program damages the file while it is mounted.
  const std::string damaged = WithNoiseOnPage(leaves[leaves.size() / 2]);
  WriteFileBytes(VolumeFile(), damaged);
  ReadAll();
  EXPECT_EQ(Write(0, {PropI4(2, 1)}, OpenDatabase(L"Tasks Database")), 0u);
  EXPECT_EQ(GetLastError(), ERROR_FILE_CORRUPT);
  EXPECT_EQ(ReadFileBytes(VolumeFile()), damaged);
}

// Recovery after damage to a leaf of the records, and to the page that holds
// the databases' own rows (their counts go with it).
TEST_F(DamagedVolumeTest, RecoveryCopiesEveryReadableRecordWithItsIdentifier) {
  struct Case {
    const char* name;
    const char* tree;
    bool counts_survive;
  } cases[] = {{"a leaf of the records", "records", true}, {"the databases' rows", "databases", false}};
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    PutFile(original_);
    std::vector<size_t> pages = Pages(c.tree, "leaf");
    ASSERT_FALSE(pages.empty()) << "no dbstat table in this SQLite";
    const std::string damaged = WithNoiseOnPage(pages[pages.size() / 2]);
    PutFile(damaged);

    cedb::Recovery recovery;
    ASSERT_TRUE(cedb::RecoverVolume(VolumeFile(), &recovery)) << cedb::LastFailure();
    EXPECT_EQ(ReadFileBytes(recovery.kept_as), damaged);
    ASSERT_TRUE(CeMountDBVol(&volume_, kTestVolume, OPEN_EXISTING)) << cedb::LastFailure();
    const std::map<CEOID, std::wstring> saved = ReadAll();
    EXPECT_EQ(saved.size(), recovery.saved);
    for (const auto& [oid, text] : saved) EXPECT_EQ(texts_.at(oid), text) << oid;
    if (c.counts_survive) {
      EXPECT_LT(saved.size(), texts_.size());
      EXPECT_GT(saved.size(), texts_.size() - 20);
      ASSERT_TRUE(recovery.lost.has_value());
      EXPECT_EQ(*recovery.lost, texts_.size() - saved.size());
    } else {
      EXPECT_EQ(saved, texts_);
      EXPECT_FALSE(recovery.lost.has_value());
    }
    EXPECT_EQ(Info(db_oid_).dwNumRecords, saved.size());
    // Identifiers of lost records are not given again.
    HANDLE db = OpenDatabase(L"Tasks Database");
    EXPECT_GT(Write(0, {PropI4(2, 1)}, db), texts_.rbegin()->first);
    CeCloseHandle(db);
    CeUnmountDBVol(&volume_);
    std::filesystem::remove(recovery.kept_as);
  }
}

}  // namespace
}  // namespace velmo::testing
