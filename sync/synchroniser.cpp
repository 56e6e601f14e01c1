#include "sync/synchroniser.h"

#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <time.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

extern char** environ;

namespace velmo::sync {
namespace {

// Waits for pid until the deadline (a CLOCK_MONOTONIC second count); true with
// *status when it ended.
bool WaitUntil(pid_t pid, double deadline, int* status) {
  for (;;) {
    const pid_t done = waitpid(pid, status, WNOHANG);
    if (done == pid) return true;
    if (done < 0 && errno != EINTR) return true;
    timespec now;
    clock_gettime(CLOCK_MONOTONIC, &now);
    if (now.tv_sec + now.tv_nsec / 1e9 >= deadline) return false;
    const timespec pause{0, 20 * 1000 * 1000};
    nanosleep(&pause, nullptr);
  }
}

double Now() {
  timespec now;
  clock_gettime(CLOCK_MONOTONIC, &now);
  return now.tv_sec + now.tv_nsec / 1e9;
}

}  // namespace

bool RunSynchroniser(const std::string& command, int timeout_seconds, std::string* error) {
  posix_spawnattr_t attr;
  posix_spawnattr_init(&attr);
  // A group of its own, so that stopping it stops what it started too.
  posix_spawnattr_setflags(&attr, POSIX_SPAWN_SETPGROUP);
  posix_spawnattr_setpgroup(&attr, 0);
  const char* argv[] = {"/bin/sh", "-c", command.c_str(), nullptr};
  pid_t pid = 0;
  const int rc = posix_spawn(&pid, "/bin/sh", nullptr, &attr, const_cast<char**>(argv), environ);
  posix_spawnattr_destroy(&attr);
  if (rc != 0) {
    *error = "the synchroniser '" + command + "' could not be started: " + std::strerror(rc);
    return false;
  }
  int status = 0;
  if (!WaitUntil(pid, Now() + timeout_seconds, &status)) {
    kill(-pid, SIGTERM);
    if (!WaitUntil(pid, Now() + 5, &status)) {
      kill(-pid, SIGKILL);
      waitpid(pid, &status, 0);
    }
    *error = "the synchroniser '" + command + "' did not finish within " + std::to_string(timeout_seconds) +
             " s and was stopped";
    return false;
  }
  if (WIFEXITED(status) && WEXITSTATUS(status) == 0) return true;
  if (WIFEXITED(status) && WEXITSTATUS(status) == 127)
    *error = "the synchroniser '" + command + "' was not found (is it installed?)";
  else if (WIFEXITED(status))
    *error = "the synchroniser '" + command + "' failed with exit code " + std::to_string(WEXITSTATUS(status));
  else
    *error = "the synchroniser '" + command + "' was ended by signal " + std::to_string(WTERMSIG(status));
  return false;
}

}  // namespace velmo::sync
