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

// Makes the root folder when it is missing, private (0700). The first call for a
// root in a process also tightens what an older version left readable to others:
// every folder under the root becomes 0700, every file 0600. Returns false (last
// error set, RootFailure() saying why in words: "the device folder /x is a file,
// not a folder") when it cannot be made, is not a folder or cannot be entered.
// A folder that is there but cannot be written is accepted: it can be read.
bool EnsureRoot();
std::string RootFailure();

// A folder of the device (and the folders above it, up to the root), made 0700.
bool MakePrivateFolder(const std::filesystem::path& folder);

// Makes the file empty and 0600 when it is missing, so that SQLite, which gives a
// database's -wal and -shm files the mode of the database, keeps all three
// private. An existing file is left as it is. False when it cannot be made.
bool MakePrivateFile(const std::filesystem::path& file);

}  // namespace velmo::device
