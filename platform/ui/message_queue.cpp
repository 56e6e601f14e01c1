// The message queue, the loop's wait and its descriptor and idle sources.
#include "platform/ui/message_queue.h"

#include <poll.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <deque>
#include <vector>

#include "platform/clock.h"
#include "platform/lasterror.h"
#include "platform/ui/messages.h"
#include "platform/ui/screen_headless.h"
#include "platform/ui/ui_internal.h"
#include "platform/ui/window.h"

namespace velmo::ui::internal {
namespace {

using Clock = std::chrono::steady_clock;

struct Watch {
  int id;
  int fd;
  std::function<void(int, short)> on_ready;
};

struct IdleHook {
  int id;
  std::function<void()> hook;
  Clock::duration interval;
  Clock::time_point next;
};

struct Queue {
  std::deque<MSG> posted;
  bool quit = false;
  int quit_code = 0;
  std::vector<Watch> watches;
  std::vector<IdleHook> hooks;
  int next_id = 1;
  Clock::time_point last_activity = Clock::now();
};

Queue& Q() {
  static Queue queue;
  return queue;
}

bool Matches(const MSG& m, HWND hwnd, UINT min, UINT max) {
  if (hwnd && m.hwnd != hwnd && !IsChild(hwnd, m.hwnd)) return false;
  if (min == 0 && max == 0) return true;
  return m.message >= min && m.message <= max;
}

bool TakePosted(MSG* msg, HWND hwnd, UINT min, UINT max, bool remove) {
  auto& posted = Q().posted;
  for (auto it = posted.begin(); it != posted.end(); ++it) {
    if (!Matches(*it, hwnd, min, max)) continue;
    *msg = *it;
    if (remove) posted.erase(it);
    return true;
  }
  return false;
}

long MillisUntilNextHook() {
  long best = -1;
  auto now = Clock::now();
  for (const IdleHook& h : Q().hooks) {
    long ms = static_cast<long>(
        std::chrono::ceil<std::chrono::milliseconds>(h.next - now).count());
    if (ms < 0) ms = 0;
    if (best < 0 || ms < best) best = ms;
  }
  return best;
}

void RunDueHooks() {
  auto now = Clock::now();
  std::vector<int> due;
  for (const IdleHook& h : Q().hooks) {
    if (h.next <= now) due.push_back(h.id);
  }
  for (int id : due) {
    auto& hooks = Q().hooks;
    auto it = std::find_if(hooks.begin(), hooks.end(), [&](const IdleHook& h) { return h.id == id; });
    if (it == hooks.end()) continue;
    it->next = now + it->interval;
    std::function<void()> hook = it->hook;
    hook();
  }
}

// Waits up to `timeout_ms` (-1: for ever) for the terminal or a watched
// descriptor; runs the callbacks of the ready ones. True when one ran.
bool PollSources(long timeout_ms) {
  std::vector<pollfd> fds;
  std::vector<int> ids;
  Screen* screen = CurrentScreen();
  if (screen && screen->InputFd() >= 0) {
    fds.push_back(pollfd{screen->InputFd(), POLLIN, 0});
    ids.push_back(0);
  }
  for (const Watch& w : Q().watches) {
    fds.push_back(pollfd{w.fd, POLLIN, 0});
    ids.push_back(w.id);
  }
  int timeout = timeout_ms > 0x7FFFFFFF ? 0x7FFFFFFF : static_cast<int>(timeout_ms);
  int n = poll(fds.data(), fds.size(), timeout);
  if (n <= 0) return false;  // timeout, or a signal (a terminal resize) broke the wait
  bool ran = false;
  for (size_t i = 0; i < fds.size(); ++i) {
    if (!fds[i].revents || ids[i] == 0) continue;
    auto& watches = Q().watches;
    auto it = std::find_if(watches.begin(), watches.end(),
                           [&](const Watch& w) { return w.id == ids[i]; });
    if (it == watches.end()) continue;
    std::function<void(int, short)> on_ready = it->on_ready;
    on_ready(fds[i].fd, fds[i].revents);
    ran = true;
  }
  return ran;
}

// The wait of a screen that cannot wait for input: run the test's script, else
// give up after its idle limit so that a test never hangs.
bool StallIfNothingCanHappen(long timeout_ms) {
  Screen* screen = CurrentScreen();
  if (!screen || screen->CanWaitForInput()) return false;
  auto* headless = dynamic_cast<HeadlessScreen*>(screen);
  bool endless = timeout_ms < 0 && Q().watches.empty();
  auto idle_for = Clock::now() - Q().last_activity;
  bool too_long = headless && idle_for > std::chrono::milliseconds(headless->idle_limit_ms());
  if (!endless && !too_long) return false;
  if (headless) headless->set_stalled();
  PostQuitMessage(kStalledExitCode);
  return true;
}

// The heart of GetMessageW and PeekMessageW.
bool NextMessage(MSG* msg, HWND hwnd, UINT min, UINT max, bool remove, bool wait) {
  for (;;) {
    if (TakePosted(msg, hwnd, min, max, remove)) return true;
    if (Q().quit && Q().posted.empty()) {
      *msg = MSG{nullptr, WM_QUIT, static_cast<WPARAM>(Q().quit_code), 0, GetTickCount(), {}, 0};
      if (remove) Q().quit = false;
      return true;
    }
    Screen* screen = CurrentScreen();
    if (Q().posted.empty() && screen) {
      InputEvent event;
      if (screen->ReadInput(&event)) {
        Q().last_activity = Clock::now();
        RouteInput(event);
        continue;
      }
    }
    if (TakeDueTimer(msg, hwnd, remove)) return true;
    if (ScreenDirty()) PaintScreen();
    RunDueHooks();
    if (!Q().posted.empty()) continue;
    if (PollSources(0)) continue;
    if (!wait) return false;
    if (screen && screen->OnIdle()) {
      Q().last_activity = Clock::now();
      continue;
    }
    long timeout = MillisUntilNextTimer();
    long hook = MillisUntilNextHook();
    if (hook >= 0 && (timeout < 0 || hook < timeout)) timeout = hook;
    if (StallIfNothingCanHappen(timeout)) continue;
    if (screen && !screen->CanWaitForInput() && (timeout < 0 || timeout > 50)) timeout = 50;
    PollSources(timeout);
  }
}

}  // namespace

void PostFront(const MSG& msg) { Q().posted.push_front(msg); }
void PostBack(const MSG& msg) { Q().posted.push_back(msg); }

void ResetQueue() {
  Queue& q = Q();
  q.posted.clear();
  q.quit = false;
  q.quit_code = 0;
  q.watches.clear();
  q.hooks.clear();
  q.last_activity = Clock::now();
}

}  // namespace velmo::ui::internal

