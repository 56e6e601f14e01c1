// The device's files through the real programs: a damaged volume refused,
// checked and recovered; another program's or a damaged notifications file;
// imports of what is not a file; private modes; errors in words on a full or
// read-only disk, a held volume, a root that is a file; control characters.
#include <fcntl.h>
#include <sqlite3.h>
#include <stdlib.h>
#include <sys/mount.h>
#include <sys/stat.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <thread>

#include "platform/cedb.h"
#include "platform/device.h"
#include "tests/app/child_process.h"
#include "tests/support/temp_root.h"

namespace velmo::testing {
namespace {

namespace fs = std::filesystem;

class DeviceFilesTest : public DeviceTest {
 protected:
  void SetUp() override {
    const std::string run = root().string() + "/run";
    ::mkdir(run.c_str(), 0700);
    setenv("XDG_RUNTIME_DIR", run.c_str(), 1);
  }
  void TearDown() override { unsetenv("XDG_RUNTIME_DIR"); }

  RunResult Velmo(std::vector<std::string> args, const fs::path& device = {}) {
    args.insert(args.begin(), {"--root", (device.empty() ? root() : device).string()});
    return RunProgram(VELMO_BIN, args);
  }
  std::string Volume(const fs::path& device = {}) const {
    return ((device.empty() ? root() : device) / "IPSM/mxip_initdb.vol").string();
  }

  // Overwrites a page in the middle of the records' leaves with noise.
  static void DamageRecords(const std::string& file) {
    sqlite3* db = nullptr;
    sqlite3_open_v2(file.c_str(), &db, SQLITE_OPEN_READONLY, nullptr);
    sqlite3_stmt* s = nullptr;
    std::vector<long> leaves;
    sqlite3_prepare_v2(db, "SELECT pageno FROM dbstat WHERE name='records' AND pagetype='leaf'", -1, &s,
                       nullptr);
    while (s && sqlite3_step(s) == SQLITE_ROW) leaves.push_back(sqlite3_column_int64(s, 0));
    sqlite3_finalize(s);
    sqlite3_close(db);
    ASSERT_GT(leaves.size(), 2u) << "no dbstat table in this SQLite";
    std::fstream out(file, std::ios::in | std::ios::out | std::ios::binary);
    out.seekp((leaves[leaves.size() / 2] - 1) * 4096);
    for (int i = 0; i < 4096; ++i) out.put(static_cast<char>(i * 7 + 3));
  }

