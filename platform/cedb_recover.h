// Saving what a damaged volume still holds: every record that can be read is
// copied, with its identifier, into a new volume that takes the damaged one's
// place; the damaged file is kept aside under a new name.
#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>

#include "platform/wintypes.h"

// The last error of a call that met a damaged volume (a foreign file gives
// ERROR_BAD_FORMAT): the programs refuse to start on it.
constexpr DWORD ERROR_FILE_CORRUPT = 1392;

namespace velmo::cedb {

// One row, true when the open file is a database volume (for velmo check).
std::string VolumeIdentitySql();

struct Recovery {
  std::size_t saved = 0;            // records copied into the new volume
  std::optional<std::size_t> lost;  // unknown when the damage took the counts too
  std::filesystem::path kept_as;    // the damaged file's new name
};

// Copies the readable records of the volume file into a new file, then puts the
// damaged file aside and the new one in its place. The damaged file is only
// read. False (failure set, naming the file) when nothing could be saved or the
// files could not be swapped; the damaged file then stays where it was.
bool RecoverVolume(const std::filesystem::path& file, Recovery* out);

}  // namespace velmo::cedb
