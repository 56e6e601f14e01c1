// A program running in a tmux session of its own (a private server socket),
// driven with tmux's keys and read back with capture-pane.
#pragma once

#include <chrono>
#include <string>
#include <vector>

namespace velmo::testing {

class TmuxSession {
 public:
  // Starts `command` in a width x height terminal with the variables of `env`
  // ("NAME=value") set.
  TmuxSession(const std::string& command, const std::vector<std::string>& env, int width = 80,
              int height = 24);
  ~TmuxSession();
  TmuxSession(const TmuxSession&) = delete;
  TmuxSession& operator=(const TmuxSession&) = delete;

  // tmux key names ("F1", "Up", "Escape", "5") one after another.
  void Keys(const std::vector<std::string>& keys);
  // Text typed as it stands.
  void Type(const std::string& text);
  // The screen as text; with escapes, the colour sequences too.
  std::string Screen(bool escapes = false) const;
  // Waits until the screen shows the text; false after the timeout.
  bool WaitFor(const std::string& text,
               std::chrono::milliseconds timeout = std::chrono::seconds(5)) const;
  // Waits until the program has ended (the session is gone).
  bool WaitForEnd(std::chrono::milliseconds timeout = std::chrono::seconds(5)) const;
  // Gives the terminal a new size, as a user resizing the window would.
  void Resize(int width, int height) {
    Tmux("resize-window -x " + std::to_string(width) + " -y " + std::to_string(height));
  }

 private:
  std::string Tmux(const std::string& args) const;
  std::string socket_;
};

// The output of a shell command line.
std::string CommandOutput(const std::string& command);

}  // namespace velmo::testing
