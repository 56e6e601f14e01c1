// velmo notifyd [--once]: the reminder service of the device.
#include <cstdio>
#include <cstring>

#include "app/startup.h"
#include "cli/subcommand.h"
#include "platform/ipc.h"
#include "platform/notify_service.h"

namespace velmo::cli {

int RunNotifyd(int argc, char** argv) {
  notify::ServiceOptions options;
  for (int i = 0; i < argc; ++i) {
    if (std::strcmp(argv[i], "--once") == 0) {
      options.once = true;
    } else {
      std::fprintf(stderr, "velmo notifyd: unknown argument '%s' (usage: velmo notifyd [--once])\n",
                   argv[i]);
      return 2;
    }
  }
  options.instance_running = [] { return FindWindowW(app::kMainWindowClass, nullptr) != nullptr; };
  return notify::RunNotifyService(options);
}

}  // namespace velmo::cli
