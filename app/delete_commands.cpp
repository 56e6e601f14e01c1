#include "app/delete_commands.h"

#include <string>
#include <vector>

#include "app/list_rows.h"
#include "app/main_window_state.h"
#include "app/task_changes.h"
#include "app/task_commands.h"
#include "platform/cedb.h"
#include "platform/ui/message_box.h"
#include "platform/ui/messages.h"
#include "res/command_ids.h"
#include "res/strings.h"
#include "settings/settings.h"
#include "store/connection.h"
#include "store/task_table.h"

namespace velmo::app {
namespace {

constexpr UINT kProgramCaption = 121;
enum Question : UINT {
  kAskRecurring = 319,  // the whole series (Yes) or this occurrence (No)?
  kAskOne = 320,
  kAskSeries = 321,
  kAskOccurrence = 322,
  kAskCompleted = 324,
  kAskDisplayed = 325,
};
constexpr UINT kReportDeleted = 326;
constexpr UINT kReportNone = 327;

int Ask(UINT text_id, UINT buttons = MB_YESNO) {
  return MessageBoxW(MainWindow().window, res::Text(text_id).c_str(),
                     res::Text(kProgramCaption).c_str(), buttons | MB_ICONQUESTION);
}

bool Confirmed(UINT text_id) {
  return CurrentSettings().delete_confirm != 1 || Ask(text_id) == IDYES;
}

void Report(size_t deleted) {
  const std::wstring text = deleted ? res::FormatId(kReportDeleted, {std::to_wstring(deleted)})
                                    : res::Text(kReportNone);
  MessageBoxW(MainWindow().window, text.c_str(), res::Text(kProgramCaption).c_str(),
              MB_ICONINFORMATION);
}

// The last record of the tasks database, or 0.
CEOID LastRecord() { return CeSeekDatabase(Store().tasks_db, CEDB_SEEK_END, 0, nullptr); }

// Deletes the item's record; the task leaves the table.
bool DeleteItem(ITask* item, CEOID oid) {
  const HRESULT result = item->Delete();
  if (FAILED(result)) {
    ShowSaveFailure(result, cmd::kDelete);
    return false;
  }
  ForgetTask(oid);
  return true;
}

// Only the current occurrence goes: it is completed, which records it as a task
// of its own and moves the series on, and that record is deleted.
bool DeleteOccurrence(ITask* item) {
  const CEOID last_before = LastRecord();
  item->put_Complete(VARIANT_TRUE);
  const HRESULT result = item->Save();
  if (FAILED(result)) {
    ShowSaveFailure(result, cmd::kDelete);
    return false;
  }
  const CEOID occurrence = LastRecord();
  ITask* done = nullptr;
  if (occurrence && occurrence != last_before &&
      SUCCEEDED(Store().app->GetItemFromOid(occurrence, &done)) && done) {
    done->Delete();
    done->Release();
  }
  ReloadTasksNow();
  return true;
}

// Deletes the tasks of `oids` without questions; returns how many went.
size_t DeleteWithoutQuestions(const std::vector<CEOID>& oids) {
  size_t deleted = 0;
  for (CEOID oid : oids) {
    ITask* item = nullptr;
    if (FAILED(OpenTaskItem(oid, &item))) continue;
    if (SUCCEEDED(item->Delete())) {
      ForgetTask(oid);
      ++deleted;
    }
    item->Release();
  }
  return deleted;
}

}  // namespace

bool DeleteTask(CEOID oid) {
  ITask* item = nullptr;
  if (FAILED(OpenTaskItem(oid, &item))) return false;
  bool deleted = false;
  if (!RecursAgain(item)) {
    deleted = Confirmed(kAskOne) && DeleteItem(item, oid);
  } else {
    switch (Ask(kAskRecurring, MB_YESNOCANCEL)) {
      case IDYES:
        deleted = Confirmed(kAskSeries) && DeleteItem(item, oid);
        break;
      case IDNO:
        deleted = Confirmed(kAskOccurrence) && DeleteOccurrence(item);
        break;
      default:
        break;
    }
  }
  item->Release();
  return deleted;
}

void DeleteCompletedTasks() {
  std::vector<CEOID> oids;
  for (const auto& task : Tasks())
    if (task->oid && task->complete) oids.push_back(task->oid);
  if (oids.empty()) {
    Report(0);
    return;
  }
  if (Ask(kAskCompleted) != IDYES) return;
  Report(DeleteWithoutQuestions(oids));
}

void DeleteDisplayedTasks() {
  std::vector<CEOID> oids;
  for (int row = 0; row < RowCount(); ++row)
    if (const Task* task = RowTask(row)) oids.push_back(task->oid);
  if (oids.empty() || Ask(kAskDisplayed) != IDYES) return;
  DetachListRows();
  Report(DeleteWithoutQuestions(oids));
}

}  // namespace velmo::app
