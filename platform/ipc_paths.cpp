// The runtime folder and the names of the lock files and sockets: one per device
// root and user, named after a hash of the canonical root path.
#include <fcntl.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <mutex>

#include "platform/device.h"
#include "platform/ipc.h"
#include "platform/ipc_internal.h"
#include "platform/lasterror.h"
#include "platform/wstr.h"

namespace velmo::ipc {
namespace {

std::function<void(const std::string&)>& Sink() {
  static std::function<void(const std::string&)> sink;
  return sink;
}

// FNV-1a: stable across builds and machines, enough to tell roots apart.
std::uint64_t Fnv1a64(std::string_view text) {
  std::uint64_t h = 0xcbf29ce484222325ull;
  for (unsigned char c : text) h = (h ^ c) * 0x100000001b3ull;
  return h;
}

std::string Hex(std::uint64_t value, int digits) {
  char buffer[17];
  std::snprintf(buffer, sizeof buffer, "%0*llx", digits, static_cast<unsigned long long>(value));
  return std::string(buffer).substr(0, static_cast<size_t>(digits));
}

std::string RootHash() {
  std::error_code ec;
  std::filesystem::path root = std::filesystem::weakly_canonical(device::Root(), ec);
  if (ec) root = std::filesystem::absolute(device::Root(), ec);
  return Hex(Fnv1a64(root.string()), 16);
}

std::string NameHash(std::wstring_view name) {
  return Hex(Fnv1a64(ToUtf8(name)) & 0xFFFFFFFFu, 8);
}

}  // namespace

void SetLogSink(std::function<void(const std::string& line)> sink) { Sink() = std::move(sink); }

std::string RuntimeDirectory() {
  struct stat st;
  const char* xdg = std::getenv("XDG_RUNTIME_DIR");
  if (xdg && xdg[0] == '/' && stat(xdg, &st) == 0 && S_ISDIR(st.st_mode))
    return std::string(xdg) + "/velmo-todo";
  const char* tmp = std::getenv("TMPDIR");
  const std::string shared =
      std::string(tmp && tmp[0] == '/' ? tmp : "/tmp") + "/velmo-" + std::to_string(geteuid());
  // Anyone may take that name first in a shared folder: when it is not this
  // user's own folder, one in the user's home, where no one else can make it,
  // takes its place.
  if (lstat(shared.c_str(), &st) != 0 || (S_ISDIR(st.st_mode) && st.st_uid == geteuid())) return shared;
  const char* cache = std::getenv("XDG_CACHE_HOME");
  const char* home = std::getenv("HOME");
  if (cache && cache[0] == '/') return std::string(cache) + "/velmo-todo/run";
  return std::string(home && home[0] == '/' ? home : "/") + "/.cache/velmo-todo/run";
}

std::string MutexLockPath(std::wstring_view mutex_name) {
  return RuntimeDirectory() + "/" + RootHash() + "-" + NameHash(mutex_name) + ".lock";
}

std::string WindowSocketPath(std::wstring_view class_name) {
  return RuntimeDirectory() + "/" + RootHash() + "-" + NameHash(class_name) + ".sock";
}

namespace internal {

Deadline DeadlineIn(int timeout_ms) {
  return std::chrono::steady_clock::now() + std::chrono::milliseconds(timeout_ms);
}

DWORD ErrorFromErrno(int error) {
  struct Mapping {
    int error;
    DWORD platform;
  };
  static constexpr Mapping kMappings[] = {
      {ENOENT, ERROR_FILE_NOT_FOUND},   {ECONNREFUSED, ERROR_FILE_NOT_FOUND},
      {EACCES, ERROR_ACCESS_DENIED},    {EPERM, ERROR_ACCESS_DENIED},
      {ENOMEM, ERROR_NOT_ENOUGH_MEMORY}, {ENOSPC, ERROR_DISK_FULL},
      {ETIMEDOUT, ERROR_TIMEOUT},       {EAGAIN, ERROR_TIMEOUT},
      {ENAMETOOLONG, 206 /* ERROR_FILENAME_EXCED_RANGE */},
  };
  for (const Mapping& m : kMappings)
    if (m.error == error) return m.platform;
  return ERROR_INVALID_HANDLE;
}

void Log(const std::string& line) {
  if (Sink()) {
    Sink()(line);
    return;
  }
  std::fprintf(stderr, "velmo-todo: %s\n", line.c_str());
}

bool EnsureRuntimeDirectory() {
  const std::string dir = RuntimeDirectory();
  if (!device::MakePrivateFolder(dir)) {
    const int error = errno;
    Log("cannot make " + dir + ": " + std::strerror(error));
    SetLastError(ErrorFromErrno(error));
    return false;
  }
  struct stat st;
  if (lstat(dir.c_str(), &st) != 0 || !S_ISDIR(st.st_mode) || st.st_uid != geteuid()) {
    Log(dir + " is not a folder of this user; refusing to use it");
    SetLastError(ERROR_ACCESS_DENIED);
    return false;
  }
  if ((st.st_mode & 077) != 0 && chmod(dir.c_str(), 0700) != 0) {
    Log(dir + " is open to other users and cannot be closed");
    SetLastError(ERROR_ACCESS_DENIED);
    return false;
  }
  return true;
}

namespace {
int WaitFor(int fd, short events, Deadline deadline) {
  for (;;) {
    const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(
        deadline - std::chrono::steady_clock::now());
    if (left.count() <= 0) return ETIMEDOUT;
    pollfd p{fd, events, 0};
    const int n = poll(&p, 1, static_cast<int>(left.count()));
    if (n > 0) return 0;
    if (n < 0 && errno != EINTR) return errno;
  }
}
}  // namespace

int ReadFull(int fd, void* buffer, size_t size, Deadline deadline, size_t* got) {
  auto* const start = static_cast<char*>(buffer);
  auto* at = start;
  if (got) *got = 0;
  while (size > 0) {
    const ssize_t n = recv(fd, at, size, 0);
    if (n > 0) {
      at += n;
      size -= static_cast<size_t>(n);
      if (got) *got = static_cast<size_t>(at - start);
    } else if (n == 0) {
      return ECONNRESET;
    } else if (errno == EAGAIN || errno == EWOULDBLOCK) {
      if (const int e = WaitFor(fd, POLLIN, deadline)) return e;
    } else if (errno != EINTR) {
      return errno;
    }
  }
  return 0;
}

int WriteFull(int fd, const void* buffer, size_t size, Deadline deadline) {
  const auto* at = static_cast<const char*>(buffer);
  while (size > 0) {
    const ssize_t n = send(fd, at, size, MSG_NOSIGNAL);
    if (n >= 0) {
      at += n;
      size -= static_cast<size_t>(n);
    } else if (errno == EAGAIN || errno == EWOULDBLOCK) {
      if (const int e = WaitFor(fd, POLLOUT, deadline)) return e;
    } else if (errno != EINTR) {
      return errno;
    }
  }
  return 0;
}

bool PeerUid(int fd, uid_t* uid) {
  ucred cred{};
  socklen_t length = sizeof cred;
  if (getsockopt(fd, SOL_SOCKET, SO_PEERCRED, &cred, &length) != 0) return false;
  *uid = cred.uid;
  return true;
}

}  // namespace internal
}  // namespace velmo::ipc
