// Plain words for the troubles a device file meets outside the program: the disk
// that holds it is full, another program holds its lock.
#pragma once

#include <string>

namespace velmo {

// True when the file system holding `file` (or its folder, when the file is
// missing) has no room left for another page.
bool DiskIsFull(const std::string& file);

// True when the file (or the file system it is on) cannot be written.
bool IsReadOnly(const std::string& file);

// Who holds a lock on the file or on its -wal or -shm file, found through
// /proc/locks: "velmo-todo (process 1234)", else "another program".
std::string HolderOf(const std::string& file);

}  // namespace velmo
