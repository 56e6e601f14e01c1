#include "platform/bluetooth.h"

#include <unistd.h>

#include <cstring>

#include "platform/sdbus_library.h"

namespace velmo::bluetooth {
namespace {

constexpr const char* kObexService = "org.bluez.obex";
constexpr const char* kObexPath = "/org/bluez/obex";

// A bus connection, closed on leaving.
class Bus {
 public:
  explicit Bus(bool system) {
    const SdBusLibrary* lib = SdBus();
    if (!lib) return;
    if ((system ? lib->open_system(&bus_) : lib->open_user(&bus_)) < 0) bus_ = nullptr;
    if (bus_) lib->set_method_call_timeout(bus_, uint64_t{kBusTimeoutMs} * 1000);
  }
  ~Bus() {
    if (bus_) SdBus()->flush_close_unref(bus_);
  }
  Bus(const Bus&) = delete;
  Bus& operator=(const Bus&) = delete;
  sd_bus* get() const { return bus_; }

 private:
  sd_bus* bus_ = nullptr;
};

// A reply and its error, freed on leaving.
struct Reply {
  sd_bus_message* message = nullptr;
  sd_bus_error error = SD_BUS_ERROR_NULL;
  ~Reply() {
    SdBus()->message_unref(message);
    SdBus()->error_free(&error);
  }
  std::string Why(int rc) const {
    if (error.message) return error.message;
    return std::strerror(-rc);
  }
};

// Reads one a{sv} of a device: its address, alias and paired flag.
void ReadDevice(sd_bus_message* m, Device* device, bool* paired) {
  const SdBusLibrary& b = *SdBus();
  if (b.message_enter_container(m, 'a', "{sv}") <= 0) return;
  while (b.message_enter_container(m, 'e', "sv") > 0) {
    const char* key = nullptr;
    b.message_read(m, "s", &key);
    const std::string name = key ? key : "";
    const char* text = nullptr;
    int flag = 0;
    if ((name == "Address" || name == "Alias") && b.message_read(m, "v", "s", &text) > 0) {
      (name == "Address" ? device->address : device->name) = text ? text : "";
    } else if (name == "Paired" && b.message_read(m, "v", "b", &flag) > 0) {
      *paired = flag != 0;
    } else {
      b.message_skip(m, "v");
    }
    b.message_exit_container(m);
  }
  b.message_exit_container(m);
}

}  // namespace

Neighbourhood PairedDevices() {
  Neighbourhood found;
  Bus bus(true);
  if (!bus.get()) return found;
  const SdBusLibrary& b = *SdBus();
  Reply reply;
  if (b.call_method(bus.get(), "org.bluez", "/", "org.freedesktop.DBus.ObjectManager",
                    "GetManagedObjects", &reply.error, &reply.message, "") < 0)
    return found;
  sd_bus_message* m = reply.message;
  if (b.message_enter_container(m, 'a', "{oa{sa{sv}}}") <= 0) return found;
  while (b.message_enter_container(m, 'e', "oa{sa{sv}}") > 0) {
    const char* path = nullptr;
    b.message_read(m, "o", &path);
    b.message_enter_container(m, 'a', "{sa{sv}}");
    while (b.message_enter_container(m, 'e', "sa{sv}") > 0) {
      const char* interface = nullptr;
      b.message_read(m, "s", &interface);
      const std::string name = interface ? interface : "";
      if (name == "org.bluez.Adapter1") found.adapter = true;
      if (name == "org.bluez.Device1") {
        Device device;
        bool paired = false;
        ReadDevice(m, &device, &paired);
        if (device.name.empty()) device.name = device.address;
        if (paired && !device.address.empty()) found.paired.push_back(device);
      } else {
        b.message_skip(m, "a{sv}");
      }
      b.message_exit_container(m);
    }
    b.message_exit_container(m);
    b.message_exit_container(m);
  }
  return found;
}

bool PushFile(const std::string& address, const std::string& path, int wait_seconds,
              std::string* error) {
  if (!SdBus()) return *error = std::string("no bus library: ") + SdBusLoadFailure(), false;
  Bus bus(false);
  if (!bus.get()) return *error = "no session bus", false;
  const SdBusLibrary& b = *SdBus();
  Reply session;
  int rc = b.call_method(bus.get(), kObexService, kObexPath, "org.bluez.obex.Client1", "CreateSession",
                         &session.error, &session.message, "sa{sv}", address.c_str(), 1, "Target", "s", "opp");
  const char* session_path = nullptr;
  if (rc < 0 || b.message_read(session.message, "o", &session_path) <= 0)
    return *error = "no object push session with " + address + ": " + session.Why(rc), false;
  Reply transfer;
  rc = b.call_method(bus.get(), kObexService, session_path, "org.bluez.obex.ObjectPush1", "SendFile",
                     &transfer.error, &transfer.message, "s", path.c_str());
  const char* transfer_path = nullptr;
  bool ok = rc >= 0 && b.message_read(transfer.message, "o", &transfer_path) > 0;
  if (!ok) *error = "the file was not taken for sending: " + transfer.Why(rc);
  // The session ends with this connection, so the transfer is watched to its end.
  for (int tenth = 0; ok && tenth < wait_seconds * 10; ++tenth) {
    Reply status;
    const char* text = nullptr;
    if (b.call_method(bus.get(), kObexService, transfer_path, "org.freedesktop.DBus.Properties", "Get",
                      &status.error, &status.message, "ss", "org.bluez.obex.Transfer1", "Status") < 0 ||
        b.message_read(status.message, "v", "s", &text) <= 0)
      break;  // the transfer is gone: it ended
    const std::string state = text ? text : "";
    if (state == "complete") break;
    if (state == "error") {
      *error = "the receiving device refused or broke off the transfer";
      ok = false;
    } else {
      usleep(100 * 1000);
    }
  }
  Reply removed;
  b.call_method(bus.get(), kObexService, kObexPath, "org.bluez.obex.Client1", "RemoveSession",
                &removed.error, &removed.message, "o", session_path);
  return ok;
}

}  // namespace velmo::bluetooth
