// The local clock. Tests pin it with ScopedClock so that views, reminders and
// relative day names see a fixed "now".
#pragma once

#include <optional>

#include "platform/wintypes.h"

void GetLocalTime(SYSTEMTIME* now);
// Milliseconds since an arbitrary start; never pinned (for timers).
DWORD GetTickCount();

namespace velmo {

// Pins GetLocalTime to one instant (given as a variant date) while it lives.
class ScopedClock {
 public:
  explicit ScopedClock(DATE now);
  ~ScopedClock();
  ScopedClock(const ScopedClock&) = delete;
  ScopedClock& operator=(const ScopedClock&) = delete;

 private:
  std::optional<DATE> previous_;
};

// The local time now as a variant date.
DATE NowAsDate();

}  // namespace velmo
