// Copying to the terminal's clipboard with the OSC 52 sequence: the terminal's
// own form of it ("Ms" in terminfo) when it states one, else the common form for
// the terminals known to take it. The text goes as UTF-8 in base64.
#include <unistd.h>

#include <cstring>
#include <cstdlib>
#include <string>

#include "platform/ui/screen_ncurses.h"
#include "platform/wstr.h"

// Last: curses.h defines macros (OK, ERR, TRUE ...).
#include <curses.h>
#include <term.h>

namespace velmo::ui {
namespace {

// Terminals (by $TERM's start) that take OSC 52 without saying so in terminfo.
constexpr const char* kTakesOsc52[] = {"xterm", "tmux", "screen", "alacritty", "foot",
                                        "kitty", "wezterm", "st-"};
// Larger copies stay in the program: terminals refuse long sequences.
constexpr size_t kMaxEncoded = 100000;

std::string Base64(std::string_view bytes) {
  static constexpr char kDigits[] =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  std::string out;
  out.reserve((bytes.size() + 2) / 3 * 4);
  for (size_t i = 0; i < bytes.size(); i += 3) {
    const size_t n = std::min<size_t>(3, bytes.size() - i);
    unsigned v = 0;
    for (size_t k = 0; k < 3; ++k)
      v = (v << 8) | (k < n ? static_cast<unsigned char>(bytes[i + k]) : 0u);
    for (size_t k = 0; k < 4; ++k)
      out += k <= n ? kDigits[(v >> (18 - 6 * k)) & 0x3F] : '=';
  }
  return out;
}

bool TermTakesOsc52() {
  const char* term = std::getenv("TERM");
  if (!term) return false;
  for (const char* prefix : kTakesOsc52) {
    if (std::strncmp(term, prefix, std::strlen(prefix)) == 0) return true;
  }
  return false;
}

}  // namespace

void NcursesScreen::CopyToTerminalClipboard(std::wstring_view text) {
  const std::string encoded = Base64(ToUtf8(text));
  if (encoded.size() > kMaxEncoded) return;
  std::string sequence;
  char* form = tigetstr(const_cast<char*>("Ms"));
  if (form && form != reinterpret_cast<char*>(-1)) {
    const char* filled = tiparm(form, "c", encoded.c_str());
    if (filled) sequence = filled;
  } else if (TermTakesOsc52()) {
    sequence = "\033]52;c;" + encoded + "\a";
  }
  if (sequence.empty()) return;
  // Between screen updates curses has nothing buffered, so the sequence goes straight out.
  for (size_t done = 0; done < sequence.size();) {
    const ssize_t n = write(STDOUT_FILENO, sequence.data() + done, sequence.size() - done);
    if (n <= 0) return;
    done += static_cast<size_t>(n);
  }
}

}  // namespace velmo::ui
