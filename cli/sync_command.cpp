// velmo sync: the bridge out to the folder of task files, the synchroniser
// that keeps the folder in step with the server, the bridge back in, and the
// start of the programs registered for the end of synchronisation (which is how
// velmo-todo's after-synchronisation pass runs).
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <string_view>

#include "cli/device_store.h"
#include "cli/subcommand.h"
#include "store/connection.h"
#include "sync/after_sync_start.h"
#include "sync/bridge.h"
#include "sync/sync_settings.h"
#include "sync/synchroniser.h"

namespace velmo::cli {
namespace {

constexpr const char* kUsage =
    "usage: velmo sync [--folder DIR] [--command CMD | --no-command] [--timeout SECONDS]\n";

constexpr const char* kNoFolder =
    "velmo sync: no folder of task files is set up yet.\n"
    "  Give one with --folder DIR; it is kept for the next runs.\n"
    "  To synchronise with a CalDAV server (Radicale, Nextcloud...), let vdirsyncer keep a\n"
    "  folder in step with the server's task list: in ~/.config/vdirsyncer/config a pair of\n"
    "  a \"caldav\" storage (url, username, password) and a \"filesystem\" storage\n"
    "  (path = \"~/.local/share/tasks/\", fileext = \".ics\"), then `vdirsyncer discover`.\n"
    "  Then run: velmo sync --folder ~/.local/share/tasks/COLLECTION\n";

constexpr int kDefaultTimeoutSeconds = 300;
constexpr int kAfterSyncTimeoutSeconds = 60;

struct SyncArgs {
  sync::SyncSettings given;
  int timeout = kDefaultTimeoutSeconds;
};

bool ParseArgs(int argc, char** argv, SyncArgs* args) {
  for (int i = 0; i < argc; ++i) {
    const std::string_view option = argv[i];
    const bool has_value = i + 1 < argc;
    if (option == "--no-command") {
      args->given.command = "";
    } else if (option == "--folder" && has_value) {
      args->given.folder = std::filesystem::absolute(argv[++i]).lexically_normal().string();
    } else if (option == "--command" && has_value) {
      args->given.command = argv[++i];
    } else if (option == "--timeout" && has_value) {
      args->timeout = std::atoi(argv[++i]);
      if (args->timeout <= 0) return false;
    } else {
      return false;
    }
  }
  return true;
}

void Print(const sync::BridgeReport& r, const char* pass) {
  for (const std::string& p : r.problems) std::fprintf(stderr, "velmo sync: %s\n", p.c_str());
  if (r.to_folder + r.to_database + r.files_removed + r.tasks_removed + r.conflicts == 0) return;
  std::printf("%s: %d file(s) written, %d task(s) written, %d file(s) removed, %d task(s) removed, "
              "%d conflict(s) (the older side kept as a task of its own)\n",
              pass, r.to_folder, r.to_database, r.files_removed, r.tasks_removed, r.conflicts);
}

bool Bridge(const std::filesystem::path& folder, const char* pass) {
  const sync::TasksDatabase tasks{Store().volume, Store().tasks_db, Store().tasks_db_oid};
  sync::BridgeReport report;
  const bool ok = sync::RunBridge(tasks, folder, &report);
  Print(report, pass);
  return ok;
}

}  // namespace

int RunSync(int argc, char** argv) {
  SyncArgs args;
  if (!ParseArgs(argc, argv, &args)) {
    std::fputs(kUsage, stderr);
    return 2;
  }
  if (!OpenDeviceStore("sync", false)) return 1;
  sync::SyncSettings kept = sync::LoadSyncSettings();
  if (args.given.folder || args.given.command) {
    sync::SyncSettings first;  // the first run given a value keeps it
    if (!kept.folder && args.given.folder) first.folder = args.given.folder;
    if (!kept.command && args.given.command) first.command = args.given.command;
    if ((first.folder || first.command) && !sync::SaveSyncSettings(first))
      std::fputs("velmo sync: the folder and command could not be kept in the settings\n", stderr);
  }
  const std::optional<std::string> folder = args.given.folder ? args.given.folder : kept.folder;
  const std::string command =
      args.given.command ? *args.given.command : kept.command.value_or(sync::kDefaultSyncCommand);
  if (!folder || folder->empty()) {
    CloseDeviceStore();
    std::fputs(kNoFolder, stderr);
    return 1;
  }
  if (!Bridge(*folder, "out")) {
    CloseDeviceStore();
    return 1;
  }
  if (!command.empty()) {
    std::string error;
    if (!sync::RunSynchroniser(command, args.timeout, &error)) {
      CloseDeviceStore();
      std::fprintf(stderr, "velmo sync: %s; the folder was not read back (the next run will)\n",
                   error.c_str());
      return 1;
    }
  }
  const bool in = Bridge(*folder, "in");
  CloseDeviceStore();
  if (!in) return 1;
  const sync::AfterSyncReport after = sync::StartAfterSyncPrograms(kAfterSyncTimeoutSeconds);
  for (const std::string& gone : after.dropped)
    std::fprintf(stderr, "velmo sync: %s no longer exists; its start after synchronisation was dropped\n",
                 gone.c_str());
  for (const std::string& p : after.problems) std::fprintf(stderr, "velmo sync: %s\n", p.c_str());
  return after.problems.empty() ? 0 : 1;
}

}  // namespace velmo::cli
