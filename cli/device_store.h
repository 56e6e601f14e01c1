// The device's task store opened for a companion subcommand: the device root
// and its volume (made when missing), the settings as velmo-todo sees them,
// the tasks database and, when asked, the object model.
#pragma once

namespace velmo::cli {

// Prints what went wrong, prefixed with the command, and returns false.
bool OpenDeviceStore(const char* command, bool object_model);
// After a fixed message for a failed save (its "Error %d"), the plain line under
// it: what happened to which file, from the platform's last failure. Nothing
// when the platform has nothing to add.
void PrintStoreFailure(const char* command);

// False, after printing why, when a reminder set meanwhile could not be
// scheduled: the command then ends with a failure.
bool CloseDeviceStore();

}  // namespace velmo::cli
