// velmo check: the device's three files, the volume, the registry and the
// notifications file, each with its verdict; nothing is written into them.
#include <cstdio>
#include <string>

#include "cli/subcommand.h"
#include "platform/cedb.h"
#include "platform/cedb_recover.h"
#include "platform/device.h"
#include "platform/notify_store.h"
#include "platform/registry.h"
#include "platform/sqlite_check.h"

namespace velmo::cli {
namespace {

struct DeviceFile {
  const char* what;
  std::string path;
  std::string identity_sql;
  const char* remedy;  // what to do when it is damaged
};

// What each damaged file asks of the user.
constexpr char kVolumeRemedy[] = "run \"velmo recover\" to copy every readable task into a new volume";
constexpr char kMovedAsideRemedy[] = "move it aside; the programs start a new, empty one";

bool Bad(FileVerdict verdict) {
  return verdict == FileVerdict::kDamaged || verdict == FileVerdict::kForeign ||
         verdict == FileVerdict::kUnreadable;
}

}  // namespace

int RunCheck(int argc, char** /*argv*/) {
  if (argc != 0) {
    std::fputs("usage: velmo check\n", stderr);
    return 2;
  }
  const DeviceFile files[] = {
      {"volume", device::MapPlatformPath(cedb::kDefaultVolumePath).string(), cedb::VolumeIdentitySql(),
       kVolumeRemedy},
      {"registry", registry::FilePath(), registry::IdentitySql(), kMovedAsideRemedy},
      {"notifications", notify::StoreFilePath(), notify::IdentitySql(), kMovedAsideRemedy},
  };
  bool all_sound = true;
  for (const DeviceFile& file : files) {
    const FileCheck check = CheckSqliteFile(file.path, file.identity_sql);
    std::printf("%-14s %s: %s", file.what, file.path.c_str(), VerdictName(check.verdict));
    if (!check.detail.empty()) std::printf(" (%s)", check.detail.c_str());
    if (check.verdict == FileVerdict::kDamaged) std::printf("; %s", file.remedy);
    std::putchar('\n');
    all_sound = all_sound && !Bad(check.verdict);
  }
  return all_sound ? 0 : 1;
}

}  // namespace velmo::cli
