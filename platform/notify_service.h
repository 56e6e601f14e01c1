// The reminder service: waits for the next due notification of the device,
// raises it as a desktop notification (or, without a session bus, writes it to
// its output and rings the terminal bell), and starts the notification's
// application when the user chooses "Open".
//
// It sleeps until the next notification falls due, waking early when the
// notifications file changes (inotify on the device root) or the bus has
// something for it; it never sleeps more than five minutes at a time, so that
// a changed clock or a suspended machine is noticed.
#pragma once

#include <cstdio>
#include <functional>

namespace velmo::notify {

struct ServiceOptions {
  // Raise what is due now and return.
  bool once = false;
  // Where reminders go without a session bus, and where the log goes.
  std::FILE* out = stdout;
  std::FILE* log = stderr;
  // Whether an instance of the application is running and takes a hand-over;
  // when not, "Open" opens the application in a new terminal.
  std::function<bool()> instance_running;
};

// Returns the process exit code: 0, or 1 when the notifications file cannot be
// read at the start.
int RunNotifyService(const ServiceOptions& options);

}  // namespace velmo::notify
