// Programs started detached: a double fork so that the program never waits for
// them and leaves no zombie, and a close-on-exec pipe that tells whether the
// exec itself succeeded.
#include "platform/shell.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cwchar>

#include "platform/lasterror.h"
#include "platform/wstr.h"

namespace velmo::shell {
namespace {

// Runs in the grandchild: only async-signal-safe calls until exec.
[[noreturn]] void ExecDetached(char* const* argv, int report_fd) {
  setsid();
  sigset_t none;
  sigemptyset(&none);
  sigprocmask(SIG_SETMASK, &none, nullptr);
  for (int sig = 1; sig < NSIG; ++sig) signal(sig, SIG_DFL);
  int null_fd = open("/dev/null", O_RDWR);
  if (null_fd >= 0) {
    dup2(null_fd, 0);
    dup2(null_fd, 1);
    dup2(null_fd, 2);
    if (null_fd > 2) close(null_fd);
  }
  execvp(argv[0], argv);
  int error = errno;
  ssize_t ignored = write(report_fd, &error, sizeof error);
  (void)ignored;
  _exit(127);
}

}  // namespace

BOOL Spawn(const std::vector<std::wstring>& argv) {
  if (argv.empty() || argv[0].empty()) {
    SetLastError(ERROR_INVALID_PARAMETER);
    return FALSE;
  }
  std::vector<std::string> narrow;
  narrow.reserve(argv.size());
  for (const std::wstring& a : argv) narrow.push_back(ToUtf8(a));
  std::vector<char*> pointers;
  for (std::string& a : narrow) pointers.push_back(a.data());
  pointers.push_back(nullptr);

  int report[2];
  if (pipe2(report, O_CLOEXEC) != 0) {
    SetLastError(ERROR_NOT_ENOUGH_MEMORY);
    return FALSE;
  }
  pid_t child = fork();
  if (child < 0) {
    close(report[0]);
    close(report[1]);
    SetLastError(ERROR_NOT_ENOUGH_MEMORY);
    return FALSE;
  }
  if (child == 0) {
    close(report[0]);
    pid_t grandchild = fork();
    if (grandchild == 0) ExecDetached(pointers.data(), report[1]);
    if (grandchild < 0) {
      int error = errno;
      ssize_t ignored = write(report[1], &error, sizeof error);
      (void)ignored;
    }
    _exit(0);
  }
  close(report[1]);
  int status = 0;
  while (waitpid(child, &status, 0) < 0 && errno == EINTR) {
  }
  int error = 0;
  ssize_t got;
  while ((got = read(report[0], &error, sizeof error)) < 0 && errno == EINTR) {
  }
  close(report[0]);
  if (got > 0) {
    SetLastError(error == ENOMEM || error == EAGAIN ? ERROR_NOT_ENOUGH_MEMORY
                                                    : ERROR_FILE_NOT_FOUND);
    return FALSE;
  }
  SetLastError(ERROR_SUCCESS);
  return TRUE;
}

}  // namespace velmo::shell

BOOL ShellExecuteEx(SHELLEXECUTEINFO* info) {
  if (!info || !info->lpFile || !*info->lpFile ||
      (info->lpVerb && std::wcscmp(info->lpVerb, L"open") != 0) ||
      (info->lpParameters && *info->lpParameters)) {
    SetLastError(ERROR_INVALID_PARAMETER);
    return FALSE;
  }
  const char* opener = std::getenv("VELMO_OPENER");
  std::wstring program = velmo::FromUtf8(opener && *opener ? opener : "xdg-open");
  // A path that begins with "-" would be read as an option: it is made relative.
  std::wstring file = info->lpFile;
  if (file[0] == L'-') file.insert(0, L"./");
  return velmo::shell::Spawn({program, file});
}
