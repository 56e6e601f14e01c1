// The message queue and the loop's sources.
//
// GetMessageW takes, in this order: posted messages (oldest first; a WM_CHAR made
// by TranslateMessage comes before anything posted after its key), one key from
// the screen (only when nothing is posted, so that each key reaches the window
// that has the focus when it is read), a due WM_TIMER, and WM_QUIT once the queue
// is empty. When there is nothing, the screen is repainted if anything changed,
// the idle hooks run, and the loop sleeps in poll() on the terminal, the watched
// descriptors and the next timer: it never spins.
//
// Single-threaded: every call here runs on the loop's thread. Other threads and
// processes reach the loop through a descriptor it watches (WatchFd).
#pragma once

#include <functional>

#include "platform/ui/types.h"

BOOL GetMessageW(MSG* msg, HWND hwnd, UINT filter_min, UINT filter_max);
BOOL PeekMessageW(MSG* msg, HWND hwnd, UINT filter_min, UINT filter_max, UINT remove);
BOOL WaitMessage();
// A WM_KEYDOWN with a character posts WM_CHAR to the same window, first in line.
BOOL TranslateMessage(const MSG* msg);
LRESULT DispatchMessageW(const MSG* msg);
BOOL PostMessageW(HWND hwnd, UINT msg, WPARAM wparam, LPARAM lparam);
// Synchronous: the window procedure has run when it returns.
LRESULT SendMessageW(HWND hwnd, UINT msg, WPARAM wparam, LPARAM lparam);
void PostQuitMessage(int exit_code);

namespace velmo::ui {

// Calls `on_ready` on the loop's thread whenever the descriptor is readable (or
// hung up). Returns the watch's identifier (> 0), 0 for a bad descriptor.
int WatchFd(int fd, std::function<void(int fd, short revents)> on_ready);
void UnwatchFd(int watch_id);

// Calls `hook` when the loop has nothing to do, at most once per interval; a
// waiting loop wakes up for it at least once per interval. For sources that
// cannot be waited on (a database's change counter).
int AddIdleHook(std::function<void()> hook, DWORD interval_ms);
void RemoveIdleHook(int hook_id);

// Handles every message that is waiting, repaints, and returns without
// sleeping. Returns false when WM_QUIT was taken (its code in *exit_code).
bool PumpMessages(int* exit_code = nullptr);

// The exit code of the WM_QUIT posted when a headless loop would wait forever.
constexpr int kStalledExitCode = -21845;

}  // namespace velmo::ui
