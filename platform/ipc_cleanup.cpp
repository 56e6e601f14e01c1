// Sweeping the runtime folder: every device root a user has run leaves a lock
// file and a socket there while its instance runs; an instance that was killed
// leaves them behind. A lock file whose holder process has ended (and that can
// be locked) is removed, and so are the sockets of roots with no live holder.
#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cctype>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <string>
#include <vector>

#include "platform/ipc.h"

namespace velmo::ipc {
namespace {

constexpr size_t kRootPrefix = 16;  // hex digits of the root's hash
constexpr size_t kNameLength = kRootPrefix + 1 + 8 + 5;  // "<root>-<name>.lock"

bool IsHex(const std::string& text, size_t from, size_t count) {
  for (size_t i = from; i < from + count; ++i)
    if (!std::isxdigit(static_cast<unsigned char>(text[i]))) return false;
  return true;
}

// Only names this module makes: "<16 hex>-<8 hex>.lock" or ".sock".
bool IsOurs(const std::string& name, const char* extension) {
  return name.size() == kNameLength && IsHex(name, 0, kRootPrefix) && name[kRootPrefix] == '-' &&
         IsHex(name, kRootPrefix + 1, 8) && name.compare(kNameLength - 5, 5, extension) == 0;
}

std::vector<std::string> Names(const std::string& dir) {
  std::vector<std::string> names;
  if (DIR* d = opendir(dir.c_str())) {
    while (const dirent* entry = readdir(d)) names.emplace_back(entry->d_name);
    closedir(d);
  }
  return names;
}

// The holder writes its process number into the lock file as it takes it.
bool HolderAlive(const std::string& lock_path) {
  const int fd = open(lock_path.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK);
  if (fd < 0) return false;
  char text[24] = {};
  const ssize_t n = pread(fd, text, sizeof text - 1, 0);
  close(fd);
  const pid_t pid = n > 0 ? static_cast<pid_t>(std::atol(text)) : 0;
  return pid > 0 && (kill(pid, 0) == 0 || errno == EPERM);
}

// A holder this process cannot see (another process namespace) still holds the lock.
bool Held(const std::string& lock_path) {
  if (HolderAlive(lock_path)) return true;
  const int fd = open(lock_path.c_str(), O_RDWR | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK);
  if (fd < 0) return false;
  const bool held = flock(fd, LOCK_EX | LOCK_NB) != 0;
  close(fd);
  return held;
}

bool RootInUse(const std::string& dir, const std::string& root_prefix) {
  for (const std::string& name : Names(dir))
    if (IsOurs(name, ".lock") && name.compare(0, kRootPrefix, root_prefix) == 0 &&
        Held(dir + "/" + name))
      return true;
  return false;
}

}  // namespace

int RemoveStaleFiles() {
  const std::string dir = RuntimeDirectory();
  int removed = 0;
  for (const std::string& name : Names(dir)) {
    if (!IsOurs(name, ".lock")) continue;
    const std::string path = dir + "/" + name;
    // Locking only files whose holder has gone: a lock taken here, however
    // briefly, would make an instance starting on that root think it second.
    if (HolderAlive(path)) continue;
    const int fd = open(path.c_str(), O_RDWR | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK);
    if (fd < 0) continue;
    // Removed while locked, as a holder removes it: see CreateMutexW.
    if (flock(fd, LOCK_EX | LOCK_NB) == 0 && unlink(path.c_str()) == 0) ++removed;
    close(fd);
  }
  for (const std::string& name : Names(dir)) {
    if (!IsOurs(name, ".sock") || RootInUse(dir, name.substr(0, kRootPrefix))) continue;
    if (unlink((dir + "/" + name).c_str()) == 0) ++removed;
  }
  return removed;
}

}  // namespace velmo::ipc
