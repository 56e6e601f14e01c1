// Several processes on one volume: concurrent writers lose nothing, and the
// change journal tells each handle what others created, changed and deleted.
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <functional>
#include <set>

#include "tests/platform/cedb_fixture.h"

namespace velmo::testing {
namespace {

using ProcessTest = CedbTest;

// Runs body in a child process that mounts the test volume itself; returns the
// child's pid. The child exits 0 when body returns true.
pid_t StartChild(const std::function<bool(CEGUID*, HANDLE)>& body) {
  pid_t pid = fork();
  if (pid != 0) return pid;
  CEGUID volume;
  CEOID db = 0;
  bool ok = CeMountDBVol(&volume, kTestVolume, OPEN_EXISTING);
  HANDLE h = ok ? CeOpenDatabaseEx(&volume, &db, L"Tasks Database", 0, CEDB_AUTOINCREMENT, nullptr)
                : INVALID_HANDLE_VALUE;
  ok = h != INVALID_HANDLE_VALUE && body(&volume, h);
  _exit(ok ? 0 : 1);
}

bool ChildSucceeded(pid_t pid) {
  int status = 0;
  return waitpid(pid, &status, 0) == pid && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

TEST_F(ProcessTest, ConcurrentWritersLoseNoWrite) {
  constexpr int kChildren = 4;
  constexpr int kWrites = 150;
  // Every child also keeps its own property of one shared record up to date:
  // a write merges into the record as it is at that moment, so none is lost.
  CEOID shared = Write(0, {PropI2(100, 0)});
  std::vector<pid_t> children;
  for (int c = 0; c < kChildren; ++c) {
    children.push_back(StartChild([=](CEGUID*, HANDLE h) {
      for (int i = 1; i <= kWrites; ++i) {
        CEPROPVAL created = PropI4(1, c * 1000 + i);
        CEPROPVAL counter = PropI4(static_cast<WORD>(10 + c), i);
        if (!CeWriteRecordProps(h, 0, 1, &created)) return false;
        if (!CeWriteRecordProps(h, shared, 1, &counter)) return false;
      }
      return true;
    }));
  }
  for (pid_t pid : children) EXPECT_TRUE(ChildSucceeded(pid));

  std::vector<CEOID> oids = Walk();
  EXPECT_EQ(oids.size(), 1u + kChildren * kWrites);
  EXPECT_EQ(std::set<CEOID>(oids.begin(), oids.end()).size(), oids.size());
  EXPECT_TRUE(std::is_sorted(oids.begin(), oids.end()));
  EXPECT_EQ(Info().dwNumRecords, oids.size());

  std::vector<CEPROPVAL> props;
  ASSERT_EQ(CeSeekDatabase(db_, CEDB_SEEK_CEOID, shared, nullptr), shared);
  ASSERT_EQ(Read(&props), shared);
  ASSERT_EQ(props.size(), 1u + kChildren);
  for (int c = 0; c < kChildren; ++c) {
    auto counter = std::find_if(props.begin(), props.end(),
                                [&](const CEPROPVAL& p) { return p.propid == PROPID(10 + c, CEVT_I4); });
    ASSERT_NE(counter, props.end());
    EXPECT_EQ(counter->val.lVal, kWrites);
  }
}

TEST_F(ProcessTest, ABatchIsSeenWholeByOthersWhenItEnds) {
  CEOID kept = Write(0, {PropI2(1, 1)});
  ASSERT_TRUE(cedb::BeginWriteBatch(&volume_));
  CEOID made = Write(0, {PropI2(1, 2)});
  ASSERT_NE(made, 0u);
  EXPECT_EQ(Write(kept, {PropI2(1, 3)}), kept);
  // A failing call inside the batch undoes only itself.
  EXPECT_EQ(Write(0x7FFFFFF0, {PropI2(1, 4)}), 0u);
  auto others_count = [&] {
    return StartChild([](CEGUID* volume, HANDLE) {
      CEOID db = 0;
      HANDLE h = CeOpenDatabaseEx(volume, &db, L"Tasks Database", 0, 0, nullptr);
      CEOIDINFOEX info{};
      bool ok = CeOidGetInfoEx(volume, db, &info);
      CeCloseHandle(h);
      _exit(ok ? static_cast<int>(info.infDatabase.dwNumRecords) : 99);
      return false;
    });
  };
  int status = 0;
  pid_t child = others_count();
  ASSERT_EQ(waitpid(child, &status, 0), child);
  EXPECT_EQ(WEXITSTATUS(status), 1);  // the batch is not visible yet
  ASSERT_TRUE(cedb::EndWriteBatch(&volume_));
  EXPECT_FALSE(cedb::EndWriteBatch(&volume_));
  child = others_count();
  ASSERT_EQ(waitpid(child, &status, 0), child);
  EXPECT_EQ(WEXITSTATUS(status), 2);
  EXPECT_EQ(Walk(), (std::vector<CEOID>{kept, made}));
}

class JournalTest : public CedbTest {
 protected:
  void SetUp() override {
    CedbTest::SetUp();
    request_ = CENOTIFYREQUEST{sizeof(CENOTIFYREQUEST), reinterpret_cast<HWND>(0x1234), CEDB_EXNOTIFICATION,
                               nullptr, 3};
    watcher_ = OpenDatabase(L"Tasks Database", CEDB_AUTOINCREMENT, &request_);
    ASSERT_NE(watcher_, INVALID_HANDLE_VALUE);
  }
  void TearDown() override {
    CeCloseHandle(watcher_);
    CedbTest::TearDown();
  }
  std::vector<cedb::DbChange> Poll() {
    std::vector<cedb::DbChange> changes;
    EXPECT_TRUE(cedb::PollChanges(watcher_, &changes));
    return changes;
  }
  CENOTIFYREQUEST request_{};
  HANDLE watcher_ = INVALID_HANDLE_VALUE;
};

TEST_F(JournalTest, ChangesOfThisProcessAndOfAnotherReachTheWatcherInOrder) {
  CEOID existing = Write(0, {PropI2(1, 1)});
  CEOID mine = 0;
  std::vector<cedb::DbChange> expected = {{DB_CEOID_CREATED, existing, db_oid_}};
  EXPECT_EQ(Poll(), expected);
  EXPECT_TRUE(Poll().empty());

  // A record of another database is none of the watcher's business.
  CreateDatabase(L"Other");
  HANDLE other = OpenDatabase(L"Other");
  Write(0, {PropI2(1, 1)}, other);
  CeCloseHandle(other);
  EXPECT_TRUE(Poll().empty());

  pid_t child = StartChild([&](CEGUID*, HANDLE h) {
    CEPROPVAL v = PropI2(1, 2);
    CEOID made = CeWriteRecordProps(h, 0, 1, &v);
    return made && CeWriteRecordProps(h, existing, 1, &v) && CeDeleteRecord(h, made);
  });
  ASSERT_TRUE(ChildSucceeded(child));
  mine = Write(0, {PropI2(1, 3)});
  std::vector<cedb::DbChange> changes = Poll();
  ASSERT_EQ(changes.size(), 4u);
  CEOID made = changes[0].oid;
  expected = {{DB_CEOID_CREATED, made, db_oid_},
              {DB_CEOID_CHANGED, existing, db_oid_},
              {DB_CEOID_RECORD_DELETED, made, db_oid_},
              {DB_CEOID_CREATED, mine, db_oid_}};
  EXPECT_EQ(changes, expected);
  EXPECT_TRUE(Poll().empty());
}

TEST_F(JournalTest, AWalkAfterAPollSeesAnotherProcessesChange) {
  std::vector<CEOID> oids;
  for (int i = 0; i < 3; ++i) oids.push_back(Write(0, {PropI4(1, i)}));
  EXPECT_EQ(Poll().size(), 3u);
  std::vector<CEPROPVAL> props;
  ASSERT_EQ(CeSeekDatabase(watcher_, CEDB_SEEK_BEGINNING, 0, nullptr), oids[0]);
  ASSERT_EQ(Read(&props, {}, watcher_), oids[0]);
  ASSERT_TRUE(ChildSucceeded(StartChild([&](CEGUID*, HANDLE h) {
    CEPROPVAL v = PropI4(1, 42);
    return CeWriteRecordProps(h, oids[2], 1, &v) == oids[2];
  })));
  EXPECT_EQ(Poll().size(), 1u);
  ASSERT_EQ(Read(&props, {}, watcher_), oids[1]);
  ASSERT_EQ(Read(&props, {}, watcher_), oids[2]);
  EXPECT_EQ(props[0].val.lVal, 42);
}

TEST_F(JournalTest, AWatcherTooFarBehindIsToldToReloadEverything) {
  CEOID oid = Write(0, {PropI2(1, 0)});
  for (int i = 0; i < 9000; ++i) ASSERT_EQ(Write(oid, {PropI2(1, static_cast<SHORT>(i))}), oid);
  std::vector<cedb::DbChange> expected = {{DB_CEOID_CHANGED, db_oid_, 0}};
  EXPECT_EQ(Poll(), expected);
  Write(oid, {PropI2(1, 1)});
  expected = {{DB_CEOID_CHANGED, oid, db_oid_}};
  EXPECT_EQ(Poll(), expected);
}

TEST_F(JournalTest, TheRequestAndNotificationsCarryTheCallersValues) {
  std::vector<HANDLE> notifying = cedb::NotifyingHandles();
  EXPECT_EQ(notifying, std::vector<HANDLE>{watcher_});
  CENOTIFYREQUEST got{};
  ASSERT_TRUE(cedb::GetNotifyRequest(watcher_, &got));
  EXPECT_EQ(got.hwnd, request_.hwnd);
  EXPECT_EQ(got.dwParam, 3u);
  EXPECT_FALSE(cedb::GetNotifyRequest(db_, &got));
  CENOTIFICATION* n = cedb::NewNotification(watcher_, {DB_CEOID_CHANGED, 77, db_oid_});
  ASSERT_NE(n, nullptr);
  EXPECT_EQ(n->dwParam, 3u);
  EXPECT_EQ(n->uType, DB_CEOID_CHANGED);
  EXPECT_EQ(n->oid, 77u);
  EXPECT_EQ(n->guid.Data1, volume_.Data1);
  EXPECT_TRUE(CeFreeNotification(&got, n));
}

}  // namespace
}  // namespace velmo::testing
