#include "platform/notify_launch.h"

#include <spawn.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <sstream>

#include "platform/wstr.h"

extern char** environ;

namespace velmo::notify {
namespace {

std::vector<std::string> Words(const std::string& text) {
  std::istringstream in(text);
  std::vector<std::string> words;
  for (std::string word; in >> word;) words.push_back(word);
  return words;
}

}  // namespace

bool ApplicationExists(const std::wstring& application) {
  const std::string path = ToUtf8(application);
  if (path.empty()) return false;
  if (path.find('/') != std::string::npos) return ::access(path.c_str(), X_OK) == 0;
  const char* search = std::getenv("PATH");
  std::stringstream dirs(search ? search : "");
  for (std::string dir; std::getline(dirs, dir, ':');)
    if (!dir.empty() && ::access((dir + "/" + path).c_str(), X_OK) == 0) return true;
  return false;
}

std::vector<std::string> TerminalCommand() {
  const char* terminal = std::getenv("TERMINAL");
  std::vector<std::string> command =
      terminal && *terminal ? Words(terminal) : std::vector<std::string>{};
  if (command.empty()) command.push_back("x-terminal-emulator");
  command.push_back("-e");
  return command;
}

std::vector<std::string> LaunchCommand(const std::wstring& application,
                                       const std::wstring& arguments, bool in_terminal) {
  std::vector<std::string> command = in_terminal ? TerminalCommand() : std::vector<std::string>{};
  command.push_back(ToUtf8(application));
  for (std::string& word : Words(ToUtf8(arguments))) command.push_back(std::move(word));
  return command;
}

bool StartDetached(const std::vector<std::string>& command, std::string* error) {
  if (command.empty()) {
    *error = "nothing to start";
    return false;
  }
  std::vector<char*> argv;
  for (const std::string& word : command) argv.push_back(const_cast<char*>(word.c_str()));
  argv.push_back(nullptr);
  posix_spawnattr_t attributes;
  posix_spawnattr_init(&attributes);
  posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSID);
  pid_t pid = 0;
  const int rc = posix_spawnp(&pid, argv[0], nullptr, &attributes, argv.data(), environ);
  posix_spawnattr_destroy(&attributes);
  if (rc != 0) {
    *error = "cannot start " + command[0] + ": " + std::strerror(rc);
    return false;
  }
  return true;
}

}  // namespace velmo::notify
