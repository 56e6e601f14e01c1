// A screen that lives in memory only, for tests: keys are typed into it, its
// cells are read back as text and colours, and a script of steps runs whenever
// the message loop would otherwise wait (a modal dialog waiting for its answer).
#pragma once

#include <deque>
#include <functional>
#include <string>
#include <string_view>

#include "platform/ui/screen.h"

namespace velmo::ui {

class HeadlessScreen : public Screen {
 public:
  HeadlessScreen(int width, int height, ColourDepth depth = ColourDepth::kTrue);

  // Input, delivered in order as the loop asks for it.
  void TypeKey(UINT vk, wchar_t ch = 0, std::uint8_t modifiers = 0);
  // Each character as the terminal would deliver it (digits, letters, * # ...).
  void TypeText(std::wstring_view text);
  // Backspace as the terminal sends it (back, or delete in a text field).
  void TypeBackspace();
  // A terminal size change.
  void Resize(int width, int height);

  // A step to run the next time the loop has nothing to do.
  void AddIdleStep(std::function<void()> step);
  // True when the loop had to wait with no script step, no timer and no watched
  // descriptor: it then posted WM_QUIT so that a faulty test ends instead of hanging.
  bool stalled() const { return stalled_; }
  void set_stalled() { stalled_ = true; }
  // How long the loop may wait for nothing but timers before it counts as a stall.
  int idle_limit_ms() const { return idle_limit_ms_; }
  void set_idle_limit_ms(int ms) { idle_limit_ms_ = ms; }

  // One row's text (double-width characters once, trailing blanks kept).
  std::wstring Row(int y) const;
  // All rows, joined by '\n', trailing blanks of each row removed.
  std::wstring Text() const;
  // True when some row contains the text.
  bool Contains(std::wstring_view text) const;
  // The cell where the text first starts, or {-1, -1}.
  POINT Find(std::wstring_view text) const;

  int presents() const { return presents_; }
  // The last text copied to the terminal's clipboard.
  const std::wstring& terminal_clipboard() const { return terminal_clipboard_; }
  void CopyToTerminalClipboard(std::wstring_view text) override { terminal_clipboard_ = text; }

  void Present() override { ++presents_; }
  bool ReadInput(InputEvent* event) override;
  ColourDepth depth() const override { return depth_; }
  void set_depth(ColourDepth depth) { depth_ = depth; }
  bool OnIdle() override;
  bool CanWaitForInput() const override { return false; }

 private:
  ColourDepth depth_;
  std::deque<InputEvent> input_;
  std::deque<std::function<void()>> steps_;
  bool stalled_ = false;
  int idle_limit_ms_ = 3000;
  int presents_ = 0;
  std::wstring terminal_clipboard_;
};

}  // namespace velmo::ui
