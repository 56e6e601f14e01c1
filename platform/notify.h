// User notifications and start-on-event registrations, as the platform offers
// them. Registrations and notifications are kept in the device root (see
// platform/notify_store.h), so they outlive the process that made them.
#pragma once

#include <string>
#include <vector>

#include "platform/wintypes.h"

// Events an application can be started at.
constexpr LONG NOTIFICATION_EVENT_NONE = 0;  // clears the application's registrations
constexpr LONG NOTIFICATION_EVENT_SYNC_END = 2;

// Registers app (a program file path) to be started at event, with the event's
// command line ("AppRunAfterSync" for the end of synchronisation). Event
// NOTIFICATION_EVENT_NONE removes every registration of app. Registering twice is
// one registration. FALSE with the last error set on failure.
BOOL CeRunAppAtEvent(LPCWSTR app, LONG event);

namespace velmo::notify {

struct RunAtEventRegistration {
  std::wstring app;
  LONG event = NOTIFICATION_EVENT_NONE;
};

// The applications registered for event, in registration order. False (last
// error set) when the store cannot be read.
bool ListRunAppAtEvent(LONG event, std::vector<RunAtEventRegistration>* out);

// The command line an application registered for event is started with.
const wchar_t* RunAtEventCommandLine(LONG event);

}  // namespace velmo::notify
