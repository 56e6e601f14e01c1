// The task store's connection to the tasks database, one per process: the
// mounted volume, the database handle and its change notifications, the read
// buffer shared by a sequential load, the object model's application object,
// and the values one operation hands to the next re-read of a task.
#pragma once

#include <string>

#include "platform/cedb.h"
#include "platform/oletime.h"
#include "platform/poom.h"
#include "platform/wintypes.h"

namespace velmo {

// Parameter of the change-notification request of the main window's connection.
constexpr DWORD kTasksNotifyParam = 3;

struct StoreConnection {
  CEGUID volume{~0u, ~0u, ~0u, ~0u};  // invalid until mounted
  bool mounted = false;
  HANDLE tasks_db = INVALID_HANDLE_VALUE;
  CEOID tasks_db_oid = 0;
  HANDLE other_db = INVALID_HANDLE_VALUE;  // contacts or appointments, while collecting
  std::wstring tasks_name;
  std::wstring contacts_name;
  std::wstring appointments_name;

  bool reload = true;  // the task table is reloaded only while set
  std::string notes_copy;  // the notes being scanned, ending in a zero byte; reused across a load

  // Handed from a copy or edit to the next re-read of a task.
  DATE pending_reminder_time = kNoDate;
  bool copy_flag = false;

  // Set whenever the editor's commit or quick entry saved a task.
  bool task_saved = false;

  IPOutlookApp* app = nullptr;
  IFolder* folder = nullptr;
  HWND window = nullptr;
  CEOID welcome_task = 0;  // made on the first run after installation
};

StoreConnection& Store();

// Mounts the volume of the settings' "DbPath" (open existing) unless mounted and
// takes the database names from the settings. On failure the volume identifier
// is the invalid one and every later call fails in the platform.
bool MountTasksVolume();

// Opens the tasks database by name (each read moves on), with change
// notifications to `window` when notify is set. Returns TRUE at once when the
// handle is valid. Shows no message.
BOOL OpenTasksDatabaseHandle(HWND window, bool notify, DWORD param);

// The same with notifications; on failure a message box owned by `window` shows
// the database name under the caption "CeOpenDatabaseEx".
BOOL OpenTasksDatabase(HWND window, DWORD param);

// Closes the database handles, frees the names and the read buffer, and
// unmounts the volume.
void CloseTasksDatabase();

// Frees the room kept for reading records (after a load).
void FreeReadBuffer();

// The database's information, FALSE when it cannot be read.
BOOL ReadTasksDatabaseInfo(CEDBASEINFOEX* info);

}  // namespace velmo
