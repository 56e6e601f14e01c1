#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

#include "platform/ui/terminal_traits.h"

namespace velmo::testing {
namespace {

using ui::ColourDepth;

ui::TerminalFacts Facts(int colours, bool rgb, bool no_color = false, const char* asked = "") {
  ui::TerminalFacts facts;
  facts.term = "xterm-256color";
  facts.colours = colours;
  facts.rgb = rgb;
  facts.no_color = no_color;
  facts.colours_asked = asked;
  facts.codeset = "UTF-8";
  return facts;
}

TEST(TerminalTraitsTest, ColourDepthFromTerminfoNoColorAndTheAskedDepth) {
  struct Case { ui::TerminalFacts facts; ColourDepth depth; } const cases[] = {
      {Facts(0x1000000, true), ColourDepth::kTrue},
      {Facts(256, false), ColourDepth::k256},
      {Facts(8, false), ColourDepth::k8},
      {Facts(0, false), ColourDepth::kMono},
      {Facts(0x1000000, true, true), ColourDepth::kMono},
      {Facts(256, false, true), ColourDepth::kMono},
      {Facts(0x1000000, true, false, "256"), ColourDepth::k256},
      {Facts(256, false, false, "truecolor"), ColourDepth::k256},
      {Facts(8, false, false, "mono"), ColourDepth::kMono},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(ui::ColourDepthOf(c.facts), c.depth)
        << c.facts.colours << " rgb=" << c.facts.rgb << " no_color=" << c.facts.no_color << " "
        << c.facts.colours_asked;
  }
}

TEST(TerminalTraitsTest, TrueColourClaimsLookForTheDirectEntryOfTheFamily) {
  struct Case { const char* term; const char* direct; } const cases[] = {
      {"xterm-256color", "xterm-direct"}, {"tmux-256color", "tmux-direct"},
      {"xterm", "xterm-direct"},          {"konsole-direct", "konsole-direct"},
      {"rxvt-color", "rxvt-direct"},      {"", ""},
  };
  for (const Case& c : cases) EXPECT_EQ(ui::DirectColourType(c.term), c.direct) << c.term;
  EXPECT_TRUE(ui::ClaimsTrueColour("truecolor"));
  EXPECT_TRUE(ui::ClaimsTrueColour("24bit"));
  EXPECT_FALSE(ui::ClaimsTrueColour("yes"));
}

TEST(TerminalTraitsTest, UnicodeOnlyWhenTheLocaleSaysUtf8) {
  struct Case { const char* codeset; bool utf8; } const cases[] = {
      {"UTF-8", true}, {"utf8", true}, {"ANSI_X3.4-1968", false}, {"ISO-8859-1", false}, {"", false},
  };
  for (const Case& c : cases) EXPECT_EQ(ui::DrawsUtf8(c.codeset), c.utf8) << c.codeset;
}

// The environment as a program started with it reads it (terminfo is the
// system's: vt100 and xterm-256color come with every ncurses).
TEST(TerminalTraitsTest, TheEnvironmentOfAPlainTerminal) {
  struct Case {
    const char* term; const char* lang; const char* no_color; const char* described;
  } const cases[] = {
      {"vt100", "C", "", "vt100, no colours, ASCII (ANSI_X3.4-1968)"},
      {"xterm-256color", "C.UTF-8", "", "xterm-256color, 256 colours, UTF-8"},
      {"xterm-256color", "C.UTF-8", "1", "xterm-256color, no colours (NO_COLOR), UTF-8"},
  };
  const char* term = std::getenv("TERM");
  const std::string old_term = term ? term : "";
  for (const Case& c : cases) {
    setenv("TERM", c.term, 1);
    setenv("LC_ALL", c.lang, 1);
    setenv("NO_COLOR", c.no_color, 1);
    unsetenv("COLORTERM");
    unsetenv("VELMO_COLOURS");
    unsetenv("COLUMNS");
    ui::TerminalFacts facts = ui::ReadTerminalFacts(-1);
    EXPECT_EQ(ui::DescribeTerminal(facts), c.described);
  }
  setenv("TERM", old_term.c_str(), 1);
  unsetenv("LC_ALL");
  unsetenv("NO_COLOR");
}

}  // namespace
}  // namespace velmo::testing