  static int Lines(const std::string& text) {
    return static_cast<int>(std::count(text.begin(), text.end(), '\n'));
  }
};

bool Has(const std::string& text, const std::string& part) { return text.find(part) != std::string::npos; }

TEST_F(DeviceFilesTest, ADamagedVolumeIsRefusedCheckedAndRecovered) {
  constexpr int kTasks = 200;
  ASSERT_EQ(Velmo({"demo", std::to_string(kTasks)}).code, 0);
  DamageRecords(Volume());
  const std::string damaged = ReadFileBytes(Volume());

  // Each program says so, names the file and the way out, and writes nothing.
  struct Refusal {
    const char* program;
    std::vector<std::string> args;
  } refusals[] = {{VELMO_BIN, {"list"}}, {VELMO_BIN, {"add", "more"}}, {VELMO_TODO_BIN, {}}};
  for (const Refusal& r : refusals) {
    SCOPED_TRACE(r.args.empty() ? r.program : r.args[0]);
    const RunResult run = RunProgram(r.program, r.args);
    EXPECT_EQ(run.code, 1);
    EXPECT_TRUE(Has(run.err, Volume()) && Has(run.err, "damaged") && Has(run.err, "velmo recover")) << run.err;
    EXPECT_EQ(ReadFileBytes(Volume()), damaged);
  }

  const RunResult check = Velmo({"check"});
  EXPECT_EQ(check.code, 1);
  EXPECT_TRUE(Has(check.out, "volume") && Has(check.out, Volume() + ": damaged")) << check.out;
  EXPECT_TRUE(Has(check.out, "registry.db: sound")) << check.out;

  const RunResult recover = Velmo({"recover"});
  ASSERT_EQ(recover.code, 0) << recover.err;
  unsigned saved = 0, lost = 0;
  ASSERT_EQ(std::sscanf(recover.out.c_str(), "velmo recover: %u records saved, %u lost", &saved, &lost), 2)
      << recover.out;
  EXPECT_EQ(saved + lost, unsigned{kTasks});
  EXPECT_GT(lost, 0u);
  EXPECT_TRUE(Has(recover.out, "kept as " + Volume() + ".damaged-")) << recover.out;

  const RunResult list = Velmo({"list"});
  EXPECT_EQ(list.code, 0) << list.err;
  EXPECT_EQ(Lines(list.out), static_cast<int>(saved));
  EXPECT_EQ(Velmo({"check"}).code, 0);
  EXPECT_EQ(Velmo({"add", "again"}).code, 0);
}

// A notifications file the program did not make, or one that is damaged, is
// never written into, and the task's reminder that could not be set is told.
TEST_F(DeviceFilesTest, ANotificationsFileOfAnotherKindIsLeftAloneAndTheReminderReported) {
  std::string foreign;
  {
    const fs::path other = root() / "other.db";
    sqlite3* db = nullptr;
    sqlite3_open(other.c_str(), &db);
    sqlite3_exec(db, "CREATE TABLE notes(x); INSERT INTO notes VALUES(1)", nullptr, nullptr, nullptr);
    sqlite3_close(db);
    foreign = ReadFileBytes(other);
  }
  struct Case {
    const char* name;
    std::string bytes;
    const char* said;
  } cases[] = {{"another program's file", foreign, "not a notifications file"},
               {"noise", std::string(8192, '\x5a'), "damaged"}};
  const fs::path file = root() / "notify.db";
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    WriteFileBytes(file, c.bytes);
    const RunResult add = Velmo({"add", "call", "--due", "2030-01-02", "--reminder", "2030-01-02T09:00"});
    EXPECT_TRUE(Has(add.err, "the reminder was not set") && Has(add.err, file.string()) && Has(add.err, c.said))
        << add.err;
    EXPECT_EQ(ReadFileBytes(file), c.bytes);
    const RunResult check = Velmo({"check"});
    EXPECT_EQ(check.code, 1);
    EXPECT_TRUE(Has(check.out, "notifications  " + file.string() + ": ")) << check.out;
    EXPECT_FALSE(Has(check.out, file.string() + ": sound")) << check.out;
  }
}

TEST_F(DeviceFilesTest, ImportRefusesWhatIsNotAPlainFile) {
  const fs::path pipe = root() / "pipe";
  ::mkfifo(pipe.c_str(), 0600);
  struct Case {
    std::string path;
    const char* said;
  } cases[] = {{root().string(), "it is a folder"},
               {"/dev/zero", "not a plain file"},
               {pipe.string(), "not a plain file"},
               {(root() / "missing.reg").string(), "No such file"}};
  for (const Case& c : cases) {
    SCOPED_TRACE(c.path);
    const RunResult run = Velmo({"reg", "import", c.path});
    EXPECT_EQ(run.code, 1);
    EXPECT_TRUE(Has(run.err, c.said) && Has(run.err, "nothing imported")) << run.err;
  }
}

TEST_F(DeviceFilesTest, ListShowsControlCharactersHarmlessly) {
  ASSERT_EQ(Velmo({"add", "x\x1b[2J\x1b]0;PWNED\a\xc2\x9by"}).code, 0);
  const RunResult list = Velmo({"list"});
  EXPECT_TRUE(Has(list.out, "x^[[2J^[]0;PWNED^G\xef\xbf\xbdy")) << list.out;
  for (const char control : {'\x1b', '\a'}) EXPECT_FALSE(Has(list.out, std::string(1, control)));
}

// Folders 0700 and files 0600 from the first start, the database's log and
// index files included; a device of an older version is tightened when opened.
TEST_F(DeviceFilesTest, TheDeviceIsPrivate) {
  const fs::path device = root() / "phone";
  auto expect_private = [&](const char* when) {
    SCOPED_TRACE(when);
    int seen = 0;
    for (const auto& entry : fs::recursive_directory_iterator(device)) {
      const fs::perms perms = entry.symlink_status().permissions() & fs::perms::all;
      const bool folder = entry.is_directory();
      EXPECT_EQ(perms, folder ? fs::perms::owner_all : fs::perms::owner_read | fs::perms::owner_write)
          << entry.path();
      ++seen;
    }
    EXPECT_GE(seen, 4);
  };
  const mode_t old_mask = ::umask(022);
  ASSERT_EQ(Velmo({"add", "secret", "--private", "--due", "2030-01-02", "--reminder", "2030-01-02T09:00"}, device)
                .code,
            0);
  expect_private("after the first start");
  EXPECT_EQ(fs::status(device).permissions() & fs::perms::all, fs::perms::owner_all);
  {
    // While a program has the volume open, its log and index exist too.
    device::SetRoot(device);
    CEGUID volume;
    ASSERT_TRUE(CeMountDBVol(&volume, cedb::kDefaultVolumePath, OPEN_EXISTING));
    ASSERT_TRUE(fs::exists(Volume(device) + "-shm"));
    expect_private("while the volume is open");
    CeUnmountDBVol(&volume);
    device::SetRoot(root());
  }
  for (const auto& entry : fs::recursive_directory_iterator(device))
    ::chmod(entry.path().c_str(), entry.is_directory() ? 0755 : 0644);
  ::chmod(device.c_str(), 0755);
  ASSERT_EQ(Velmo({"list"}, device).code, 0);
  expect_private("after an older version's device was opened");
  ::umask(old_mask);
}

// A tmpfs of its own for the test; skipped where mounting is not allowed.
class SmallDiskTest : public DeviceFilesTest {
 protected:
  void SetUp() override {
    DeviceFilesTest::SetUp();
    disk_ = root() / "disk";
    fs::create_directory(disk_);
    if (::mount("tmpfs", disk_.c_str(), "tmpfs", 0, "size=1m") != 0) GTEST_SKIP() << "cannot mount a tmpfs here";
    mounted_ = true;
  }
  void TearDown() override {
    if (mounted_) ::umount2(disk_.c_str(), MNT_DETACH);
    DeviceFilesTest::TearDown();
  }
  fs::path disk_;
  bool mounted_ = false;
};

// Full: reading goes on, writing is refused, in words. Read-only: in words.
TEST_F(SmallDiskTest, AFullOrReadOnlyDiskIsSaidInWords) {
  const fs::path device = disk_ / "phone";
  ASSERT_EQ(Velmo({"demo", "20"}, device).code, 0);
  {
    std::ofstream filler(disk_ / "filler", std::ios::binary);
    const std::string block(4096, 'f');
    while (filler.write(block.data(), block.size())) {
    }
  }
  const RunResult add = Velmo({"demo", "1"}, device);
  EXPECT_EQ(add.code, 1);
  EXPECT_TRUE(Has(add.err, "disk is full") && Has(add.err, Volume(device))) << add.err;
  const RunResult list = Velmo({"list"}, device);
  EXPECT_EQ(list.code, 0) << list.err;
  EXPECT_EQ(Lines(list.out), 20);

  fs::remove(disk_ / "filler");
  ASSERT_EQ(::mount("tmpfs", disk_.c_str(), "tmpfs", MS_REMOUNT | MS_RDONLY, "size=1m"), 0);
  const RunResult read_only = Velmo({"demo", "1"}, device);
  EXPECT_EQ(read_only.code, 1);
  EXPECT_TRUE(Has(read_only.err, "read-only")) << read_only.err;
}

TEST_F(DeviceFilesTest, AHeldVolumeAndARootThatIsAFileAreSaidInWords) {
  ASSERT_EQ(Velmo({"add", "first"}).code, 0);
  {
    // Another program holds the volume's write lock for longer than the wait.
    ChildProcess holder("/usr/bin/sqlite3", {"-cmd", "BEGIN IMMEDIATE;", "-cmd",
                                             "INSERT INTO volume VALUES('held', 1);", Volume(),
                                             ".shell sleep 20"});
    ASSERT_TRUE(holder.started());
    std::this_thread::sleep_for(std::chrono::seconds(1));
    const RunResult add = Velmo({"demo", "1"});
    EXPECT_EQ(add.code, 1);
    EXPECT_TRUE(Has(add.err, "is locked by sqlite3 (process")) << add.err;
  }
  const fs::path plain = root() / "plain";
  WriteFileBytes(plain, "x");
  const RunResult list = Velmo({"list"}, plain);
  EXPECT_EQ(list.code, 1);
  EXPECT_TRUE(Has(list.err, plain.string()) && Has(list.err, "is a file, not a folder")) << list.err;
}

}  // namespace
}  // namespace velmo::testing
