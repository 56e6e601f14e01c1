#include "app/startup.h"

#include <unistd.h>

#include <cstdio>
#include <memory>

#include "app/command_line.h"
#include "app/main_loop.h"
#include "app/resource_check.h"
#include "app/second_instance.h"
#include "platform/cedb.h"
#include "platform/cedb_recover.h"
#include "platform/device.h"
#include "platform/ipc.h"
#include "platform/lasterror.h"
#include "platform/ui/desktop.h"
#include "platform/ui/message_box.h"
#include "platform/ui/screen_ncurses.h"
#include "platform/wstr.h"
#include "settings/settings.h"
#include "store/after_sync.h"

namespace velmo::app {
namespace {

// The instance mutex, held for the whole run of the first instance.
HANDLE g_instance_mutex = nullptr;

// The settings of a normal start: loaded, completed and, when anything was
// missing or the texts were just filled, saved back at once so that the registry
// holds every value.
void InitialiseSettings() {
  Settings& settings = CurrentSettings();
  const int incomplete = LoadSettings(settings);
  const int filled = FillEmptyTexts(settings);
  if (incomplete || filled) SaveSettings(settings, true);
}

// The device folder, and the volume and databases of a working device made on an
// empty root. A folder that cannot be used, and a volume that is damaged or is
// not this program's, stop the start with the reason: nothing may be written
// into either. Otherwise the run goes on without tasks when the volume cannot be
// made or read (locked, say), and the reading reports it.
bool PrepareDevice() {
  if (!device::EnsureRoot()) {
    ShowStartupError(FromUtf8(device::RootFailure()));
    return false;
  }
  if (cedb::EnsureDeviceVolume()) return true;
  const DWORD error = GetLastError();
  if (error != ERROR_FILE_CORRUPT && error != ERROR_BAD_FORMAT) return true;
  ShowStartupError(FromUtf8(cedb::LastFailure()));
  return false;
}

}  // namespace

void ShowStartupError(std::wstring_view text) {
  // A message box on the terminal when there is one; the text also goes to
  // standard error, where it stays after the screen is given back.
  if (isatty(STDIN_FILENO) && isatty(STDOUT_FILENO)) {
    if (std::unique_ptr<ui::NcursesScreen> screen = ui::NcursesScreen::Open()) {
      ui::ScopedScreen attached(screen.get());
      const std::wstring message(text);
      MessageBoxW(nullptr, message.c_str(), kMainWindowClass, MB_ICONHAND);
    }
  }
  std::string line;
  for (const char c : ToUtf8(text))
    if (c != '\r') line += c;
  std::fprintf(stderr, "%s: %s\n", ToUtf8(kMainWindowClass).c_str(), line.c_str());
}

int RunProgram(std::wstring_view command_line) {
  // COM initialisation has nothing to do here: the object model is in-process.
  StartRequest& start = TheStartRequest();
  start = ParseCommandLine(command_line);

  HANDLE& mutex = g_instance_mutex;
  std::string refusal;  // why the instance lock cannot be made, in words
  ipc::SetLogSink([&refusal](const std::string& line) { refusal = line; });
  mutex = CreateMutexW(nullptr, FALSE, kInstanceMutexName);
  ipc::SetLogSink(nullptr);
  if (!mutex) {
    ShowStartupError(FromUtf8(refusal.empty() ? "cannot make the lock file in " + ipc::RuntimeDirectory()
                                              : refusal));
    return 1;
  }
  if (GetLastError() == ERROR_ALREADY_EXISTS) {
    const std::wstring failure = HandOverToRunningInstance(start);
    CloseHandle(mutex);
    if (failure.empty()) return 0;
    ShowStartupError(failure);
    return 1;
  }
  // What instances killed on other device roots left behind goes now.
  ipc::RemoveStaleFiles();

  if (start.request == kAfterSyncRequest) {
    // No window and no message: every failure ends the pass silently.
    if (device::EnsureRoot() && cedb::EnsureDeviceVolume()) RunAfterSyncPass();
    CloseHandle(mutex);
    return 0;
  }

  const std::wstring program_file = ProgramFilePath();
  if (!LoadLanguageResources(program_file))
    std::fprintf(stderr, "velmo-todo: cannot read the language file %s\n",
                 std::getenv("VELMO_LANGUAGE_FILE"));
  if (const std::wstring message = CheckStringResources(program_file); !message.empty()) {
    ShowStartupError(message);
    return 0;  // the mutex goes with the process
  }

  if (!PrepareDevice()) return 1;
  // Screen metrics, image lists, the platform type and the tray icon belong to
  // the terminal's window layer; the settings here, the list's state with the
  // main window.
  InitialiseSettings();

  const int quit_code = RunMainWindow(start);
  ReleaseMutex(mutex);
  CloseHandle(mutex);
  return quit_code;
}

}  // namespace velmo::app
