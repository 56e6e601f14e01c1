// Bluetooth object push through BlueZ: the adapter and the paired devices from
// BlueZ on the system bus, and a file sent by obexd (org.bluez.obex) on the
// session bus. Each call gives up after kBusTimeoutMs when a service does not
// answer; the sending itself runs in `velmo beam`, so the program never waits
// for a transfer.
#pragma once

#include <string>
#include <vector>

namespace velmo::bluetooth {

constexpr unsigned kBusTimeoutMs = 1500;

struct Device {
  std::string address;  // "00:11:22:33:44:55"
  std::string name;     // its alias, else the address
};

struct Neighbourhood {
  bool adapter = false;
  std::vector<Device> paired;
};

// What BlueZ knows; no adapter when BlueZ or the bus is not there.
Neighbourhood PairedDevices();

// Sends the file by object push and waits (up to `wait_seconds`) for the
// transfer's end. False with *error in words when it could not be sent.
bool PushFile(const std::string& address, const std::string& path, int wait_seconds,
              std::string* error);

}  // namespace velmo::bluetooth
