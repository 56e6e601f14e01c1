#include "platform/beep.h"

#include <fcntl.h>
#include <unistd.h>

#include <atomic>

namespace {
std::atomic<unsigned> g_beeps{0};
}  // namespace

BOOL MessageBeep(UINT) {
  ++g_beeps;
  // O_NOCTTY: ringing must never make /dev/tty our controlling terminal.
  const int tty = open("/dev/tty", O_WRONLY | O_NOCTTY | O_CLOEXEC);
  if (tty >= 0) {
    const char bell = '\a';
    [[maybe_unused]] const ssize_t written = write(tty, &bell, 1);
    close(tty);
  }
  return TRUE;
}

namespace velmo::platform {

unsigned BeepCount() { return g_beeps.load(); }

}  // namespace velmo::platform
