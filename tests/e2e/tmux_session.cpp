#include "tests/e2e/tmux_session.h"

#include <unistd.h>

#include <atomic>
#include <cstdio>
#include <thread>

namespace velmo::testing {
namespace {

std::string Quote(const std::string& text) {
  std::string out = "'";
  for (char c : text) out += c == '\'' ? std::string("'\\''") : std::string(1, c);
  return out + "'";
}

}  // namespace

std::string CommandOutput(const std::string& command) {
  std::string out;
  if (FILE* pipe = popen(command.c_str(), "r")) {
    char buffer[4096];
    size_t n;
    while ((n = fread(buffer, 1, sizeof buffer, pipe)) > 0) out.append(buffer, n);
    pclose(pipe);
  }
  return out;
}

TmuxSession::TmuxSession(const std::string& command, const std::vector<std::string>& env,
                         int width, int height) {
  static std::atomic<int> count{0};
  socket_ = "velmo-e2e-" + std::to_string(getpid()) + "-" + std::to_string(count++);
  std::string args = "new-session -d -x " + std::to_string(width) + " -y " + std::to_string(height);
  for (const std::string& e : env) args += " -e " + Quote(e);
  Tmux(args + " " + Quote(command));
}

TmuxSession::~TmuxSession() { Tmux("kill-server"); }

std::string TmuxSession::Tmux(const std::string& args) const {
  return CommandOutput("tmux -L " + socket_ + " " + args + " 2>/dev/null");
}

void TmuxSession::Keys(const std::vector<std::string>& keys) {
  for (const std::string& key : keys) {
    Tmux("send-keys " + Quote(key));
    std::this_thread::sleep_for(std::chrono::milliseconds(60));
  }
}

void TmuxSession::Type(const std::string& text) { Tmux("send-keys -l " + Quote(text)); }

std::string TmuxSession::Screen(bool escapes) const {
  return Tmux(escapes ? "capture-pane -p -e" : "capture-pane -p");
}

bool TmuxSession::WaitFor(const std::string& text, std::chrono::milliseconds timeout) const {
  const auto end = std::chrono::steady_clock::now() + timeout;
  while (std::chrono::steady_clock::now() < end) {
    if (Screen().find(text) != std::string::npos) return true;
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
  }
  return false;
}

bool TmuxSession::WaitForEnd(std::chrono::milliseconds timeout) const {
  const auto end = std::chrono::steady_clock::now() + timeout;
  while (std::chrono::steady_clock::now() < end) {
    if (Tmux("has-session && echo up").find("up") == std::string::npos) return true;
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
  }
  return false;
}

}  // namespace velmo::testing
