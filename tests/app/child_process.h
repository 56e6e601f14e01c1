// A program run as a child process for a test, with its standard input and
// output on pipes and its standard error collected.
#pragma once

#include <sys/types.h>

#include <chrono>
#include <filesystem>
#include <string>
#include <vector>

namespace velmo::testing {

class ChildProcess {
 public:
  // Starts program with the arguments; extra_env entries ("NAME=value") are added
  // to the test's environment.
  ChildProcess(const std::string& program, const std::vector<std::string>& args,
               const std::vector<std::string>& extra_env = {});
  ~ChildProcess();
  ChildProcess(const ChildProcess&) = delete;
  ChildProcess& operator=(const ChildProcess&) = delete;

  bool started() const { return pid_ > 0; }

  // Reads standard output until a line containing text arrives; returns that line,
  // or an empty string after the timeout or at the end of the output.
  std::string WaitForLine(const std::string& text,
                          std::chrono::milliseconds timeout = std::chrono::seconds(10));
  // Everything read from standard output so far.
  const std::string& output() const { return output_; }

  void CloseInput();
  void Signal(int signal);
  // The exit code, or -1 when it did not end in time (it is then killed) or was
  // ended by a signal.
  int Wait(std::chrono::milliseconds timeout = std::chrono::seconds(10));
  // Standard error; complete once Wait has returned.
  std::string error_output();

 private:
  void Drain(int fd, std::string* into, int timeout_ms);

  pid_t pid_ = -1;
  int in_ = -1, out_ = -1, err_ = -1;
  std::string output_, errors_;
  size_t scanned_ = 0;
};

// Waits up to two seconds for a file a child process makes; true once it is there.
bool WaitForFile(const std::filesystem::path& file);

// Runs a program to its end (a minute at most) and returns its exit code; its
// standard error and output are handed back when asked for.
int RunToEnd(const std::string& program, const std::vector<std::string>& args,
             std::string* error_output = nullptr, std::string* output = nullptr);

// The same run, its exit code and both outputs together.
struct RunResult { int code; std::string out, err; };
RunResult RunProgram(const std::string& program, const std::vector<std::string>& args);

}  // namespace velmo::testing
