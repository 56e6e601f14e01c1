// Two devices and a CalDAV server on loopback (Radicale, started here with a
// storage folder of its own and no authentication): `velmo sync` on each
// device, with vdirsyncer as the synchroniser, and todoman as a second client
// of one device's folder.
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <memory>
#include <thread>

#include "cli/device_store.h"
#include "platform/device.h"
#include "store/connection.h"
#include "sync/task_records.h"
#include "tests/app/child_process.h"
#include "tests/support/temp_root.h"

namespace velmo::testing {
namespace {

namespace fs = std::filesystem;

bool Installed(const char* program) { return access(program, X_OK) == 0; }

int FreePort() {
  const int s = socket(AF_INET, SOCK_STREAM, 0);
  sockaddr_in a{};
  a.sin_family = AF_INET;
  a.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  socklen_t size = sizeof a;
  bind(s, reinterpret_cast<sockaddr*>(&a), sizeof a);
  getsockname(s, reinterpret_cast<sockaddr*>(&a), &size);
  close(s);
  return ntohs(a.sin_port);
}

bool Accepts(int port) {
  const int s = socket(AF_INET, SOCK_STREAM, 0);
  sockaddr_in a{};
  a.sin_family = AF_INET;
  a.sin_port = htons(static_cast<uint16_t>(port));
  a.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  const bool ok = connect(s, reinterpret_cast<sockaddr*>(&a), sizeof a) == 0;
  close(s);
  return ok;
}

class CaldavTest : public DeviceTest {
 protected:
  void SetUp() override {
    for (const char* p : {"/usr/bin/radicale", "/usr/bin/vdirsyncer", "/usr/bin/todoman"})
      if (!Installed(p)) GTEST_SKIP() << p << " is not installed (scripts/install-deps.sh)";
    port_ = FreePort();
    const fs::path storage = root() / "server";
    fs::create_directories(storage / "collection-root/user/tasks");
    WriteFileBytes(storage / "collection-root/user/tasks/.Radicale.props",
                   R"({"tag": "VCALENDAR", "C:supported-calendar-component-set": "VTODO"})");
    WriteFileBytes(root() / "radicale.conf", "[server]\nhosts = 127.0.0.1:" + std::to_string(port_) +
                                                 "\n[auth]\ntype = none\n[storage]\nfilesystem_folder = " +
                                                 storage.string() + "\n[logging]\nlevel = warning\n");
    server_ = std::make_unique<ChildProcess>("/usr/bin/radicale",
                                             std::vector<std::string>{"--config", (root() / "radicale.conf").string()});
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(30);
    while (!Accepts(port_) && std::chrono::steady_clock::now() < deadline)
      std::this_thread::sleep_for(std::chrono::milliseconds(100));
    ASSERT_TRUE(Accepts(port_)) << "Radicale did not start";
    for (const char* name : {"a", "b"}) MakeDevice(name);
  }

  fs::path Device(const char* name) const { return root() / name; }
  fs::path Folder(const char* name) const { return Device(name) / "cal/tasks"; }

  void MakeDevice(const char* name) {
    const fs::path d = Device(name);
    fs::create_directories(Folder(name));
    fs::create_directories(d / "status");
    WriteFileBytes(d / "vdirsyncer.conf",
                   "[general]\nstatus_path = \"" + (d / "status").string() + "/\"\n"
                   "[pair tasks]\na = \"local\"\nb = \"server\"\ncollections = [\"tasks\"]\n"
                   "[storage local]\ntype = \"filesystem\"\npath = \"" + (d / "cal").string() +
                   "/\"\nfileext = \".ics\"\n[storage server]\ntype = \"caldav\"\nurl = \"http://127.0.0.1:" +
                   std::to_string(port_) + "/user/\"\nusername = \"user\"\npassword = \"x\"\n");
    const RunResult discover = RunProgram("/bin/sh", {"-c", "yes | vdirsyncer -c '" + (d / "vdirsyncer.conf").string() +
                                                                "' discover >/dev/null"});
    ASSERT_EQ(discover.code, 0) << discover.err;
  }

