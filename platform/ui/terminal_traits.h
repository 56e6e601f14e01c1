// What the program learns of its terminal at start: how many colours it shows,
// whether it draws UTF-8, and its size. The facts come from the environment
// ($TERM, $COLORTERM, $NO_COLOR, $VELMO_COLOURS, the locale's character set),
// terminfo and the terminal itself; the choices made from them are plain
// functions, so each rule can be tried without a terminal.
#pragma once

#include <string>
#include <string_view>

#include "platform/ui/screen.h"

namespace velmo::ui {

struct TerminalFacts {
  std::string term;           // $TERM
  std::string colorterm;      // $COLORTERM: "truecolor" or "24bit" on a true-colour terminal
  bool no_color = false;      // $NO_COLOR is set and not empty
  std::string colours_asked;  // $VELMO_COLOURS: truecolor, 256, 8 or mono lowers the depth
  std::string codeset;        // the character set of the user's locale
  std::string terminfo;       // the terminal type whose terminfo was read (see DirectColourType)
  int colours = 0;            // terminfo's "colors"
  bool rgb = false;           // terminfo's "RGB" capability
  int columns = 0;            // 0: unknown
  int lines = 0;
};

struct TerminalTraits {
  ColourDepth depth = ColourDepth::kMono;
  bool utf8 = false;
  int columns = 0;
  int lines = 0;
};

// The environment's part of the facts; terminfo's and the size are left at 0.
TerminalFacts EnvironmentFacts();
// The environment's facts and, for the terminal on `fd`, terminfo's colours and
// the size (what `velmo --version` reports; the screen reads its own).
TerminalFacts ReadTerminalFacts(int fd);

// curses draws true colour only through a terminfo entry with the RGB capability.
// When $COLORTERM says the terminal has true colour but $TERM's entry lacks it,
// the entry of the same family that has it ("xterm-256color" -> "xterm-direct")
// is used instead, when terminfo has it.
std::string DirectColourType(std::string_view term);
bool ClaimsTrueColour(std::string_view colorterm);

// The colour depth: none under NO_COLOR; else what terminfo's entry allows;
// lowered to $VELMO_COLOURS.
ColourDepth ColourDepthOf(const TerminalFacts& facts);
// True when the locale's character set is UTF-8 (the terminal then draws it).
bool DrawsUtf8(std::string_view codeset);
TerminalTraits TraitsOf(const TerminalFacts& facts);
// The depth a terminal with `colours` colours (and the RGB capability) offers,
// lowered to what `asked` ($VELMO_COLOURS) names; an unknown name changes nothing.
ColourDepth ChooseColourDepth(int colours, bool rgb, const char* asked);

// terminfo's colour count and RGB capability for the terminal type `term`;
// false when terminfo has no such type.
bool TerminfoColours(const char* term, int fd, int* colours, bool* rgb);

// One line for people: "xterm-256color, 256 colours, UTF-8, 80x24".
std::string DescribeTerminal(const TerminalFacts& facts);

}  // namespace velmo::ui
