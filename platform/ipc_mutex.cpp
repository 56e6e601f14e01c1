// Named mutexes: a lock file per name in the runtime folder. The handle that
// creates the mutex holds an exclusive flock on it for as long as it lives, so a
// later CreateMutexW of any process (or of this one) finds it existing; the lock
// goes with the handle's close or the process's end, never leaving a stale mutex.
// The holder writes its process number into the file and removes the file when
// it closes the handle; a lock taken on a file that was removed meanwhile does
// not count, and is taken again on the file now at that path.
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <string>
#include <unordered_set>

#include "platform/ipc.h"
#include "platform/ipc_internal.h"
#include "platform/lasterror.h"

namespace {

using velmo::ipc::internal::ErrorFromErrno;

struct MutexObject {
  int lock_fd = -1;  // held by the handle that created the mutex; -1 for the others
  bool owned = false;
  std::string path;  // the lock file, removed with the creating handle
};

// A lock that was just taken counts when the file is still the one at its path.
bool StillAtPath(int fd, const std::string& path) {
  struct stat held, named;
  return fstat(fd, &held) == 0 && stat(path.c_str(), &named) == 0 &&
         held.st_dev == named.st_dev && held.st_ino == named.st_ino;
}

// The holder's process number, for a second start that cannot reach it.
void WriteHolder(int fd) {
  const std::string pid = std::to_string(getpid()) + "\n";
  if (ftruncate(fd, 0) == 0) (void)!pwrite(fd, pid.data(), pid.size(), 0);
}

std::unordered_set<MutexObject*>& LiveMutexes() {
  static std::unordered_set<MutexObject*> live;
  return live;
}

MutexObject* FindMutex(HANDLE handle) {
  auto* object = static_cast<MutexObject*>(handle);
  return LiveMutexes().count(object) ? object : nullptr;
}

HANDLE Register(MutexObject* object, DWORD last_error) {
  LiveMutexes().insert(object);
  SetLastError(last_error);
  return object;
}

}  // namespace

HANDLE CreateMutexW(void*, BOOL initial_owner, LPCWSTR name) {
  if (!name || !*name)  // an unnamed mutex is private to its handle
    return Register(new MutexObject{-1, initial_owner != FALSE}, ERROR_SUCCESS);
  if (!velmo::ipc::internal::EnsureRuntimeDirectory()) return nullptr;
  const std::string path = velmo::ipc::MutexLockPath(name);
  for (int attempt = 0;; ++attempt) {
    const int fd = open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600);
    if (fd < 0) {
      SetLastError(ErrorFromErrno(errno));
      return nullptr;
    }
    int rc;
    while ((rc = flock(fd, LOCK_EX | LOCK_NB)) != 0 && errno == EINTR) {
    }
    const int error = errno;
    if (rc == 0 && !StillAtPath(fd, path)) {
      close(fd);  // its holder removed it as this one locked it: take the new one
      if (attempt < 8) continue;
      SetLastError(ERROR_ACCESS_DENIED);
      return nullptr;
    }
    if (rc == 0) {
      WriteHolder(fd);
      return Register(new MutexObject{fd, initial_owner != FALSE, path}, ERROR_SUCCESS);
    }
    close(fd);
    if (error != EWOULDBLOCK) {
      SetLastError(ErrorFromErrno(error));
      return nullptr;
    }
    // Another handle keeps it in existence; initial ownership is not granted then.
    return Register(new MutexObject{}, ERROR_ALREADY_EXISTS);
  }
}

BOOL ReleaseMutex(HANDLE mutex) {
  MutexObject* object = FindMutex(mutex);
  if (!object) {
    SetLastError(ERROR_INVALID_HANDLE);
    return FALSE;
  }
  if (!object->owned) {
    SetLastError(ERROR_NOT_OWNER);
    return FALSE;
  }
  object->owned = false;
  return TRUE;
}

BOOL CloseHandle(HANDLE handle) {
  MutexObject* object = FindMutex(handle);
  if (!object) {
    SetLastError(ERROR_INVALID_HANDLE);
    return FALSE;
  }
  LiveMutexes().erase(object);
  if (object->lock_fd >= 0) {
    unlink(object->path.c_str());  // while still holding it: see StillAtPath
    close(object->lock_fd);
  }
  delete object;
  return TRUE;
}

namespace velmo::ipc {

pid_t MutexHolderProcess(std::wstring_view mutex_name) {
  const int fd = open(MutexLockPath(mutex_name).c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW);
  if (fd < 0) return 0;
  char text[24] = {};
  const ssize_t n = pread(fd, text, sizeof text - 1, 0);
  close(fd);
  return n > 0 ? static_cast<pid_t>(std::atol(text)) : 0;
}

}  // namespace velmo::ipc
