#include "app/day_timer.h"

#include "app/main_window_state.h"
#include "platform/clock.h"
#include "platform/ui/timers.h"

namespace velmo::app {

UINT MillisUntilDayChange(const SYSTEMTIME& now) {
  constexpr UINT kDayAndASecondMs = 86401000;
  const UINT passed = ((now.wHour * 60u + now.wMinute) * 60u + now.wSecond) * 1000u +
                      now.wMilliseconds;
  return kDayAndASecondMs - passed;
}

void StartDayTimer(HWND window) {
  SYSTEMTIME now{};
  GetLocalTime(&now);
  SetTimer(window, kDayTimer, MillisUntilDayChange(now), nullptr);
}

}  // namespace velmo::app
