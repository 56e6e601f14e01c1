#include "cli/device_store.h"

#include <cstdio>
#include <filesystem>

#include "platform/cedb.h"
#include "platform/device.h"
#include "platform/wstr.h"
#include "settings/settings.h"
#include "store/connection.h"
#include "store/store_session.h"

namespace velmo::cli {
namespace {

// Reminders and the after-synchronisation start go to velmo-todo, installed
// beside this command, never to the command itself.
void UseProgramBeside() {
  const std::filesystem::path self(ToUtf8(ProgramFilePath()));
  SetProgramFilePath(FromUtf8((self.parent_path() / "velmo-todo").string()));
}

}  // namespace

bool OpenDeviceStore(const char* command, bool object_model) {
  if (!device::EnsureRoot() || !cedb::EnsureDeviceVolume()) {
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
  if (object_model && !LogOnObjectModel(nullptr)) {
    std::fprintf(stderr, "velmo %s: the object model cannot log on\n", command);
    CloseDeviceStore();
    return false;
  }
  return true;
}

void CloseDeviceStore() { CloseConnection(); }

}  // namespace velmo::cli
