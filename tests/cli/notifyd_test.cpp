// velmo notifyd and velmo notifications as processes: reminders raised over a
// real session bus (dbus-run-session or a dbus-daemon of the test) to a
// stand-in notification server, the plain fallback without a bus, "Open", and
// a bus that goes away and comes back.
#include <sys/stat.h>

#include <chrono>
#include <thread>

#include "platform/notify.h"
#include "platform/wstr.h"
#include "tests/app/child_process.h"
#include "tests/support/temp_root.h"

namespace velmo::testing {
namespace {

using namespace std::chrono_literals;

constexpr char kDbusRunSession[] = "/usr/bin/dbus-run-session";
constexpr char kDbusDaemon[] = "/usr/bin/dbus-daemon";

class NotifydTest : public DeviceTest {
 protected:
  std::string Path(const std::string& name) const { return (root() / name).string(); }

  void WriteScript(const std::string& name, const std::string& body) const {
    WriteFileBytes(Path(name), "#!/bin/sh\n" + body);
    ::chmod(Path(name).c_str(), 0755);
  }

  // A reminder of task 4711 whose application is `app`, due at `at`.
  HANDLE Add(const std::string& app, const std::wstring& text,
             SYSTEMTIME at = {2025, 7, 0, 14, 9, 30, 0, 0}) {
    std::wstring args = L"4711", title = L"Velmo ToDo List", sound = L"reminder";
    std::wstring application = FromUtf8(app), body = text;
    CE_NOTIFICATION_TRIGGER trigger = {sizeof(CE_NOTIFICATION_TRIGGER), CNT_TIME, 0,
                                       application.data(), args.data(), at, at};
    CE_USER_NOTIFICATION user = {PUN_LED | PUN_DIALOG | PUN_SOUND, title.data(), body.data(),
                                 sound.data(), static_cast<DWORD>(sound.size()), 0};
    return CeSetUserNotificationEx(nullptr, &trigger, &user);
  }

  std::string Read(const std::string& name) const { return ReadFileBytes(Path(name)); }

  // Waits until the file holds `lines` lines.
  bool WaitForLines(const std::string& name, size_t lines, std::chrono::milliseconds timeout = 10s) {
    const auto end = std::chrono::steady_clock::now() + timeout;
    while (std::chrono::steady_clock::now() < end) {
      const std::string text = Read(name);
      if (static_cast<size_t>(std::count(text.begin(), text.end(), '\n')) >= lines) return true;
      std::this_thread::sleep_for(20ms);
    }
    return false;
  }