  // velmo sync on a device; every run must succeed.
  void Sync(const char* name) {
    const RunResult r = RunProgram(VELMO_BIN, {"--root", Device(name).string(), "sync", "--folder",
                                               Folder(name).string(), "--command",
                                               "vdirsyncer -c '" + (Device(name) / "vdirsyncer.conf").string() +
                                                   "' sync", "--timeout", "50"});
    ASSERT_EQ(r.code, 0) << name << ": " << r.err << r.out;
  }
  RunResult Velmo(const char* name, std::vector<std::string> args) {
    args.insert(args.begin(), {"--root", Device(name).string()});
    return RunProgram(VELMO_BIN, args);
  }

  // Changes the one task of a device in this process, as the program would.
  void Change(const char* name, void (*change)(sync::SyncRecord*), bool remove = false) {
    device::SetRoot(Device(name));
    ASSERT_TRUE(cli::OpenDeviceStore("test", false));
    std::vector<sync::SyncRecord> records;
    ASSERT_TRUE(sync::ReadAllSyncRecords(Store().tasks_db, &records));
    ASSERT_FALSE(records.empty());
    sync::SyncRecord& r = records[0];
    if (remove) {
      EXPECT_TRUE(CeDeleteRecord(Store().tasks_db, r.oid));
    } else {
      change(&r);
      poom::EncodedProps props;
      poom::EncodeTask(r.values, poom::kAllFields, &props);
      EXPECT_EQ(CeWriteRecordProps(Store().tasks_db, r.oid, static_cast<WORD>(props.values.size()),
                                   props.values.data()),
                r.oid);
    }
    cli::CloseDeviceStore();
    device::SetRoot(root());
  }

  std::string Todoman(const std::vector<std::string>& args) {
    const fs::path config = root() / "todoman.py";  // todoman reads its configuration as Python
    WriteFileBytes(config, "path = \"" + (Device("b") / "cal/*").string() +
                               "\"\ncache_path = \"" + (root() / "todoman.cache").string() +
                               "\"\ndate_format = \"%Y-%m-%d\"\ntime_format = \"%H:%M\"\ndefault_list = \"tasks\"\n");
    std::vector<std::string> all{"--config", config.string()};
    all.insert(all.end(), args.begin(), args.end());
    const RunResult r = RunProgram("/usr/bin/todoman", all);
    EXPECT_EQ(r.code, 0) << r.err;
    return r.out;
  }

