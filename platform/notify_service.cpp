#include "platform/notify_service.h"

#include <poll.h>
#include <signal.h>
#include <sys/inotify.h>
#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <string>

#include "platform/clock.h"
#include "platform/device.h"
#include "platform/notify_desktop.h"
#include "platform/notify_due.h"
#include "platform/notify_launch.h"
#include "platform/notify_store.h"
#include "platform/wstr.h"

namespace velmo::notify {
namespace {

constexpr int kLongestSleepMs = 5 * 60 * 1000;
constexpr double kMsPerDay = 86'400'000.0;
// NotificationClosed reasons after which the user is done with a reminder.
constexpr std::uint32_t kDismissedByUser = 2;
constexpr std::uint32_t kClosedByCall = 3;

// The platform's dialog text uses CR LF; the desktop and terminals use LF.
std::string PlainText(const std::wstring& text) {
  std::string out = ToUtf8(text);
  out.erase(std::remove(out.begin(), out.end(), '\r'), out.end());
  return out;
}

class Service {
 public:
  explicit Service(const ServiceOptions& options)
      : options_(options),
        desktop_({[this](std::uint32_t id, const std::string& action) { OnAction(id, action); },
                  [this](std::uint32_t id, std::uint32_t reason) { OnClosed(id, reason); }}) {}

  ~Service() {
    if (watch_ >= 0) ::close(watch_);
  }

  int Run() {
    if (!ThreadStore()) {
      Log("cannot read the notifications: " + StoreFailure());
      return 1;
    }
    if (options_.once) {
      RaiseDue();
      desktop_.Flush();
      return 0;
    }
    ::signal(SIGCHLD, SIG_IGN);  // started applications are not waited for
    Watch();
    for (;;) {
      const int sleep_ms = RaiseDue();
      Wait(sleep_ms);
    }
  }

 private:
  struct Raised {
    DWORD handle;
    std::wstring application;
    std::wstring arguments;
  };

  void Log(const std::string& line) {
    std::fprintf(options_.log, "velmo notifyd: %s\n", line.c_str());
    std::fflush(options_.log);
  }

  // Watches the device root: every committed change of the notifications
  // rewrites its change mark there.
  void Watch() {
    watch_ = inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
    if (watch_ < 0 ||
        inotify_add_watch(watch_, device::Root().c_str(),
                          IN_MODIFY | IN_CLOSE_WRITE | IN_CREATE | IN_MOVED_TO | IN_DELETE) < 0)
      Log("cannot watch the device root; checking every five minutes");
  }

  // Raises what is due; returns how long to sleep until the next one (ms).
  int RaiseDue() {
    std::vector<PendingNotification> pending;
    if (!ListUserNotifications(&pending)) {
      Log("cannot read the notifications: " + StoreFailure());
      return kLongestSleepMs;
    }
    const DATE now = NowAsDate();
    const DuePlan plan = PlanDue(pending, now, ApplicationExists);
    for (const PendingNotification& n : plan.raise) Deliver(n, true);
    for (const PendingNotification& n : plan.raise_and_clear) {
      Log("the application " + ToUtf8(n.application) + " of notification " +
          std::to_string(n.handle) + " is gone; the notification is cleared");
      Deliver(n, false);
      CeClearUserNotification(HandleOf(n.handle));
    }
    for (const PendingNotification& n : plan.start) {
      Start(n.application, n.arguments);
      CeClearUserNotification(HandleOf(n.handle));
    }
    for (const PendingNotification& n : plan.clear) {
      Log("the application " + ToUtf8(n.application) + " of notification " +
          std::to_string(n.handle) + " is gone; the notification is cleared");
      CeClearUserNotification(HandleOf(n.handle));
    }
    if (plan.next == kNoDate) return kLongestSleepMs;
    const double ms = std::ceil((plan.next - now) * kMsPerDay);
    return static_cast<int>(std::clamp(ms, 0.0, static_cast<double>(kLongestSleepMs)));
  }

  void Deliver(const PendingNotification& n, bool openable) {
    const std::string title = PlainText(n.title);
    const std::string text = PlainText(n.text);
    const bool had_bus = desktop_.connected();
    const std::uint32_t id = desktop_.Raise(title, text, openable);
    if (id != 0) {
      if (openable) raised_[id] = Raised{n.handle, n.application, n.arguments};
    } else {
      if (had_bus || !reported_no_bus_) Log(desktop_.last_failure() + "; writing reminders here");
      reported_no_bus_ = true;
      std::fprintf(options_.out, "\a%s\n%s\n", title.c_str(), text.c_str());
      std::fflush(options_.out);
    }
    MarkSignalled(n.handle);
  }

  void Start(const std::wstring& application, const std::wstring& arguments) {
    const bool running = options_.instance_running && options_.instance_running();
    std::string error;
    if (!StartDetached(LaunchCommand(application, arguments, !running), &error)) Log(error);
  }

  void OnAction(std::uint32_t id, const std::string& action) {
    auto it = raised_.find(id);
    if (it == raised_.end() || (action != kOpenAction && action != "default")) return;
    Start(it->second.application, it->second.arguments);
    CeClearUserNotification(HandleOf(it->second.handle));
    raised_.erase(it);
  }

  void OnClosed(std::uint32_t id, std::uint32_t reason) {
    auto it = raised_.find(id);
    if (it == raised_.end()) return;
    if (reason == kDismissedByUser || reason == kClosedByCall)
      CeClearUserNotification(HandleOf(it->second.handle));
    raised_.erase(it);
  }

  // Sleeps until the timeout, a change of the notifications (every committed
  // change rewrites the change mark, which wakes the watch) or a message of the
  // bus.
  void Wait(int timeout_ms) {
    pollfd fds[2] = {{watch_, POLLIN, 0}, {desktop_.fd(), desktop_.events(), 0}};
    const int bus_timeout = desktop_.timeout_ms();
    if (bus_timeout >= 0) timeout_ms = std::min(timeout_ms, bus_timeout);
    const nfds_t count = desktop_.fd() >= 0 ? 2 : 1;
    if (::poll(fds, count, timeout_ms) < 0) return;
    DrainWatch();
    if (desktop_.connected()) {
      const bool was_connected = true;
      desktop_.Process();
      if (was_connected && !desktop_.connected()) Log(desktop_.last_failure());
    }
  }

  void DrainWatch() {
    alignas(inotify_event) char buffer[4096];
    while (watch_ >= 0 && ::read(watch_, buffer, sizeof buffer) > 0) {
    }
  }

  ServiceOptions options_;
  DesktopNotifier desktop_;
  std::map<std::uint32_t, Raised> raised_;
  int watch_ = -1;
  bool reported_no_bus_ = false;
};

}  // namespace

int RunNotifyService(const ServiceOptions& options) { return Service(options).Run(); }

}  // namespace velmo::notify
