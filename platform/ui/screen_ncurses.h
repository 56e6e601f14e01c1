// The screen of a real terminal, through ncursesw: colours as deep as the
// terminal has them (terminal_traits.h: true colour, else the nearest of 256 or
// 8, none under NO_COLOR), ASCII stand-ins when it does not draw UTF-8, bold,
// italic, underline and reverse; the keys of keymap.h with a short Esc delay;
// size changes delivered as resize events.
#pragma once

#include <memory>
#include <vector>

#include "platform/ui/screen.h"
#include "platform/ui/terminal_traits.h"

struct screen;

namespace velmo::ui {

class NcursesScreen : public Screen {
 public:
  // Starts curses on the terminal; nullptr when there is no usable terminal.
  static std::unique_ptr<NcursesScreen> Open();
  ~NcursesScreen() override;
  NcursesScreen(const NcursesScreen&) = delete;
  NcursesScreen& operator=(const NcursesScreen&) = delete;

  void Present() override;
  int InputFd() const override { return 0; }
  bool ReadInput(InputEvent* event) override;
  ColourDepth depth() const override { return depth_; }
  void CopyToTerminalClipboard(std::wstring_view text) override;

 private:
  NcursesScreen(::screen* term, ColourDepth depth);

  ::screen* term_;
  ColourDepth depth_;
  std::vector<Cell> shown_;  // what the terminal shows now; empty: unknown
};

}  // namespace velmo::ui
