// The desktop: the screen the window system runs on, the title line at the top
// (the active window's title, and the tray sign at its right end), the soft-key
// bar at the bottom, and the windows between.
#pragma once

#include <string>

#include "platform/ui/screen.h"

namespace velmo::ui {

// Starts the window system on a screen: registers the built-in window classes
// (list view, edit, dialog, message box, soft-key bar).
void Attach(Screen* screen);
// Ends it: destroys every window and forgets queued messages, timers, hot keys,
// watched descriptors and idle hooks.
void Detach();

class ScopedScreen {
 public:
  explicit ScopedScreen(Screen* screen) { Attach(screen); }
  ~ScopedScreen() { Detach(); }
  ScopedScreen(const ScopedScreen&) = delete;
  ScopedScreen& operator=(const ScopedScreen&) = delete;
};

// Below this size the screen shows only the notice, until the terminal grows.
void SetMinimumScreenSize(int width, int height, std::wstring notice);

// A short sign shown at the right end of the title line (the tray icon of a
// terminal); empty for none.
void SetTraySign(std::wstring sign, COLORREF colour);

}  // namespace velmo::ui