  int port_ = 0;
  std::unique_ptr<ChildProcess> server_;
};

TEST_F(CaldavTest, ATaskTravelsBetweenTwoDevicesAndTodoman) {
  ASSERT_EQ(Velmo("a", {"add", "Dentist", "--due", "2031-03-04", "--reminder", "2031-03-04T09:30",
                        "--priority", "high", "--categories", "Health,Town"}).code, 0);
  Sync("a");
  Sync("b");
  std::string list = Velmo("b", {"list"}).out;
  EXPECT_NE(list.find("\tDentist\t\t2031-03-04\t2031-03-04T09:30\t\thigh\tHealth,Town"), std::string::npos) << list;
  // The pass after synchronisation made the reminder's notification on b.
  EXPECT_NE(Velmo("b", {"notifications"}).out.find("Dentist"), std::string::npos);

  // todoman reads what velmo wrote, and adds a task of its own.
  const std::string listed = Todoman({"--porcelain", "list"});
  for (const char* field : {"\"summary\": \"Dentist\"", "\"priority\": 1", "\"due\": 19"})
    EXPECT_NE(listed.find(field), std::string::npos) << field << " in " << listed;
  EXPECT_NE(Todoman({"--porcelain", "list", "--category", "Town"}).find("Dentist"), std::string::npos);
  Todoman({"new", "-l", "tasks", "Buy stamps"});

  Change("b", [](sync::SyncRecord* r) { r->values.subject = L"Dentist at ten"; });
  Sync("b");
  EXPECT_NE(Velmo("b", {"list"}).out.find("\tBuy stamps\t"), std::string::npos);
  Sync("a");
  list = Velmo("a", {"list"}).out;
  EXPECT_NE(list.find("\tDentist at ten\t"), std::string::npos) << list;
  EXPECT_NE(list.find("\tBuy stamps\t"), std::string::npos) << list;

  Change("a", [](sync::SyncRecord* r) {
    r->values.complete = true;
    r->values.completed = MakeDate(2031, 3, 3);
  });
  Sync("a");
  Sync("b");
  EXPECT_NE(Velmo("b", {"list"}).out.find("\tDentist at ten\t\t2031-03-04\t2031-03-04T09:30\t2031-03-03\thigh"),
            std::string::npos)
      << Velmo("b", {"list"}).out;

  Change("b", nullptr, true);
  Sync("b");
  Sync("a");
  list = Velmo("a", {"list"}).out;
  EXPECT_EQ(list.find("Dentist"), std::string::npos) << list;
  EXPECT_NE(list.find("Buy stamps"), std::string::npos) << list;
}

// Without a server: the synchroniser's failures and the missing folder.
class SyncCommandTest : public DeviceTest {
 protected:
  RunResult Velmo(std::vector<std::string> args) { return RunProgram(VELMO_BIN, args); }
};

TEST_F(SyncCommandTest, AFailingOrHangingSynchroniserIsStoppedAndSaid) {
  const struct {
    const char* command;
    const char* says;
  } cases[] = {
      {"exit 3", "exit code 3"},
      {"sleep 30", "did not finish within 1 s"},
      {"no-such-synchroniser-here", "not found"},
  };
  const RunResult none = Velmo({"sync"});
  EXPECT_EQ(none.code, 1);
  EXPECT_NE(none.err.find("--folder DIR"), std::string::npos) << none.err;
  const fs::path folder = root() / "tasks";
  fs::create_directories(folder);
  ASSERT_EQ(Velmo({"add", "Stays"}).code, 0);
  for (const auto& c : cases) {
    const auto start = std::chrono::steady_clock::now();
    const RunResult r = Velmo({"sync", "--folder", folder.string(), "--command", c.command, "--timeout", "1"});
    EXPECT_EQ(r.code, 1) << c.command;
    EXPECT_NE(r.err.find(c.says), std::string::npos) << r.err;
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20)) << c.command;
  }
  EXPECT_EQ(std::distance(fs::directory_iterator(folder), fs::directory_iterator()), 1);
  // The folder and command given first are kept; the options win for one run.
  const RunResult kept = Velmo({"reg", "export"});
  EXPECT_NE(kept.out.find(folder.string()), std::string::npos) << kept.out;
  EXPECT_NE(kept.out.find("exit 3"), std::string::npos) << kept.out;
  EXPECT_EQ(Velmo({"sync", "--no-command"}).code, 0);
}

TEST_F(SyncCommandTest, ARunKilledHalfWayIsCompletedByTheNext) {
  const fs::path folder = root() / "tasks";
  fs::create_directories(folder);
  ASSERT_EQ(Velmo({"add", "Made here"}).code, 0);
  WriteFileBytes(folder / "there.ics",
                 "BEGIN:VCALENDAR\r\nBEGIN:VTODO\r\nUID:there\r\nSUMMARY:Made there\r\nEND:VTODO\r\nEND:VCALENDAR\r\n");
  // The synchroniser kills velmo between the bridge out and the bridge in.
  const RunResult killed = Velmo({"sync", "--folder", folder.string(), "--command", "kill -9 $PPID"});
  EXPECT_NE(killed.code, 0);
  ASSERT_EQ(Velmo({"sync", "--folder", folder.string(), "--no-command"}).code, 0);
  const std::string list = Velmo({"list"}).out;
  EXPECT_NE(list.find("\tMade here\t"), std::string::npos) << list;
  EXPECT_NE(list.find("\tMade there\t"), std::string::npos) << list;
  EXPECT_EQ(std::count(list.begin(), list.end(), '\n'), 2) << list;
  EXPECT_EQ(std::distance(fs::directory_iterator(folder), fs::directory_iterator()), 2);
}

}  // namespace
}  // namespace velmo::testing