using velmo::ui::internal::Q;

BOOL GetMessageW(MSG* msg, HWND hwnd, UINT filter_min, UINT filter_max) {
  if (!msg || (hwnd && !IsWindow(hwnd))) {
    SetLastError(ERROR_INVALID_WINDOW_HANDLE);
    return -1;
  }
  velmo::ui::internal::NextMessage(msg, hwnd, filter_min, filter_max, true, true);
  return msg->message == WM_QUIT ? FALSE : TRUE;
}

BOOL PeekMessageW(MSG* msg, HWND hwnd, UINT filter_min, UINT filter_max, UINT remove) {
  if (!msg) return FALSE;
  return velmo::ui::internal::NextMessage(msg, hwnd, filter_min, filter_max,
                                          (remove & PM_REMOVE) != 0, false)
             ? TRUE
             : FALSE;
}

BOOL WaitMessage() {
  MSG msg;
  velmo::ui::internal::NextMessage(&msg, nullptr, 0, 0, false, true);
  return TRUE;
}

BOOL TranslateMessage(const MSG* msg) {
  if (!msg || msg->message != WM_KEYDOWN || !msg->ch) return FALSE;
  velmo::ui::internal::PostFront(
      MSG{msg->hwnd, WM_CHAR, static_cast<WPARAM>(msg->ch), msg->lParam, msg->time, {}, 0});
  return TRUE;
}

LRESULT DispatchMessageW(const MSG* msg) {
  if (!msg) return 0;
  if (msg->message == WM_TIMER && msg->lParam) {
    auto proc = reinterpret_cast<TIMERPROC>(msg->lParam);
    proc(msg->hwnd, WM_TIMER, msg->wParam, GetTickCount());
    return 0;
  }
  return velmo::ui::internal::CallWindow(msg->hwnd, msg->message, msg->wParam, msg->lParam);
}

BOOL PostMessageW(HWND hwnd, UINT message, WPARAM wparam, LPARAM lparam) {
  if (hwnd && !IsWindow(hwnd)) {
    SetLastError(ERROR_INVALID_WINDOW_HANDLE);
    return FALSE;
  }
  Q().posted.push_back(MSG{hwnd, message, wparam, lparam, GetTickCount(), {}, 0});
  return TRUE;
}

LRESULT SendMessageW(HWND hwnd, UINT message, WPARAM wparam, LPARAM lparam) {
  if (!IsWindow(hwnd)) {
    SetLastError(ERROR_INVALID_WINDOW_HANDLE);
    return 0;
  }
  return velmo::ui::internal::CallWindow(hwnd, message, wparam, lparam);
}

void PostQuitMessage(int exit_code) {
  Q().quit = true;
  Q().quit_code = exit_code;
}

namespace velmo::ui {

int WatchFd(int fd, std::function<void(int fd, short revents)> on_ready) {
  if (fd < 0 || !on_ready) return 0;
  int id = Q().next_id++;
  Q().watches.push_back(internal::Watch{id, fd, std::move(on_ready)});
  return id;
}

void UnwatchFd(int watch_id) {
  std::erase_if(Q().watches, [&](const internal::Watch& w) { return w.id == watch_id; });
}

int AddIdleHook(std::function<void()> hook, DWORD interval_ms) {
  if (!hook) return 0;
  int id = Q().next_id++;
  auto interval = std::chrono::milliseconds(interval_ms ? interval_ms : 1);
  Q().hooks.push_back(internal::IdleHook{id, std::move(hook), interval, internal::Clock::now()});
  return id;
}

void RemoveIdleHook(int hook_id) {
  std::erase_if(Q().hooks, [&](const internal::IdleHook& h) { return h.id == hook_id; });
}

bool PumpMessages(int* exit_code) {
  MSG msg;
  while (PeekMessageW(&msg, nullptr, 0, 0, PM_REMOVE)) {
    if (msg.message == WM_QUIT) {
      if (exit_code) *exit_code = static_cast<int>(msg.wParam);
      return false;
    }
    TranslateMessage(&msg);
    DispatchMessageW(&msg);
  }
  return true;
}

}  // namespace velmo::ui
