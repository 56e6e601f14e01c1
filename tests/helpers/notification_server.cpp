// A stand-in desktop notification server for tests: owns
// org.freedesktop.Notifications on the session bus and appends each Notify call
// to a file, one line: app name, summary, body (newlines as "\n") and the
// action keys and labels joined with ",", separated by tabs.
//
// usage: velmo_test_notification_server RECORD-FILE [ACTION]
// With ACTION, every notification is answered with ActionInvoked(id, ACTION)
// and then NotificationClosed(id, 2). "ready" is printed on standard output
// once the name is owned.
#include <systemd/sd-bus.h>

#include <cstdio>
#include <cstring>
#include <string>

namespace {

const char* g_record = nullptr;
const char* g_action = nullptr;
std::uint32_t g_next_id = 1;

std::string OneLine(const char* text) {
  std::string out;
  for (const char* c = text; *c; ++c) out += *c == '\n' ? std::string("\\n") : std::string(1, *c);
  return out;
}

int Notify(sd_bus_message* m, void*, sd_bus_error*) {
  const char *app = nullptr, *icon = nullptr, *summary = nullptr, *body = nullptr;
  std::uint32_t replaces = 0;
  int rc = sd_bus_message_read(m, "susss", &app, &replaces, &icon, &summary, &body);
  if (rc < 0) return rc;
  char** actions = nullptr;
  rc = sd_bus_message_read_strv(m, &actions);
  if (rc < 0) return rc;
  std::string joined;
  for (char** a = actions; a && *a; ++a) {
    if (!joined.empty()) joined += ",";
    joined += *a;
    free(*a);
  }
  free(actions);
  if (std::FILE* f = std::fopen(g_record, "a")) {
    std::fprintf(f, "%s\t%s\t%s\t%s\n", app, summary, OneLine(body).c_str(), joined.c_str());
    std::fclose(f);
  }
  const std::uint32_t id = g_next_id++;
  rc = sd_bus_reply_method_return(m, "u", id);
  if (rc < 0 || !g_action) return rc;
  sd_bus* bus = sd_bus_message_get_bus(m);
  sd_bus_emit_signal(bus, "/org/freedesktop/Notifications", "org.freedesktop.Notifications",
                     "ActionInvoked", "us", id, g_action);
  sd_bus_emit_signal(bus, "/org/freedesktop/Notifications", "org.freedesktop.Notifications",
                     "NotificationClosed", "uu", id, 2u);
  return rc;
}

int GetCapabilities(sd_bus_message* m, void*, sd_bus_error*) {
  return sd_bus_reply_method_return(m, "as", 2, "actions", "body");
}

int GetServerInformation(sd_bus_message* m, void*, sd_bus_error*) {
  return sd_bus_reply_method_return(m, "ssss", "velmo-test", "velmo", "1", "1.2");
}

int CloseNotification(sd_bus_message* m, void*, sd_bus_error*) {
  return sd_bus_reply_method_return(m, "");
}

const sd_bus_vtable kVtable[] = {
    SD_BUS_VTABLE_START(0),
    SD_BUS_METHOD("Notify", "susssasa{sv}i", "u", Notify, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD("GetCapabilities", "", "as", GetCapabilities, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD("GetServerInformation", "", "ssss", GetServerInformation, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD("CloseNotification", "u", "", CloseNotification, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_SIGNAL("ActionInvoked", "us", 0),
    SD_BUS_SIGNAL("NotificationClosed", "uu", 0),
    SD_BUS_VTABLE_END,
};

}  // namespace

int main(int argc, char** argv) {
  if (argc < 2) {
    std::fprintf(stderr, "usage: %s RECORD-FILE [ACTION]\n", argv[0]);
    return 2;
  }
  g_record = argv[1];
  g_action = argc > 2 ? argv[2] : nullptr;
  sd_bus* bus = nullptr;
  sd_bus_slot* slot = nullptr;
  int rc = sd_bus_open_user(&bus);
  if (rc >= 0)
    rc = sd_bus_add_object_vtable(bus, &slot, "/org/freedesktop/Notifications",
                                  "org.freedesktop.Notifications", kVtable, nullptr);
  if (rc >= 0) rc = sd_bus_request_name(bus, "org.freedesktop.Notifications", 0);
  if (rc < 0) {
    std::fprintf(stderr, "notification server: %s\n", std::strerror(-rc));
    return 1;
  }
  std::printf("ready\n");
  std::fflush(stdout);
  for (;;) {
    rc = sd_bus_process(bus, nullptr);
    if (rc < 0) return 0;  // the bus went away
    if (rc > 0) continue;
    if (sd_bus_wait(bus, UINT64_MAX) < 0) return 0;
  }
}
