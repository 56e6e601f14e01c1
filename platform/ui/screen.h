// The screen the window system draws on: a grid of cells, each with one
// character, a foreground and background colour and attributes. A backend shows
// the grid (a real terminal through ncursesw, or nothing at all for tests) and
// delivers the keys typed and the size changes.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/ui/types.h"

namespace velmo::ui {

enum CellAttr : std::uint8_t {
  kAttrBold = 1,
  kAttrItalic = 2,
  kAttrUnderline = 4,
  kAttrReverse = 8,
};

// ch == 0 marks the right half of a double-width character in the cell before.
struct Cell {
  wchar_t ch = L' ';
  COLORREF fg = RGB(0, 0, 0);
  COLORREF bg = RGB(255, 255, 255);
  std::uint8_t attrs = 0;
  bool operator==(const Cell&) const = default;
};

enum class ColourDepth { kMono, k8, k256, kTrue };

// Keys held with a key (GetKeyState answers VK_SHIFT and VK_CONTROL from them).
enum KeyModifier : std::uint8_t { kModShift = 1, kModControl = 2 };

struct InputEvent {
  enum class Kind { kKey, kResize };
  Kind kind = Kind::kKey;
  UINT vk = 0;        // virtual-key code (virtual_keys.h)
  wchar_t ch = 0;     // the character typed, 0 for keys without one
  std::uint8_t modifiers = 0;  // KeyModifier bits
};

// Columns a character takes on the terminal: 0 (combining), 1 or 2.
int CellWidth(wchar_t ch);
// Columns a text takes.
int TextWidth(std::wstring_view text);

class Screen {
 public:
  virtual ~Screen() = default;

  int width() const { return width_; }
  int height() const { return height_; }
  const Cell& at(int x, int y) const { return cells_[static_cast<size_t>(y) * width_ + x]; }

  // Writes one character at (x, y); a double-width character takes the next cell
  // too (when there is none, a space is written instead). Writing over half of a
  // double-width character blanks its other half. Returns the columns used. On a
  // screen that draws ASCII only, the character's stand-in is written (glyphs.h),
  // a double-width one as two.
  int PutChar(int x, int y, wchar_t ch, COLORREF fg, COLORREF bg, std::uint8_t attrs);
  void Fill(int left, int top, int right, int bottom, const Cell& cell);

  // The text cursor (the caret of the focused text field), or none.
  void SetCursor(int x, int y);
  void HideCursor() { cursor_visible_ = false; }
  bool cursor_visible() const { return cursor_visible_; }
  POINT cursor() const { return cursor_; }

  // Shows the grid as it now is.
  virtual void Present() = 0;
  // The descriptor that becomes readable when input waits, or -1.
  virtual int InputFd() const { return -1; }
  // Takes one waiting input event; false when there is none.
  virtual bool ReadInput(InputEvent* event) = 0;
  virtual ColourDepth depth() const = 0;
  // True when the terminal draws ASCII only (its character set is not UTF-8).
  bool ascii() const { return ascii_; }
  void set_ascii(bool ascii) { ascii_ = ascii; }
  // Called when the message loop has nothing to do; true when it did something
  // (a test script typed keys). A screen that cannot wait for input (headless)
  // says so, and the loop then reports a stall instead of sleeping forever.
  virtual bool OnIdle() { return false; }
  virtual bool CanWaitForInput() const { return true; }
  // Puts a copied text on the terminal's own clipboard, where the terminal
  // takes one from a program; by default there is none.
  virtual void CopyToTerminalClipboard(std::wstring_view /*text*/) {}

 protected:
  void ResizeGrid(int width, int height);

 private:
  int width_ = 0;
  int height_ = 0;
  std::vector<Cell> cells_;
  POINT cursor_{0, 0};
  bool cursor_visible_ = false;
  bool ascii_ = false;
};

}  // namespace velmo::ui
