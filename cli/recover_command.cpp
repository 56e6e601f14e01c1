// velmo recover: copies every record still readable in a damaged volume into a
// new volume in its place, keeping the damaged file aside under a new name.
#include <cstdio>
#include <string>

#include "cli/subcommand.h"
#include "platform/cedb.h"
#include "platform/cedb_recover.h"
#include "platform/device.h"
#include "platform/sqlite_check.h"

namespace velmo::cli {

int RunRecover(int argc, char** /*argv*/) {
  if (argc != 0) {
    std::fputs("usage: velmo recover\n", stderr);
    return 2;
  }
  const std::string file = device::MapPlatformPath(cedb::kDefaultVolumePath).string();
  const FileCheck check = CheckSqliteFile(file, cedb::VolumeIdentitySql());
  switch (check.verdict) {
    case FileVerdict::kSound:
      std::printf("velmo recover: the volume %s is sound; nothing to recover\n", file.c_str());
      return 0;
    case FileVerdict::kMissing:
      std::fprintf(stderr, "velmo recover: there is no volume %s\n", file.c_str());
      return 1;
    case FileVerdict::kForeign:
      std::fprintf(stderr, "velmo recover: %s is not a volume of this program; it was left as it is\n",
                   file.c_str());
      return 1;
    case FileVerdict::kUnreadable:
      std::fprintf(stderr, "velmo recover: cannot read %s: %s\n", file.c_str(), check.detail.c_str());
      return 1;
    case FileVerdict::kDamaged:
      break;
  }
  cedb::Recovery recovery;
  if (!device::EnsureRoot() || !cedb::RecoverVolume(file, &recovery)) {
    std::fprintf(stderr, "velmo recover: %s\n", cedb::LastFailure().c_str());
    return 1;
  }
  // The new volume has every database of a working device.
  cedb::EnsureDeviceVolume();
  const std::string lost =
      recovery.lost ? std::to_string(*recovery.lost) : std::string("an unknown number of");
  std::printf("velmo recover: %zu records saved, %s lost, into a new volume %s\n"
              "velmo recover: the damaged volume is kept as %s\n",
              recovery.saved, lost.c_str(), file.c_str(), recovery.kept_as.c_str());
  return 0;
}

}  // namespace velmo::cli
