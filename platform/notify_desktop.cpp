#include "platform/notify_desktop.h"

#include <poll.h>
#include <systemd/sd-bus.h>
#include <time.h>

#include <cstring>

#include "platform/sdbus_library.h"

namespace velmo::notify {
namespace {

constexpr char kService[] = "org.freedesktop.Notifications";
constexpr char kPath[] = "/org/freedesktop/Notifications";
constexpr char kInterface[] = "org.freedesktop.Notifications";
constexpr char kAppName[] = "Velmo ToDo List";
constexpr std::uint64_t kCallTimeoutUs = 5'000'000;

// The bus library; only called once a connection exists, which needed it loaded.
const SdBusLibrary& Bus() { return *SdBus(); }

std::string ErrorText(int rc, const sd_bus_error* error) {
  if (error && Bus().error_is_set(error) && error->message) return error->message;
  return std::strerror(-rc);
}

}  // namespace

std::string EscapeMarkup(const std::string& text) {
  std::string out;
  for (char c : text) {
    switch (c) {
      case '&': out += "&amp;"; break;
      case '<': out += "&lt;"; break;
      case '>': out += "&gt;"; break;
      default: out += c;
    }
  }
  return out;
}

DesktopNotifier::DesktopNotifier(Handlers handlers) : handlers_(std::move(handlers)) {}

DesktopNotifier::~DesktopNotifier() { Drop(""); }

void DesktopNotifier::Drop(const std::string& why) {
  if (!why.empty()) failure_ = why;
  if (!bus_) return;
  action_slot_ = Bus().slot_unref(action_slot_);
  closed_slot_ = Bus().slot_unref(closed_slot_);
  bus_ = Bus().flush_close_unref(bus_);
}

bool DesktopNotifier::Connect() {
  if (bus_) return true;
  if (!SdBus()) {
    failure_ = std::string("no session bus: ") + SdBusLoadFailure();
    return false;
  }
  sd_bus* bus = nullptr;
  int rc = Bus().open_user(&bus);
  if (rc < 0) {
    failure_ = std::string("no session bus: ") + std::strerror(-rc);
    return false;
  }
  bus_ = bus;
  rc = Bus().match_signal(bus_, &action_slot_, nullptr, kPath, kInterface, "ActionInvoked",
                           &DesktopNotifier::OnActionInvoked, this);
  if (rc >= 0)
    rc = Bus().match_signal(bus_, &closed_slot_, nullptr, kPath, kInterface,
                             "NotificationClosed", &DesktopNotifier::OnClosed, this);
  if (rc < 0) {
    Drop(std::string("no session bus: ") + std::strerror(-rc));
    return false;
  }
  // A server that reads markup in the body gets the text escaped.
  sd_bus_error error = SD_BUS_ERROR_NULL;
  sd_bus_message* reply = nullptr;
  body_markup_ = false;
  if (Bus().call_method(bus_, kService, kPath, kInterface, "GetCapabilities", &error, &reply,
                         "") >= 0) {
    char** capabilities = nullptr;
    if (Bus().message_read_strv(reply, &capabilities) >= 0 && capabilities) {
      for (char** c = capabilities; *c; ++c) {
        if (std::strcmp(*c, "body-markup") == 0) body_markup_ = true;
        free(*c);
      }
      free(capabilities);
    }
  }
  Bus().message_unref(reply);
  Bus().error_free(&error);
  return true;
}

std::uint32_t DesktopNotifier::Raise(const std::string& title, const std::string& text,
                                     bool with_open) {
  if (!Connect()) return 0;
  sd_bus_message* call = nullptr;
  sd_bus_message* reply = nullptr;
  sd_bus_error error = SD_BUS_ERROR_NULL;
  std::uint32_t id = 0;
  const std::string body = body_markup_ ? EscapeMarkup(text) : text;
  int rc = Bus().message_new_method_call(bus_, &call, kService, kPath, kInterface, "Notify");
  if (rc >= 0)
    rc = Bus().message_append(call, "susss", kAppName, 0u, "appointment-soon", title.c_str(),
                               body.c_str());
  if (rc >= 0)
    rc = with_open ? Bus().message_append(call, "as", 2, kOpenAction, "Open")
                   : Bus().message_append(call, "as", 0);
  // Urgency 1 (normal); -1: the server decides how long it stays.
  if (rc >= 0) rc = Bus().message_append(call, "a{sv}i", 1, "urgency", "y", 1, -1);
  if (rc >= 0) rc = Bus().call(bus_, call, kCallTimeoutUs, &error, &reply);
  if (rc >= 0) rc = Bus().message_read(reply, "u", &id);
  if (rc < 0) {
    const std::string why = "cannot raise the notification: " + ErrorText(rc, &error);
    // A failure of the connection itself ends it; a refusal of the server does not.
    if (!Bus().error_is_set(&error) || !Bus().is_open(bus_)) Drop(why);
    else failure_ = why;
    id = 0;
  }
  Bus().error_free(&error);
  Bus().message_unref(reply);
  Bus().message_unref(call);
  return id;
}

int DesktopNotifier::fd() const { return bus_ ? Bus().get_fd(bus_) : -1; }

short DesktopNotifier::events() const {
  const int e = bus_ ? Bus().get_events(bus_) : 0;
  return static_cast<short>(e > 0 ? e : POLLIN);
}

int DesktopNotifier::timeout_ms() const {
  std::uint64_t until = 0;
  if (!bus_ || Bus().get_timeout(bus_, &until) < 0 || until == UINT64_MAX) return -1;
  timespec now{};
  clock_gettime(CLOCK_MONOTONIC, &now);
  const std::uint64_t now_us =
      static_cast<std::uint64_t>(now.tv_sec) * 1'000'000 + static_cast<std::uint64_t>(now.tv_nsec) / 1000;
  return until <= now_us ? 0 : static_cast<int>((until - now_us + 999) / 1000);
}

void DesktopNotifier::Process() {
  while (bus_) {
    const int rc = Bus().process(bus_, nullptr);
    if (rc < 0) {
      Drop(std::string("the session bus went away: ") + std::strerror(-rc));
      return;
    }
    if (rc == 0) return;
  }
}

void DesktopNotifier::Flush() {
  if (bus_) Bus().flush(bus_);
}

int DesktopNotifier::OnActionInvoked(sd_bus_message* m, void* self, sd_bus_error*) {
  std::uint32_t id = 0;
  const char* action = nullptr;
  auto* notifier = static_cast<DesktopNotifier*>(self);
  if (Bus().message_read(m, "us", &id, &action) >= 0 && action &&
      notifier->handlers_.action_invoked)
    notifier->handlers_.action_invoked(id, action);
  return 0;
}

int DesktopNotifier::OnClosed(sd_bus_message* m, void* self, sd_bus_error*) {
  std::uint32_t id = 0;
  std::uint32_t reason = 0;
  auto* notifier = static_cast<DesktopNotifier*>(self);
  if (Bus().message_read(m, "uu", &id, &reason) >= 0 && notifier->handlers_.closed)
    notifier->handlers_.closed(id, reason);
  return 0;
}

}  // namespace velmo::notify
