// The platform's sound for message-box kinds. In the terminal every kind is the
// bell, rung on the controlling terminal when there is one; each beep is also
// counted so that tests can see it.
#pragma once

#include "platform/wintypes.h"

// Sound kinds, as the message-box icon styles name them.
constexpr UINT MB_ICONHAND = 0x10;
constexpr UINT MB_ICONQUESTION = 0x20;
constexpr UINT MB_ICONEXCLAMATION = 0x30;
constexpr UINT MB_ICONASTERISK = 0x40;

// Rings the bell on /dev/tty when the process has a controlling terminal. Always
// returns TRUE: a phone without a speaker still "beeps".
BOOL MessageBeep(UINT type);

namespace velmo::platform {

// Number of MessageBeep calls made by this process so far.
unsigned BeepCount();

}  // namespace velmo::platform
