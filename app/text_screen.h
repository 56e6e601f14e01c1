// The program's screen when it does not run in a terminal (its standard input
// and output are pipes or files), or when $VELMO_SCREEN is "headless": the
// screen lives in memory, keys are read from standard input as text, and each
// new look of the screen is written to standard output after a line
// "--- screen". When standard input ends, the program closes.
//
// Input text: characters are typed as keys (digits, letters, * # ?, Enter, Esc,
// Tab); names in braces are the other keys: {F1}..{F7}, {Up}, {Down}, {Left},
// {Right}, {Home}, {End}, {PgUp}, {PgDn}, {Back}.
#pragma once

#include <functional>
#include <string>

#include "platform/ui/screen_headless.h"

namespace velmo::app {

class TextScreen : public ui::HeadlessScreen {
 public:
  // Reads keys from `input_fd` and writes screens to `output_fd`.
  TextScreen(int width, int height, int input_fd, int output_fd);

  void Present() override;
  int InputFd() const override { return input_fd_; }
  bool ReadInput(ui::InputEvent* event) override;
  bool CanWaitForInput() const override { return true; }
  bool OnIdle() override { return false; }

  // Called once, when the input has ended and the screen has been shown.
  void set_on_input_end(std::function<void()> on_end) { on_end_ = std::move(on_end); }

  // Keys of a piece of input text, appended in order; a brace name that is no
  // key is typed as its characters.
  void TypeInput(std::string_view utf8);

 private:
  int input_fd_;
  int output_fd_;
  void EndedAndShown();

  bool ended_ = false;
  std::function<void()> on_end_;
  std::string pending_;   // bytes of an unfinished character or brace name
  std::wstring shown_;    // the text last written
};

// The screen's size from $VELMO_SCREEN_SIZE ("COLUMNSxLINES"), else 80x24.
void TextScreenSize(int* width, int* height);

}  // namespace velmo::app
