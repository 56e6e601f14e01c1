// Beam in a real terminal against a stand-in BlueZ and obexd (python3-dbusmock)
// on a private bus: the task goes to the paired device the user picks as one
// iCalendar file; without an adapter the file is kept and its path shown.
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/stat.h>

#include <filesystem>
#include <memory>

#include "tests/app/child_process.h"
#include "tests/e2e/tmux_session.h"
#include "tests/support/temp_root.h"

namespace velmo::testing {
namespace {

// This file's name is relative to the build folder, where the programs are.
const std::filesystem::path kMock = std::filesystem::path(VELMO_BIN).parent_path() /
                                    std::filesystem::path(__FILE__).parent_path().parent_path() /
                                    "helpers" / "bluez_mock.py";

class BeamEndToEndTest : public DeviceTest {
 protected:
  void SetUp() override {
    if (RunToEnd("/usr/bin/python3", {"-c", "import dbusmock"}) != 0)
      GTEST_SKIP() << "python3-dbusmock is not installed (scripts/install-deps.sh)";
    mkdir((root() / "run").c_str(), 0700);
    mkdir((root() / "home").c_str(), 0700);
    bus_ = std::make_unique<ChildProcess>("/usr/bin/dbus-daemon",
                                          std::vector<std::string>{"--session", "--nofork", "--print-address=1"});
    address_ = bus_->WaitForLine("unix:");
    while (!address_.empty() && address_.back() == '\n') address_.pop_back();
    ASSERT_FALSE(address_.empty()) << bus_->error_output();
    RunToEnd(VELMO_BIN, {"--root", root().string(), "add", "Pack the tent"});
  }
  void TearDown() override {
    if (mock_) mock_->Signal(SIGTERM);
    if (bus_) bus_->Signal(SIGTERM);
  }
  void StartMock(bool adapter) {
    std::vector<std::string> args{log_.string()};
    if (!adapter) args.push_back("--no-adapter");
    mock_ = std::make_unique<ChildProcess>(kMock.string(), args, BusEnv());
    ASSERT_NE(mock_->WaitForLine("ready", std::chrono::seconds(20)), "") << mock_->error_output();
  }
  std::vector<std::string> BusEnv() const {
    return {"DBUS_SESSION_BUS_ADDRESS=" + address_, "DBUS_SYSTEM_BUS_ADDRESS=" + address_};
  }
  std::string Program() const {
    return "env 'DBUS_SESSION_BUS_ADDRESS=" + address_ + "' 'DBUS_SYSTEM_BUS_ADDRESS=" + address_ +
           "' 'HOME=" + (root() / "home").string() + "' " + VELMO_TODO_BIN;
  }
  std::vector<std::string> Env() const {
    return {"VELMO_ROOT=" + root().string(), "XDG_RUNTIME_DIR=" + (root() / "run").string(),
            "LANG=C.UTF-8"};
  }
  // Beam, This Task, from the task menu of the task added.
  static void BeamThisTask(TmuxSession& tmux) {
    ASSERT_TRUE(tmux.WaitFor("Tasks [2]")) << tmux.Screen();
    tmux.Keys({"Up", "F2", "2", "Up", "Enter"});  // the task, Menu, Task, Send
    ASSERT_TRUE(tmux.WaitFor("Beam")) << tmux.Screen();
    tmux.Keys({"3"});
    ASSERT_TRUE(tmux.WaitFor("This Task")) << tmux.Screen();
    tmux.Keys({"1"});
  }
  // The one calendar file Beam left in the home folder.
  std::filesystem::path BeamedFile() const {
    for (const auto& e : std::filesystem::directory_iterator(root() / "home"))
      if (e.path().extension() == ".ics") return e.path();
    return {};
  }

  std::unique_ptr<ChildProcess> bus_, mock_;
  std::string address_;
  const std::filesystem::path log_ = root() / "obex.log";
};

TEST_F(BeamEndToEndTest, TheTaskGoesToThePairedDeviceChosenAsOneCalendarFile) {
  StartMock(true);
  TmuxSession tmux(Program(), Env());
  BeamThisTask(tmux);
  ASSERT_TRUE(tmux.WaitFor("Pocket phone")) << tmux.Screen();
  EXPECT_EQ(tmux.Screen().find("Stranger"), std::string::npos) << "only paired devices are offered";
  tmux.Keys({"1"});
  ASSERT_TRUE(tmux.WaitFor("Pocket phone.")) << tmux.Screen();
  const std::filesystem::path file = BeamedFile();
  ASSERT_FALSE(file.empty());
  const std::string calendar = ReadFileBytes(file);
  EXPECT_NE(calendar.find("BEGIN:VTODO"), std::string::npos) << calendar;
  EXPECT_NE(calendar.find("SUMMARY:Pack the tent"), std::string::npos) << calendar;
  EXPECT_EQ(calendar.find("Velmo ToDo List!"), std::string::npos) << "only the selected task";
  for (int i = 0; i < 50 && ReadFileBytes(log_).find("RemoveSession") == std::string::npos; ++i)
    usleep(100 * 1000);
  const std::string calls = ReadFileBytes(log_);
  EXPECT_NE(calls.find("CreateSession \"11:22:33:44:55:66\" {\"Target\": \"opp\"}"), std::string::npos) << calls;
  EXPECT_NE(calls.find("SendFile \"" + file.string() + "\""), std::string::npos) << calls;
}

TEST_F(BeamEndToEndTest, WithoutAnAdapterTheFileIsKeptAndItsPathShown) {
  StartMock(false);
  TmuxSession tmux(Program(), Env(), 100, 24);
  BeamThisTask(tmux);
  ASSERT_TRUE(tmux.WaitFor("No Bluetooth adapter")) << tmux.Screen();
  const std::filesystem::path file = BeamedFile();
  ASSERT_FALSE(file.empty());
  EXPECT_NE(tmux.Screen().find((root() / "home" / "velmo-tasks-").string()), std::string::npos)
      << tmux.Screen();
  EXPECT_EQ(ReadFileBytes(log_).find("SendFile"), std::string::npos);
}

}  // namespace
}  // namespace velmo::testing
