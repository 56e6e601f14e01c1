// The device's task store opened for a companion subcommand: the device root
// and its volume (made when missing), the settings as velmo-todo sees them,
// the tasks database and, when asked, the object model.
#pragma once

namespace velmo::cli {

// Prints what went wrong, prefixed with the command, and returns false.
bool OpenDeviceStore(const char* command, bool object_model);
void CloseDeviceStore();

}  // namespace velmo::cli
