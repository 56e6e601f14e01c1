// Desktop notifications over the session bus (org.freedesktop.Notifications,
// through sd-bus): raising one with an "Open" action, and hearing which action
// the user chose or that it was closed. The connection is made when first
// needed and dropped when the bus goes away; the next Raise connects again.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include <systemd/sd-bus.h>

namespace velmo::notify {

// The action key of the "Open" action (the server's default action counts too).
inline constexpr char kOpenAction[] = "open";

class DesktopNotifier {
 public:
  struct Handlers {
    std::function<void(std::uint32_t id, const std::string& action)> action_invoked;
    std::function<void(std::uint32_t id, std::uint32_t reason)> closed;
  };

  explicit DesktopNotifier(Handlers handlers);
  ~DesktopNotifier();
  DesktopNotifier(const DesktopNotifier&) = delete;
  DesktopNotifier& operator=(const DesktopNotifier&) = delete;

  // Connects when not connected. False when there is no session bus.
  bool Connect();
  bool connected() const { return bus_ != nullptr; }

  // Raises a notification under the program's name; returns the server's
  // identifier, 0 when it could not be raised (no bus, no server, the bus gone).
  std::uint32_t Raise(const std::string& title, const std::string& text, bool with_open);

  // For the caller's poll: the connection's file descriptor (-1 when not
  // connected), the events to wait for, and how long at most (ms, -1: no limit).
  int fd() const;
  short events() const;
  int timeout_ms() const;

  // Handles what arrived; drops the connection when the bus went away.
  void Process();
  // Sends what is queued.
  void Flush();

  // The text of the last failure (for the service's log).
  const std::string& last_failure() const { return failure_; }

 private:
  void Drop(const std::string& why);
  static int OnActionInvoked(sd_bus_message* m, void* self, sd_bus_error* error);
  static int OnClosed(sd_bus_message* m, void* self, sd_bus_error* error);

  Handlers handlers_;
  sd_bus* bus_ = nullptr;
  sd_bus_slot* action_slot_ = nullptr;
  sd_bus_slot* closed_slot_ = nullptr;
  bool body_markup_ = false;
  std::string failure_;
};

// Text for a server that reads markup in the body: &, < and > escaped.
std::string EscapeMarkup(const std::string& text);

}  // namespace velmo::notify
