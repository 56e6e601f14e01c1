// Timers, kept as due times on the steady clock; the loop sleeps until the next.
#include "platform/ui/timers.h"

#include <chrono>
#include <vector>

#include "platform/clock.h"
#include "platform/lasterror.h"
#include "platform/ui/messages.h"
#include "platform/ui/ui_internal.h"
#include "platform/ui/window.h"

namespace velmo::ui::internal {
namespace {

using Clock = std::chrono::steady_clock;

struct Timer {
  HWND hwnd;
  UINT_PTR id;
  Clock::duration period;
  TIMERPROC proc;
  Clock::time_point due;
};

struct Timers {
  std::vector<Timer> list;
  UINT_PTR next_free_id = 0x7F00;
};

Timers& T() {
  static Timers timers;
  return timers;
}

}  // namespace

bool TakeDueTimer(MSG* msg, HWND filter, bool remove) {
  auto now = Clock::now();
  Timer* earliest = nullptr;
  for (Timer& t : T().list) {
    if (t.due > now) continue;
    if (filter && t.hwnd != filter) continue;
    if (!earliest || t.due < earliest->due) earliest = &t;
  }
  if (!earliest) return false;
  *msg = MSG{earliest->hwnd, WM_TIMER, earliest->id,
             reinterpret_cast<LPARAM>(earliest->proc), GetTickCount(), {}, 0};
  if (remove) earliest->due = now + earliest->period;
  return true;
}

long MillisUntilNextTimer() {
  long best = -1;
  auto now = Clock::now();
  for (const Timer& t : T().list) {
    long ms = static_cast<long>(std::chrono::ceil<std::chrono::milliseconds>(t.due - now).count());
    if (ms < 0) ms = 0;
    if (best < 0 || ms < best) best = ms;
  }
  return best;
}

void RemoveTimersOf(HWND hwnd) {
  std::erase_if(T().list, [&](const Timer& t) { return t.hwnd == hwnd; });
}

void ResetTimers() { T().list.clear(); }

}  // namespace velmo::ui::internal

UINT_PTR SetTimer(HWND hwnd, UINT_PTR id, UINT elapse_ms, TIMERPROC proc) {
  using velmo::ui::internal::T;
  if (hwnd && !IsWindow(hwnd)) {
    SetLastError(ERROR_INVALID_WINDOW_HANDLE);
    return 0;
  }
  if (!hwnd) {
    bool reuse = false;
    for (const auto& t : T().list) reuse = reuse || (!t.hwnd && t.id == id);
    if (!reuse) id = T().next_free_id++;
  }
  auto period = std::chrono::milliseconds(elapse_ms ? elapse_ms : 1);
  auto due = velmo::ui::internal::Clock::now() + period;
  for (auto& t : T().list) {
    if (t.hwnd == hwnd && t.id == id) {
      t.period = period;
      t.proc = proc;
      t.due = due;
      return hwnd && id == 0 ? 1 : id;
    }
  }
  T().list.push_back(velmo::ui::internal::Timer{hwnd, id, period, proc, due});
  return hwnd && id == 0 ? 1 : id;
}

BOOL KillTimer(HWND hwnd, UINT_PTR id) {
  auto& list = velmo::ui::internal::T().list;
  size_t before = list.size();
  std::erase_if(list, [&](const auto& t) { return t.hwnd == hwnd && t.id == id; });
  return list.size() != before;
}
