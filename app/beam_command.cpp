#include "app/beam_command.h"

#include <cerrno>
#include <cstring>
#include <ctime>
#include <filesystem>
#include <vector>

#include "app/list_rows.h"
#include "app/main_window_state.h"
#include "app/task_file.h"
#include "platform/bluetooth.h"
#include "platform/shell.h"
#include "platform/ui/menu.h"
#include "platform/ui/message_box.h"
#include "platform/ui/window.h"
#include "platform/wstr.h"
#include "res/command_ids.h"
#include "res/dialogs_links.h"
#include "res/strings.h"
#include "settings/settings.h"
#include "store/connection.h"
#include "store/task_table.h"
#include "sync/calendar_export.h"

namespace velmo::app {
namespace {

std::vector<CEOID> TasksToBeam(UINT command) {
  std::vector<CEOID> oids;
  if (command == cmd::kBeamTask) {
    if (const Task* task = SelectedTask()) oids.push_back(task->oid);
  } else if (command == cmd::kBeamDisplayed) {
    for (int row = 0; row < RowCount(); ++row) oids.push_back(RowTask(row)->oid);
  } else {
    for (const auto& task : Tasks())
      if (task && task->oid) oids.push_back(task->oid);
  }
  return oids;
}

// A new file in the home folder named after the time: "velmo-tasks-20240515-120000.ics".
bool SaveCalendar(const std::string& text, std::string* path) {
  const char* home = std::getenv("HOME");
  char stamp[32];
  const std::time_t now = std::time(nullptr);
  std::strftime(stamp, sizeof stamp, "%Y%m%d-%H%M%S", std::localtime(&now));
  for (int n = 1; n < 100; ++n) {
    *path = std::string(home && *home ? home : "/tmp") + "/velmo-tasks-" + stamp +
            (n > 1 ? "-" + std::to_string(n) : "") + ".ics";
    int error = 0;
    const FileWrite result = WriteTaskFile(*path, text, false, &error);
    if (result == FileWrite::kWritten) return true;
    if (result == FileWrite::kFailed) return false;
  }
  return false;
}

void Tell(UINT text_id, std::initializer_list<std::wstring_view> inserts, UINT icon) {
  const std::wstring text = res::FormatId(text_id, inserts);
  const std::wstring caption = res::Text(res::kTextBeamCaption);
  MessageBoxW(MainWindow().window, text.c_str(), caption.c_str(), MB_OK | icon);
}

// The paired device to send to, chosen from a menu; -1 when none is chosen.
int ChooseDevice(const std::vector<bluetooth::Device>& devices) {
  HMENU menu = CreatePopupMenu();
  for (size_t i = 0; i < devices.size(); ++i)
    AppendMenuW(menu, MF_STRING, i + 1, FromUtf8(devices[i].name).c_str());
  RECT rc{};
  GetWindowRect(MainWindow().window, &rc);
  const UINT chosen = static_cast<UINT>(TrackPopupMenuEx(
      menu, TPM_RETURNCMD | TPM_NONOTIFY | TPM_BOTTOMALIGN | TPM_RIGHTALIGN, rc.right, rc.bottom - 1,
      MainWindow().window, nullptr));
  DestroyMenu(menu);
  return chosen >= 1 && chosen <= devices.size() ? static_cast<int>(chosen) - 1 : -1;
}

}  // namespace

void BeamTasks(UINT command) {
  std::vector<sync::SyncRecord> records;
  for (CEOID oid : TasksToBeam(command)) {
    sync::SyncRecord r;
    if (sync::ReadSyncRecord(Store().tasks_db, oid, &r)) records.push_back(std::move(r));
  }
  if (records.empty()) return;
  std::string path;
  if (!SaveCalendar(sync::CalendarOfRecords(records), &path)) {
    Tell(res::kTextSaveFailed, {FromUtf8(path), FromUtf8(std::strerror(errno))}, MB_ICONHAND);
    return;
  }
  const bluetooth::Neighbourhood around = bluetooth::PairedDevices();
  if (!around.adapter || around.paired.empty()) {
    Tell(res::kTextBeamSaved, {FromUtf8(path)}, MB_ICONINFORMATION);
    return;
  }
  const int device = ChooseDevice(around.paired);
  if (device < 0) {
    std::filesystem::remove(path);
    return;
  }
  const std::filesystem::path velmo =
      std::filesystem::path(ToUtf8(ProgramFilePath())).parent_path() / "velmo";
  const bluetooth::Device& to = around.paired[static_cast<size_t>(device)];
  shell::Spawn({FromUtf8(velmo.string()), L"beam", L"--to", FromUtf8(to.address), FromUtf8(path)});
  Tell(res::kTextBeamSent, {FromUtf8(std::filesystem::path(path).filename().string()), FromUtf8(to.name)},
       MB_ICONINFORMATION);
}

}  // namespace velmo::app
