#include "app/task_commands.h"

#include <string>

#include "app/main_window_state.h"
#include "app/rename_dialog.h"
#include "app/task_changes.h"
#include "list/priority_commands.h"
#include "platform/ui/message_box.h"
#include "res/command_ids.h"
#include "res/menus_app.h"
#include "res/strings.h"
#include "settings/settings.h"
#include "store/connection.h"
#include "store/direct_writes.h"
#include "store/store_messages.h"
#include "store/task_table.h"

namespace velmo::app {
namespace {

// An item released when it goes out of scope.
class Item {
 public:
  explicit Item(CEOID oid) { OpenTaskItem(oid, &item_); }
  ~Item() {
    if (item_) item_->Release();
  }
  Item(const Item&) = delete;
  Item& operator=(const Item&) = delete;
  ITask* operator->() const { return item_; }
  ITask* get() const { return item_; }
  explicit operator bool() const { return item_ != nullptr; }

 private:
  ITask* item_ = nullptr;
};

std::wstring TakeString(BSTR text) {
  std::wstring out = text ? text : L"";
  SysFreeString(text);
  return out;
}

}  // namespace

bool RecursAgain(ITask* item) {
  VARIANT_BOOL recurring = VARIANT_FALSE;
  if (!item || FAILED(item->get_IsRecurring(&recurring)) || !recurring) return false;
  IRecurrencePattern* pattern = nullptr;
  if (FAILED(item->GetRecurrencePattern(&pattern)) || !pattern) return false;
  LONG occurrences = 0;
  const bool known = SUCCEEDED(pattern->get_Occurrences(&occurrences));
  pattern->Release();
  return known && (occurrences == -1 || occurrences >= 2);
}

void ShowSaveFailure(HRESULT result, UINT caption_id) {
  const std::wstring text = ObjectModelFailureText(result);
  MessageBoxW(MainWindow().window, text.c_str(), res::Text(caption_id).c_str(), MB_ICONERROR);
}

void SetTaskComplete(CEOID oid, bool complete) {
  Item item(oid);
  if (!item) return;
  const bool series_goes_on = complete && RecursAgain(item.get());
  if (complete && !series_goes_on && CurrentSettings().del_reminder_on_complete == 1)
    item->put_ReminderSet(VARIANT_FALSE);
  item->put_Complete(complete ? VARIANT_TRUE : VARIANT_FALSE);
  const HRESULT result = item->Save();
  if (FAILED(result)) {
    ShowSaveFailure(result, complete ? res::kTextComplete : res::kTextActivate);
    return;
  }
  // A series that goes on gains a record for the completed occurrence.
  if (series_goes_on) {
    ReloadTasksNow();
  } else {
    RereadTask(oid);
  }
}

void CopyTask(CEOID oid) {
  Item item(oid);
  if (!item) return;
  if (CurrentSettings().rename_copy == 1) {
    BSTR subject = nullptr;
    if (SUCCEEDED(item->get_Subject(&subject)))
      item->put_Subject((TakeString(subject) + L"~").c_str());
  }
  ITask* copy = nullptr;
  const HRESULT result = item->Copy(&copy);
  if (FAILED(result) || !copy) {
    ShowSaveFailure(FAILED(result) ? result : E_FAIL, cmd::kCreateCopy);
    return;
  }
  CEOID copy_oid = 0;
  copy->get_Oid(&copy_oid);
  copy->Release();
  Store().copy_flag = true;  // the copy must not share its source's notification
  RereadTask(copy_oid, true);
}

void RenameTask(CEOID oid) {
  Item item(oid);
  if (!item) return;
  BSTR subject = nullptr;
  if (FAILED(item->get_Subject(&subject))) return;
  const std::wstring before = TakeString(subject);
  std::wstring after = before;
  if (!AskNewSubject(MainWindow().window, &after) || after == before) return;
  item->put_Subject(after.c_str());
  const HRESULT result = item->Save();
  if (FAILED(result)) {
    ShowSaveFailure(result, cmd::kRename);
    return;
  }
  RereadTask(oid);
}

void ToggleTeamTask(CEOID oid) {
  Item item(oid);
  if (!item) return;
  VARIANT_BOOL team = VARIANT_FALSE;
  if (FAILED(item->get_TeamTask(&team))) return;
  const HRESULT result = WriteTaskTeamFlag(item.get(), team ? 0 : 1, false);
  if (FAILED(result)) {
    ShowSaveFailure(result, cmd::kTeamTask);
    return;
  }
  RereadTask(oid);
}

void ChangeTaskPriority(CEOID oid, UINT command) {
  PriorityRequest request;
  bool wrap = false;
  const int index = FindTask(oid);
  if (index < 0 || !PriorityCommandRequest(command, &request, &wrap)) return;
  Item item(oid);
  if (!item) return;
  const HRESULT result =
      SetTaskPriority(item.get(), Tasks()[static_cast<size_t>(index)].get(), request, wrap);
  if (result == S_OK) RereadTask(oid);
}

void CompleteDeferredOccurrence(CEOID oid) {
  Item item(oid);
  if (!item) return;
  item->put_Complete(VARIANT_TRUE);
  const HRESULT result = item->Save();
  if (FAILED(result)) {
    ShowSaveFailure(result, res::kTextComplete);
    return;
  }
  ReloadTasksNow();
}

}  // namespace velmo::app
