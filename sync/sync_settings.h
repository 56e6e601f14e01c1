// Where `velmo sync` finds its folder and synchroniser: two string values under
// the program's registry key, "SyncFolder" and "SyncCommand" (an empty command:
// none is run).
#pragma once

#include <optional>
#include <string>

namespace velmo::sync {

struct SyncSettings {
  std::optional<std::string> folder;
  std::optional<std::string> command;
};

SyncSettings LoadSyncSettings();
// Writes the values that are set; false when the registry cannot be written.
bool SaveSyncSettings(const SyncSettings& settings);

}  // namespace velmo::sync
