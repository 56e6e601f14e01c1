// The device root: the folder that holds everything the platform keeps (volumes,
// registry, notifications, registrations). Several roots are several phones.
#pragma once

#include <filesystem>
#include <string>

namespace velmo::device {

// $VELMO_ROOT, else $XDG_DATA_HOME/velmo-todo, else ~/.local/share/velmo-todo.
std::filesystem::path Root();

// Tests and the companion's --root option pin the root for this process.
void SetRoot(const std::filesystem::path& root);

// A platform path such as \IPSM\mxip_initdb.vol becomes <root>/IPSM/mxip_initdb.vol.
std::filesystem::path MapPlatformPath(const std::wstring& platform_path);

// Makes the root folder when it is missing. Returns false (last error set) when it
// cannot be made or is not writable.
bool EnsureRoot();

}  // namespace velmo::device
