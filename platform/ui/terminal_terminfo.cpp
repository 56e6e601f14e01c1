// terminfo's colours for a terminal type, read without starting curses. Apart
// from terminal_traits.cpp because <term.h> defines `lines` and `columns`.
#include "platform/ui/terminal_traits.h"

// Last: term.h defines macros.
#include <curses.h>
#include <term.h>

namespace velmo::ui {

bool TerminfoColours(const char* term, int fd, int* colours, bool* rgb) {
  int error = 0;
  TERMINAL* before = cur_term;
  if (setupterm(term, fd, &error) != OK) return false;
  int count = tigetnum(const_cast<char*>("colors"));
  *colours = count > 0 ? count : 0;
  *rgb = tigetflag(const_cast<char*>("RGB")) > 0;
  del_curterm(set_curterm(before));
  return true;
}

}  // namespace velmo::ui
