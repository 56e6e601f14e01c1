// Named mutexes: a lock file per name in the runtime folder. The handle that
// creates the mutex holds an exclusive flock on it for as long as it lives, so a
// later CreateMutexW of any process (or of this one) finds it existing; the lock
// goes with the handle's close or the process's end, never leaving a stale mutex.
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <unordered_set>

#include "platform/ipc.h"
#include "platform/ipc_internal.h"
#include "platform/lasterror.h"

namespace {

using velmo::ipc::internal::ErrorFromErrno;

struct MutexObject {
  int lock_fd = -1;  // held by the handle that created the mutex; -1 for the others
  bool owned = false;
};

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
  const int fd = open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600);
  if (fd < 0) {
    SetLastError(ErrorFromErrno(errno));
    return nullptr;
  }
  int rc;
  while ((rc = flock(fd, LOCK_EX | LOCK_NB)) != 0 && errno == EINTR) {
  }
  if (rc == 0) return Register(new MutexObject{fd, initial_owner != FALSE}, ERROR_SUCCESS);
  const int error = errno;
  close(fd);
  if (error != EWOULDBLOCK) {
    SetLastError(ErrorFromErrno(error));
    return nullptr;
  }
  // Another handle keeps it in existence; initial ownership is not granted then.
  return Register(new MutexObject{}, ERROR_ALREADY_EXISTS);
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
  if (object->lock_fd >= 0) close(object->lock_fd);
  delete object;
  return TRUE;
}
