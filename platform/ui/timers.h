// Timers: WM_TIMER to a window (or a call to a TIMERPROC) each time the period
// has passed. A timer's WM_TIMER is made when the queue has nothing else, so
// a late loop sees one WM_TIMER, never a burst; the next period starts then.
#pragma once

#include "platform/ui/types.h"

// Replaces the window's timer of the same identifier. Without a window the
// identifier is chosen here. Returns the identifier, 0 on failure.
UINT_PTR SetTimer(HWND hwnd, UINT_PTR id, UINT elapse_ms, TIMERPROC proc);
BOOL KillTimer(HWND hwnd, UINT_PTR id);
