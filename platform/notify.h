// User notifications and start-on-event registrations, as the platform offers
// them. Registrations and notifications are kept in the device root (see
// platform/notify_store.h), so they outlive the process that made them and every
// process of the device sees them; `velmo notifyd` delivers the notifications
// when they fall due.
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

// ---------------------------------------------------------------------------
// User notifications

// Trigger types.
constexpr DWORD CNT_EVENT = 1;   // start the application at an event (dwEvent)
constexpr DWORD CNT_TIME = 2;    // at stStartTime: raise the notification, or start the application
constexpr DWORD CNT_PERIOD = 3;  // shown from stStartTime to stEndTime

// The platform's size of the trigger, which callers may give as dwSize.
constexpr DWORD kPlatformTriggerSize = 52;

struct CE_NOTIFICATION_TRIGGER {
  DWORD dwSize;  // sizeof(CE_NOTIFICATION_TRIGGER) or kPlatformTriggerSize
  DWORD dwType;  // CNT_*
  DWORD dwEvent;  // NOTIFICATION_EVENT_* for CNT_EVENT
  LPWSTR lpszApplication;  // the program file to start
  LPWSTR lpszArguments;    // its command line (may be null)
  SYSTEMTIME stStartTime;  // local time
  SYSTEMTIME stEndTime;
};

// Action flags.
constexpr DWORD PUN_LED = 1;
constexpr DWORD PUN_VIBRATE = 2;
constexpr DWORD PUN_DIALOG = 4;
constexpr DWORD PUN_SOUND = 8;
constexpr DWORD PUN_REPEAT = 16;

struct CE_USER_NOTIFICATION {
  DWORD ActionFlags;  // PUN_*
  LPWSTR pwszDialogTitle;
  LPWSTR pwszDialogText;
  LPWSTR pwszSound;
  DWORD nMaxSound;
  DWORD dwReserved;
};

// dwStatus of a notification.
constexpr DWORD CNS_SIGNALLED = 1;  // raised and not yet dismissed

// What CeGetUserNotification writes at the start of the caller's buffer; the
// pointers point further into the same buffer (null when absent).
struct CE_NOTIFICATION_INFO_HEADER {
  HANDLE hNotification;
  DWORD dwStatus;  // 0 while waiting, CNS_SIGNALLED once raised
  CE_NOTIFICATION_TRIGGER* pcent;
  CE_USER_NOTIFICATION* pceun;
};

// Creates a notification (replace = 0) or replaces notification `replace` with
// a new trigger and user notification (null: none; the application is then
// just started). Returns its handle, a small integer never reused on the device;
// 0 on failure with the last error: ERROR_INVALID_PARAMETER for a missing or bad
// trigger (size, type, no application, a time that is not a date),
// ERROR_INVALID_HANDLE when `replace` is not a pending notification.
HANDLE CeSetUserNotificationEx(HANDLE replace, CE_NOTIFICATION_TRIGGER* trigger,
                               CE_USER_NOTIFICATION* notification);

// The handles of the pending notifications, in creation order: *needed receives
// their count; FALSE with ERROR_INSUFFICIENT_BUFFER when more than max (out may
// then be null with max 0).
BOOL CeGetUserNotificationHandles(HANDLE* out, DWORD max, DWORD* needed);

// One notification as a CE_NOTIFICATION_INFO_HEADER followed by its trigger,
// user notification and strings, in the caller's buffer of cbBuffer bytes.
// *cbNeeded receives the size needed; a smaller buffer fails with
// ERROR_INSUFFICIENT_BUFFER, an unknown handle with ERROR_INVALID_HANDLE.
BOOL CeGetUserNotification(HANDLE notification, DWORD cbBuffer, DWORD* cbNeeded, BYTE* buffer);

// Removes a notification; FALSE with ERROR_INVALID_HANDLE when there is none.
BOOL CeClearUserNotification(HANDLE notification);

namespace velmo::notify {

// A notification as plain values, for the reminder service and `velmo
// notifications`. A trigger without a user notification has has_dialog false.
struct PendingNotification {
  DWORD handle = 0;
  DWORD status = 0;
  DWORD type = CNT_TIME;
  DWORD event = 0;
  std::wstring application;
  std::wstring arguments;
  SYSTEMTIME start{};
  SYSTEMTIME end{};
  bool has_dialog = false;
  DWORD action_flags = 0;
  std::wstring title;
  std::wstring text;
  std::wstring sound;
};

// Every pending notification in creation order. False (last error set) when the
// store cannot be read.
bool ListUserNotifications(std::vector<PendingNotification>* out);

// Marks a notification as raised (dwStatus CNS_SIGNALLED), so the service does
// not raise it twice. False when there is no such notification.
bool MarkSignalled(DWORD handle);

// The handle value of the notification: HANDLE and DWORD convert both ways.
inline DWORD HandleValue(HANDLE h) { return static_cast<DWORD>(reinterpret_cast<std::uintptr_t>(h)); }
inline HANDLE HandleOf(DWORD value) { return reinterpret_cast<HANDLE>(static_cast<std::uintptr_t>(value)); }

struct RunAtEventRegistration {
  std::wstring app;
  LONG event = NOTIFICATION_EVENT_NONE;
};

// The applications registered for event, in registration order. False (last
// error set) when the store cannot be read.
bool ListRunAppAtEvent(LONG event, std::vector<RunAtEventRegistration>* out);

// The command line an application registered for event is started with.
const wchar_t* RunAtEventCommandLine(LONG event);

// Why the reminder last set in this process could not be scheduled (the file
// named, what happened); empty when it was, or when none was set. Reading it
// clears it. A command that saved a task reports it rather than exit quietly.
std::string TakeUnscheduledReminder();

}  // namespace velmo::notify
