#include "sync/after_sync_start.h"

#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <time.h>
#include <unistd.h>

#include <cstdlib>
#include <cstring>

#include "platform/device.h"
#include "platform/notify.h"
#include "platform/wstr.h"

extern char** environ;

namespace velmo::sync {
namespace {

// Runs program with its one argument; waits at most timeout_seconds.
bool RunProgram(const std::string& program, const std::string& argument, int timeout_seconds,
                std::string* error) {
  const char* argv[] = {program.c_str(), argument.c_str(), nullptr};
  pid_t pid = 0;
  const int rc = posix_spawn(&pid, program.c_str(), nullptr, nullptr, const_cast<char**>(argv), environ);
  if (rc != 0) {
    *error = program + " could not be started: " + std::strerror(rc);
    return false;
  }
  int status = 0;
  for (int waited = 0; waitpid(pid, &status, WNOHANG) == 0; ++waited) {
    if (waited >= timeout_seconds * 50) {
      kill(pid, SIGKILL);
      waitpid(pid, &status, 0);
      *error = program + " did not finish within " + std::to_string(timeout_seconds) + " s";
      return false;
    }
    const timespec pause{0, 20 * 1000 * 1000};
    nanosleep(&pause, nullptr);
  }
  if (WIFEXITED(status) && WEXITSTATUS(status) == 0) return true;
  *error = program + " " + argument + " ended with status " + std::to_string(status);
  return false;
}

}  // namespace

AfterSyncReport StartAfterSyncPrograms(int timeout_seconds) {
  AfterSyncReport report;
  std::vector<notify::RunAtEventRegistration> programs;
  if (!notify::ListRunAppAtEvent(NOTIFICATION_EVENT_SYNC_END, &programs)) {
    report.problems.push_back("the start-after-synchronisation registrations cannot be read");
    return report;
  }
  const std::string argument = ToUtf8(notify::RunAtEventCommandLine(NOTIFICATION_EVENT_SYNC_END));
  // The programs were registered on this device: they run on it too, whatever
  // root the environment names (`velmo --root DIR sync`).
  setenv("VELMO_ROOT", device::Root().c_str(), 1);
  for (const notify::RunAtEventRegistration& r : programs) {
    const std::string program = ToUtf8(r.app);
    if (access(program.c_str(), X_OK) != 0) {
      CeRunAppAtEvent(r.app.c_str(), NOTIFICATION_EVENT_NONE);
      report.dropped.push_back(program);
      continue;
    }
    std::string error;
    if (RunProgram(program, argument, timeout_seconds, &error)) ++report.started;
    else report.problems.push_back(error);
  }
  return report;
}

}  // namespace velmo::sync
