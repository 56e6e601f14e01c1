#include "tests/app/child_process.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <thread>

extern char** environ;

namespace velmo::testing {

ChildProcess::ChildProcess(const std::string& program, const std::vector<std::string>& args,
                           const std::vector<std::string>& extra_env) {
  int in[2], out[2], err[2];
  if (pipe2(in, O_CLOEXEC) || pipe2(out, O_CLOEXEC) || pipe2(err, O_CLOEXEC)) return;
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, in[0], 0);
  posix_spawn_file_actions_adddup2(&actions, out[1], 1);
  posix_spawn_file_actions_adddup2(&actions, err[1], 2);
  std::vector<std::string> strings = {program};
  strings.insert(strings.end(), args.begin(), args.end());
  std::vector<char*> argv;
  for (std::string& s : strings) argv.push_back(s.data());
  argv.push_back(nullptr);
  std::vector<std::string> env_strings = extra_env;
  std::vector<char*> envp;
  for (std::string& s : env_strings) envp.push_back(s.data());
  for (char** e = environ; *e; ++e) envp.push_back(*e);
  envp.push_back(nullptr);
  if (posix_spawn(&pid_, program.c_str(), &actions, nullptr, argv.data(), envp.data()) != 0)
    pid_ = -1;
  posix_spawn_file_actions_destroy(&actions);
  close(in[0]);
  close(out[1]);
  close(err[1]);
  in_ = in[1];
  out_ = out[0];
  err_ = err[0];
}

ChildProcess::~ChildProcess() {
  if (pid_ > 0) {
    kill(pid_, SIGKILL);
    waitpid(pid_, nullptr, 0);
  }
  for (int fd : {in_, out_, err_})
    if (fd >= 0) close(fd);
}

void ChildProcess::Drain(int fd, std::string* into, int timeout_ms) {
  pollfd p{fd, POLLIN, 0};
  if (fd < 0 || poll(&p, 1, timeout_ms) <= 0) return;
  char buffer[4096];
  const ssize_t n = read(fd, buffer, sizeof buffer);
  if (n > 0) into->append(buffer, static_cast<size_t>(n));
}

std::string ChildProcess::WaitForLine(const std::string& text, std::chrono::milliseconds timeout) {
  const auto end = std::chrono::steady_clock::now() + timeout;
  for (;;) {
    size_t line_end;
    while ((line_end = output_.find('\n', scanned_)) != std::string::npos) {
      const std::string line = output_.substr(scanned_, line_end - scanned_);
      scanned_ = line_end + 1;
      if (line.find(text) != std::string::npos) return line;
    }
    if (std::chrono::steady_clock::now() >= end) return "";
    const size_t before = output_.size();
    Drain(out_, &output_, 50);
    Drain(err_, &errors_, 0);
    if (output_.size() == before) {
      pollfd p{out_, POLLIN, 0};
      if (poll(&p, 1, 0) > 0 && (p.revents & POLLHUP) && !(p.revents & POLLIN)) return "";
    }
  }
}

void ChildProcess::CloseInput() {
  if (in_ >= 0) close(in_);
  in_ = -1;
}

void ChildProcess::Signal(int signal) {
  if (pid_ > 0) kill(pid_, signal);
}

int ChildProcess::Wait(std::chrono::milliseconds timeout) {
  if (pid_ <= 0) return -1;
  const auto end = std::chrono::steady_clock::now() + timeout;
  int status = 0;
  for (;;) {
    Drain(out_, &output_, 0);
    Drain(err_, &errors_, 0);
    const pid_t done = waitpid(pid_, &status, WNOHANG);
    if (done == pid_) break;
    if (std::chrono::steady_clock::now() >= end) {
      kill(pid_, SIGKILL);
      waitpid(pid_, nullptr, 0);
      pid_ = -1;
      return -1;
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  }
  pid_ = -1;
  // The child has ended: read what is left up to the end of both pipes.
  for (int fd : {out_, err_}) {
    std::string& into = fd == out_ ? output_ : errors_;
    for (size_t before = ~size_t{0}; before != into.size();) {
      before = into.size();
      Drain(fd, &into, 100);
    }
  }
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

std::string ChildProcess::error_output() {
  Drain(err_, &errors_, 0);
  return errors_;
}

bool WaitForFile(const std::filesystem::path& file) {
  for (int i = 0; i < 200 && !std::filesystem::exists(file); ++i)
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  return std::filesystem::exists(file);
}

int RunToEnd(const std::string& program, const std::vector<std::string>& args,
             std::string* error_output, std::string* output) {
  ChildProcess child(program, args);
  child.CloseInput();
  const int code = child.Wait(std::chrono::seconds(60));
  if (error_output) *error_output = child.error_output();
  if (output) *output = child.output();
  return code;
}

RunResult RunProgram(const std::string& program, const std::vector<std::string>& args) {
  RunResult r;
  r.code = RunToEnd(program, args, &r.err, &r.out);
  return r;
}

}  // namespace velmo::testing
