// The notifications file of the device root (<root>/notify.db): start-on-event
// registrations and user notifications, shared by every process of the device.
#pragma once

#include <sqlite3.h>

#include <string>

namespace velmo::notify {

// The file of the current device root.
std::string StoreFilePath();

// Opens the file (creating the root and the file when missing) in WAL mode with a
// busy timeout, and creates the tables when absent. Returns null with the last
// error set on failure (the file is never replaced); StoreFailure() then names
// the file and the cause. The caller closes the connection with sqlite3_close.
sqlite3* OpenStore();

// The last failure of OpenStore in this thread, naming the file.
std::string StoreFailure();

}  // namespace velmo::notify
