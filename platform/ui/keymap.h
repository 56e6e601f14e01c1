// The terminal's keys as the phone's keys (the table is in virtual_keys.h).
#pragma once

#include "platform/ui/screen.h"

namespace velmo::ui {

// A character typed: digits, letters, * # ? and the control characters Enter,
// Esc, Tab and Backspace. Returns false for characters that are no key (other
// control characters).
bool KeyFromChar(wchar_t ch, InputEvent* event);

// A function key of ncurses (KEY_F(1), KEY_UP, KEY_RESIZE ...). Returns false for
// keys that have no meaning here.
bool KeyFromCursesCode(int code, InputEvent* event);

// Learns the codes the open terminal gives the arrows, Home, End, PageUp and
// PageDown with Shift or Control held (call once curses is started).
void LearnModifiedKeys();

}  // namespace velmo::ui
