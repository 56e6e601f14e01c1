#include "cli/device_store.h"

#include <cstdio>
#include <filesystem>

#include "platform/cedb.h"
#include "platform/device.h"
#include "platform/notify.h"
#include "platform/wstr.h"
#include "settings/settings.h"
#include "store/connection.h"
#include "store/store_session.h"

namespace velmo::cli {
namespace {

const char* g_command = "";

// Reminders and the after-synchronisation start go to velmo-todo, installed
// beside this command, never to the command itself.
void UseProgramBeside() {
  const std::filesystem::path self(ToUtf8(ProgramFilePath()));
  SetProgramFilePath(FromUtf8((self.parent_path() / "velmo-todo").string()));
}

// The device volume stays mounted from the check of its databases until the
// tasks database is open: one connection to its file, not one each.
class HeldVolume {
 public:
  HeldVolume() : held_(CeMountDBVol(&volume_, cedb::kDefaultVolumePath, OPEN_ALWAYS) != FALSE) {}
  ~HeldVolume() {
    if (held_) CeUnmountDBVol(&volume_);
  }
  HeldVolume(const HeldVolume&) = delete;
  HeldVolume& operator=(const HeldVolume&) = delete;

 private:
  CEGUID volume_{};
  bool held_;
};

bool OpenDeviceStoreHeld(const char* command) {
  const HeldVolume volume;
  if (!cedb::EnsureDeviceVolume()) {
    std::fprintf(stderr, "velmo %s: %s\n", command, cedb::LastFailure().c_str());
    return false;
  }
  UseProgramBeside();
  if (LoadSettings() != 0) SaveSettings();  // as the program does at start-up
  if (!OpenTasksDatabaseHandle(nullptr, false, 0)) {
    std::fprintf(stderr, "velmo %s: cannot open \"%s\": %s\n", command,
                 ToUtf8(Store().tasks_name).c_str(), cedb::LastFailure().c_str());
    return false;
  }
  return true;
}

}  // namespace

bool OpenDeviceStore(const char* command, bool object_model) {
  g_command = command;
  if (!device::EnsureRoot()) {
    std::fprintf(stderr, "velmo %s: %s\n", command, device::RootFailure().c_str());
    return false;
  }
  if (!OpenDeviceStoreHeld(command)) return false;
  if (object_model && !LogOnObjectModel(nullptr)) {
    std::fprintf(stderr, "velmo %s: the object model cannot log on\n", command);
    CloseDeviceStore();
    return false;
  }
  return true;
}

void PrintStoreFailure(const char* command) {
  const std::string failure = cedb::LastFailure();
  if (!failure.empty()) std::fprintf(stderr, "velmo %s: %s\n", command, failure.c_str());
}

bool CloseDeviceStore() {
  CloseConnection();
  const std::string unscheduled = notify::TakeUnscheduledReminder();
  if (unscheduled.empty()) return true;
  std::fprintf(stderr, "velmo %s: the reminder was not set: %s\n", g_command, unscheduled.c_str());
  return false;
}

}  // namespace velmo::cli
