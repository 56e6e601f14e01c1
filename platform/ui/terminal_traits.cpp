// The terminal's colours, character set and size, and the choices made from them.
#include "platform/ui/terminal_traits.h"

#include <langinfo.h>
#include <locale.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <cstdlib>
#include <cstring>

namespace velmo::ui {
namespace {

struct DepthName {
  const char* name;
  ColourDepth depth;
};

constexpr DepthName kDepthNames[] = {
    {"truecolor", ColourDepth::kTrue}, {"24bit", ColourDepth::kTrue}, {"256", ColourDepth::k256},
    {"8", ColourDepth::k8},            {"mono", ColourDepth::kMono},
};

// What people call each depth in --version.
constexpr const char* kDepthWords[] = {"no colours", "8 colours", "256 colours", "true colour"};

std::string Variable(const char* name) {
  const char* value = std::getenv(name);
  return value ? value : "";
}

// The character set the user's locale names, whatever the process switched its
// own character type to since.
std::string UserCodeset() {
  locale_t user = newlocale(LC_CTYPE_MASK, "", nullptr);
  if (!user) return "ANSI_X3.4-1968";  // an unknown locale is the C locale
  std::string codeset = nl_langinfo_l(CODESET, user);
  freelocale(user);
  return codeset;
}

int Number(const std::string& text) { return std::atoi(text.c_str()); }

}  // namespace

ColourDepth ChooseColourDepth(int colours, bool rgb, const char* asked) {
  ColourDepth depth = ColourDepth::kMono;
  if (rgb || colours >= 0x1000000) {
    depth = ColourDepth::kTrue;
  } else if (colours >= 256) {
    depth = ColourDepth::k256;
  } else if (colours >= 8) {
    depth = ColourDepth::k8;
  }
  if (asked) {
    for (const DepthName& d : kDepthNames) {
      if (std::strcmp(d.name, asked) == 0 && d.depth < depth) depth = d.depth;
    }
  }
  return depth;
}

TerminalFacts EnvironmentFacts() {
  TerminalFacts facts;
  facts.term = Variable("TERM");
  facts.colorterm = Variable("COLORTERM");
  facts.no_color = !Variable("NO_COLOR").empty();
  facts.colours_asked = Variable("VELMO_COLOURS");
  facts.codeset = UserCodeset();
  return facts;
}

std::string DirectColourType(std::string_view term) {
  constexpr std::string_view kDepthSuffixes[] = {"-256color", "-88color", "-16color", "-color"};
  for (std::string_view suffix : kDepthSuffixes) {
    if (term.size() > suffix.size() && term.ends_with(suffix)) {
      term.remove_suffix(suffix.size());
      break;
    }
  }
  if (term.empty() || term.ends_with("-direct")) return std::string(term);
  return std::string(term) + "-direct";
}

bool ClaimsTrueColour(std::string_view colorterm) {
  return colorterm == "truecolor" || colorterm == "24bit";
}

TerminalFacts ReadTerminalFacts(int fd) {
  TerminalFacts facts = EnvironmentFacts();
  if (!facts.term.empty() && TerminfoColours(facts.term.c_str(), fd, &facts.colours, &facts.rgb))
    facts.terminfo = facts.term;
  if (!facts.rgb && ClaimsTrueColour(facts.colorterm) && !facts.term.empty()) {
    std::string direct = DirectColourType(facts.term);
    int colours = 0;
    bool rgb = false;
    if (TerminfoColours(direct.c_str(), fd, &colours, &rgb) && rgb) {
      facts.terminfo = direct;
      facts.colours = colours;
      facts.rgb = true;
    }
  }
  winsize size{};
  if (isatty(fd) && ioctl(fd, TIOCGWINSZ, &size) == 0 && size.ws_col > 0) {
    facts.columns = size.ws_col;
    facts.lines = size.ws_row;
  } else {
    facts.columns = Number(Variable("COLUMNS"));
    facts.lines = Number(Variable("LINES"));
  }
  return facts;
}

ColourDepth ColourDepthOf(const TerminalFacts& facts) {
  if (facts.no_color) return ColourDepth::kMono;
  return ChooseColourDepth(facts.colours, facts.rgb,
                           facts.colours_asked.empty() ? nullptr : facts.colours_asked.c_str());
}

bool DrawsUtf8(std::string_view codeset) {
  return codeset == "UTF-8" || codeset == "utf-8" || codeset == "utf8" || codeset == "UTF8";
}

TerminalTraits TraitsOf(const TerminalFacts& facts) {
  return TerminalTraits{ColourDepthOf(facts), DrawsUtf8(facts.codeset), facts.columns, facts.lines};
}

std::string DescribeTerminal(const TerminalFacts& facts) {
  TerminalTraits traits = TraitsOf(facts);
  std::string text = facts.term.empty() ? "no TERM" : facts.term;
  if (!facts.terminfo.empty() && facts.terminfo != facts.term) text += " (as " + facts.terminfo + ")";
  text += ", ";
  text += kDepthWords[static_cast<int>(traits.depth)];
  if (facts.no_color) text += " (NO_COLOR)";
  text += traits.utf8 ? ", UTF-8" : ", ASCII (" + facts.codeset + ")";
  if (facts.columns > 0 && facts.lines > 0)
    text += ", " + std::to_string(facts.columns) + "x" + std::to_string(facts.lines);
  return text;
}

}  // namespace velmo::ui
