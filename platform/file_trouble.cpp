#include "platform/file_trouble.h"

#include <sys/stat.h>
#include <sys/statvfs.h>
#include <sys/sysmacros.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <vector>

namespace velmo {
namespace {

// Less room than this cannot take a page, its log entry and the index beside.
constexpr unsigned long long kRoomForAPage = 64 * 1024;

struct FileId {
  dev_t dev;
  ino_t ino;
};

std::vector<FileId> LockedFilesOf(const std::string& file) {
  std::vector<FileId> ids;
  for (const char* suffix : {"", "-shm", "-wal"}) {
    struct stat st;
    if (::stat((file + suffix).c_str(), &st) == 0) ids.push_back({st.st_dev, st.st_ino});
  }
  return ids;
}

std::string ProgramName(long pid) {
  std::ifstream comm("/proc/" + std::to_string(pid) + "/comm");
  std::string name;
  std::getline(comm, name);
  return name.empty() ? "another program" : name;
}

std::string Held(long pid) { return ProgramName(pid) + " (process " + std::to_string(pid) + ")"; }

}  // namespace

bool DiskIsFull(const std::string& file) {
  std::filesystem::path place(file);
  struct statvfs fs;
  if (::statvfs(place.c_str(), &fs) != 0 && ::statvfs(place.parent_path().c_str(), &fs) != 0)
    return false;
  // The superuser may use the blocks kept back for it; others may not.
  const unsigned long long blocks = ::geteuid() == 0 ? fs.f_bfree : fs.f_bavail;
  return blocks * fs.f_frsize < kRoomForAPage;
}

bool IsReadOnly(const std::string& file) {
  struct statvfs fs;
  if (::statvfs(file.c_str(), &fs) == 0 && (fs.f_flag & ST_RDONLY)) return true;
  return ::access(file.c_str(), W_OK) != 0 && errno != ENOENT;
}

std::string HolderOf(const std::string& file) {
  const std::vector<FileId> ids = LockedFilesOf(file);
  // A line of /proc/locks: "1: POSIX  ADVISORY  WRITE 1234 08:01:5678 0 EOF";
  // a lock someone waits for starts its fields with "->".
  std::ifstream locks("/proc/locks");
  const long self = ::getpid();
  long reader = 0;
  std::string line;
  while (std::getline(locks, line)) {
    std::istringstream fields(line);
    std::string number, kind, mode, access, where;
    long pid = 0;
    fields >> number >> kind;
    if (kind == "->") fields >> kind;
    fields >> mode >> access >> pid >> where;
    unsigned major = 0, minor = 0;
    unsigned long long inode = 0;
    if (pid <= 0 || pid == self || std::sscanf(where.c_str(), "%x:%x:%llu", &major, &minor, &inode) != 3)
      continue;
    for (const FileId& id : ids) {
      if (id.ino != inode || ::major(id.dev) != major || ::minor(id.dev) != minor) continue;
      // The writer is the one that holds the others up; readers share.
      if (access == "WRITE") return Held(pid);
      if (reader == 0) reader = pid;
    }
  }
  return reader ? Held(reader) : std::string("another program");
}

}  // namespace velmo
