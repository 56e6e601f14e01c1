// The terminal through ncursesw.
#include "platform/ui/screen_ncurses.h"

#include <unistd.h>

#include <clocale>
#include <cstdlib>
#include <cstring>

#include "platform/ui/colours.h"
#include "platform/ui/keymap.h"

// Last: curses.h defines macros (OK, ERR, TRUE, clear, move ...).
#include <curses.h>

namespace velmo::ui {
namespace {

constexpr int kEscDelayMs = 25;

int ColourNumber(COLORREF c, ColourDepth depth) {
  switch (depth) {
    case ColourDepth::kTrue:
      return (GetRValue(c) << 16) | (GetGValue(c) << 8) | GetBValue(c);
    case ColourDepth::k256: return NearestXterm256(c);
    case ColourDepth::k8: return NearestAnsi8(c);
    case ColourDepth::kMono: return -1;
  }
  return -1;
}

attr_t CursesAttributes(const Cell& cell, ColourDepth depth) {
  attr_t a = WA_NORMAL;
  if (cell.attrs & kAttrBold) a |= WA_BOLD;
  if (cell.attrs & kAttrItalic) a |= WA_ITALIC;
  if (cell.attrs & kAttrUnderline) a |= WA_UNDERLINE;
  bool reverse = cell.attrs & kAttrReverse;
  // Without colours, what is not on the window's background stands out reversed.
  if (depth == ColourDepth::kMono && cell.bg != GetSysColor(COLOR_WINDOW)) reverse = !reverse;
  if (reverse) a |= WA_REVERSE;
  return a;
}

}  // namespace

std::unique_ptr<NcursesScreen> NcursesScreen::Open() {
  if (!isatty(STDIN_FILENO) || !isatty(STDOUT_FILENO)) return nullptr;
  // Wide characters need a UTF-8 character type; nothing else of the locale changes.
  std::setlocale(LC_CTYPE, "");
  if (!std::strstr(std::setlocale(LC_CTYPE, nullptr), "UTF-8") &&
      !std::strstr(std::setlocale(LC_CTYPE, nullptr), "utf8")) {
    std::setlocale(LC_CTYPE, "C.UTF-8");
  }
  TerminalFacts facts = ReadTerminalFacts(STDOUT_FILENO);
  ::screen* term = newterm(facts.terminfo.empty() ? nullptr : facts.terminfo.c_str(), stdout, stdin);
  if (!term) return nullptr;
  set_term(term);
  set_escdelay(kEscDelayMs);
  cbreak();
  noecho();
  nonl();
  keypad(stdscr, TRUE);
  nodelay(stdscr, TRUE);
  LearnModifiedKeys();
  curs_set(0);
  TerminalTraits traits = TraitsOf(facts);
  // Without colours curses is not asked for any, not even its white on black.
  if (!has_colors()) traits.depth = ColourDepth::kMono;
  if (traits.depth != ColourDepth::kMono) start_color();
  auto screen = std::unique_ptr<NcursesScreen>(new NcursesScreen(term, traits.depth));
  screen->set_ascii(!traits.utf8);
  return screen;
}

NcursesScreen::NcursesScreen(::screen* term, ColourDepth depth) : term_(term), depth_(depth) {
  ResizeGrid(COLS, LINES);
}

NcursesScreen::~NcursesScreen() {
  endwin();
  delscreen(term_);
}

void NcursesScreen::Present() {
  size_t count = static_cast<size_t>(width()) * height();
  if (shown_.size() != count) {
    shown_.assign(count, Cell{L'\x1', 0, 0, 0});  // nothing matches: write every cell
    erase();
  }
  for (int y = 0; y < height(); ++y) {
    for (int x = 0; x < width(); ++x) {
      const Cell& cell = at(x, y);
      Cell& shown = shown_[static_cast<size_t>(y) * width() + x];
      if (cell == shown) continue;
      shown = cell;
      if (cell.ch == 0) continue;  // right half of a double-width character
      int fg = ColourNumber(cell.fg, depth_), bg = ColourNumber(cell.bg, depth_);
      if (depth_ == ColourDepth::k8 && fg == bg) fg = bg == 0 ? 7 : 0;
      int pair = depth_ == ColourDepth::kMono ? 0 : alloc_pair(fg, bg);
      if (pair < 0) pair = 0;
      wchar_t text[2] = {cell.ch, 0};
      cchar_t cc;
      setcchar(&cc, text, CursesAttributes(cell, depth_), 0, &pair);
      mvadd_wch(y, x, &cc);
    }
  }
  if (cursor_visible()) {
    curs_set(1);
    move(cursor().y, cursor().x);
  } else {
    curs_set(0);
  }
  refresh();
}

bool NcursesScreen::ReadInput(InputEvent* event) {
  for (;;) {
    wint_t key = 0;
    int kind = wget_wch(stdscr, &key);
    if (kind == ERR) return false;
    if (kind == KEY_CODE_YES) {
      if (!KeyFromCursesCode(static_cast<int>(key), event)) continue;
      if (event->kind == InputEvent::Kind::kResize) {
        ResizeGrid(COLS, LINES);
        shown_.clear();
      }
      return true;
    }
    if (KeyFromChar(static_cast<wchar_t>(key), event)) return true;
  }
}

}  // namespace velmo::ui