  std::string Notifications() {
    ChildProcess list(VELMO_BIN, {"notifications"});
    list.Wait();
    return list.output();
  }
};

// Starts the test's notification server in the background and waits for it.
constexpr char kStartServer[] =
    "\"$SERVER\" \"$RECORD\" $ACTION > \"$READY\" &\n"
    "i=0; while ! grep -q ready \"$READY\" 2>/dev/null && [ $i -lt 200 ]; do sleep 0.05; i=$((i+1)); done\n";

TEST_F(NotifydTest, OnceRaisesWhatIsDueOverTheSessionBus) {
  WriteScript("app", "exit 0\n");
  const HANDLE due = Add(Path("app"), L"Pay rent\r\n14/07/2025 (!)");
  const HANDLE gone = Add("/nonexistent/velmo-todo", L"Old reminder");
  const HANDLE later = Add(Path("app"), L"Next year", {2099, 1, 0, 1, 8, 0, 0, 0});
  ASSERT_TRUE(due && gone && later);
  WriteScript("run", std::string(kStartServer) + "\"$VELMO\" notifyd --once\n");
  ChildProcess session(kDbusRunSession, {"--", "sh", Path("run")},
                       {std::string("SERVER=") + VELMO_NOTIFICATION_SERVER_BIN, "RECORD=" + Path("record"),
                        "READY=" + Path("ready"), std::string("VELMO=") + VELMO_BIN});
  EXPECT_EQ(session.Wait(20s), 0) << session.error_output();
  EXPECT_EQ(Read("record"),
            "Velmo ToDo List\tVelmo ToDo List\tPay rent\\n14/07/2025 (!)\topen,Open\n"
            "Velmo ToDo List\tVelmo ToDo List\tOld reminder\t\n");
  EXPECT_EQ(session.output(), "") << "nothing falls back to the terminal";

  // The raised one stays (raised) until the program or the user clears it; the
  // one whose application is gone is cleared; the later one waits.
  const std::string list = Notifications();
  EXPECT_NE(list.find(std::to_string(notify::HandleValue(due)) + "\t2025-07-14T09:30\t" + Path("app") +
                      "\t4711\tVelmo ToDo List\tPay rent\\n14/07/2025 (!)\n"),
            std::string::npos)
      << list;
  EXPECT_EQ(list.find("Old reminder"), std::string::npos) << list;
  EXPECT_NE(list.find("2099-01-01T08:00"), std::string::npos) << list;

  // Raised once only.
  ChildProcess again(kDbusRunSession, {"--", "sh", Path("run")},
                     {std::string("SERVER=") + VELMO_NOTIFICATION_SERVER_BIN, "RECORD=" + Path("record"),
                      "READY=" + Path("ready2"), std::string("VELMO=") + VELMO_BIN});
  EXPECT_EQ(again.Wait(20s), 0);
  const std::string record = Read("record");
  EXPECT_EQ(std::count(record.begin(), record.end(), '\n'), 2);
}

TEST_F(NotifydTest, WithoutASessionBusTheReminderGoesToTheTerminal) {
  WriteScript("app", "exit 0\n");
  ASSERT_TRUE(Add(Path("app"), L"Call Anna\r\n14/07/2025"));
  const std::vector<std::string> no_bus = {"DBUS_SESSION_BUS_ADDRESS=unix:path=" + Path("no-bus"),
                                           "XDG_RUNTIME_DIR=" + root().string()};
  ChildProcess service(VELMO_BIN, {"notifyd", "--once"}, no_bus);
  EXPECT_EQ(service.Wait(), 0);
  EXPECT_EQ(service.output(), "\aVelmo ToDo List\nCall Anna\n14/07/2025\n");
  EXPECT_NE(service.error_output().find("no session bus"), std::string::npos) << service.error_output();
  ChildProcess again(VELMO_BIN, {"notifyd", "--once"}, no_bus);
  EXPECT_EQ(again.Wait(), 0);
  EXPECT_EQ(again.output(), "");
}

TEST_F(NotifydTest, OpenStartsTheApplicationInATerminalWhenNoneRuns) {
  WriteScript("app", "echo \"$@\" > \"$OUT.tmp\"; mv \"$OUT.tmp\" \"$OUT\"\n");
  // The terminal notes that it ran and runs what follows its -e.
  WriteScript("terminal", "echo \"$1\" > \"$OUT.terminal\"; shift; exec \"$@\"\n");
  const HANDLE due = Add(Path("app"), L"Water the plants");
  ASSERT_TRUE(due);
  WriteScript("run", std::string(kStartServer) +
                         "\"$VELMO\" notifyd & service=$!\n"
                         "i=0; while [ ! -f \"$OUT\" ] && [ $i -lt 200 ]; do sleep 0.05; i=$((i+1)); done\n"
                         "sleep 0.2; kill $service; wait $service\n");
  ChildProcess session(kDbusRunSession, {"--", "sh", Path("run")},
                       {std::string("SERVER=") + VELMO_NOTIFICATION_SERVER_BIN, "RECORD=" + Path("record"),
                        "READY=" + Path("ready"), std::string("VELMO=") + VELMO_BIN, "ACTION=open",
                        "OUT=" + Path("out"), "TERMINAL=" + Path("terminal"),
                        "XDG_RUNTIME_DIR=" + root().string()});
  session.Wait(30s);
  EXPECT_EQ(Read("out"), "4711\n");
  EXPECT_EQ(Read("out.terminal"), "-e\n");
  EXPECT_EQ(Notifications(), "") << "opened: cleared";
}

TEST_F(NotifydTest, TheServiceOutlivesTheBus) {
  WriteScript("app", "exit 0\n");
  const std::string bus = Path("bus");
  const std::vector<std::string> env = {"DBUS_SESSION_BUS_ADDRESS=unix:path=" + bus};
  auto start_bus = [&] {
    ::unlink(bus.c_str());
    auto daemon = std::make_unique<ChildProcess>(
        kDbusDaemon, std::vector<std::string>{"--session", "--nofork", "--address=unix:path=" + bus,
                                                "--print-address"});
    EXPECT_NE(daemon->WaitForLine("unix:"), "");
    return daemon;
  };
  auto start_server = [&](const std::string& record) {
    auto server = std::make_unique<ChildProcess>(VELMO_NOTIFICATION_SERVER_BIN,
                                                 std::vector<std::string>{Path(record)}, env);
    EXPECT_NE(server->WaitForLine("ready"), "");
    return server;
  };

  auto daemon = start_bus();
  auto server = start_server("first");
  ChildProcess service(VELMO_BIN, {"notifyd"}, env);
  ASSERT_TRUE(Add(Path("app"), L"One"));
  ASSERT_TRUE(WaitForLines("first", 1)) << service.error_output();

  daemon->Signal(SIGTERM);
  daemon->Wait();
  server->Wait();
  ASSERT_TRUE(Add(Path("app"), L"Two"));
  if (service.WaitForLine("Two").empty()) {
    service.Signal(SIGTERM);
    service.Wait();
    ADD_FAILURE() << "not written to the terminal while there is no bus: " << service.error_output()
                  << "\nlist: " << Notifications();
  }

  daemon = start_bus();
  server = start_server("second");
  ASSERT_TRUE(Add(Path("app"), L"Three"));
  WaitForLines("second", 1);
  service.Signal(SIGTERM);
  service.Wait();
  EXPECT_NE(Read("second").find("Three"), std::string::npos) << service.error_output();
  daemon->Signal(SIGTERM);
  daemon->Wait();
  server->Wait();
}

}  // namespace
}  // namespace velmo::testing
