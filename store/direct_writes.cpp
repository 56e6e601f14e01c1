#include "store/direct_writes.h"

#include "platform/cedb.h"
#include "platform/lasterror.h"
#include "platform/localmem.h"
#include "store/connection.h"
#include "store/store_messages.h"
#include "store/task_props.h"

namespace velmo {
namespace {

HRESULT WriteProps(CEOID oid, CEPROPVAL* values, WORD count) {
  if (CeWriteRecordProps(Store().tasks_db, oid, count, values) == 0) {
    const HRESULT failure = LastErrorAsHresult();
    return FAILED(failure) ? failure : E_FAIL;
  }
  return S_OK;
}

// Writes one property of the item's record and announces it when asked.
HRESULT WriteItemProperty(ITask* item, CEPROPVAL value, bool post) {
  CEOID oid = 0;
  const HRESULT result = item ? item->get_Oid(&oid) : E_POINTER;
  if (FAILED(result)) return result;
  const HRESULT written = WriteProps(oid, &value, 1);
  if (FAILED(written)) return written;
  if (post) PostTaskWritten(Store().window, oid);
  return result;
}

// Reads property `id` of record `oid` into a buffer of its own; null when the
// record cannot be sought or read or lacks the property (the last error says why).
BYTE* ReadOneProperty(CEOID oid, CEPROPID id) {
  HANDLE db = Store().tasks_db;
  if (CeSeekDatabase(db, CEDB_SEEK_CEOID, oid, nullptr) != oid) return nullptr;
  BYTE* buffer = nullptr;
  DWORD size = 0;
  WORD count = 1;
  if (CeReadRecordProps(db, CEDB_ALLOWREALLOC, &count, &id, &buffer, &size) == 0 || count != 1 ||
      (reinterpret_cast<CEPROPVAL*>(buffer)->wFlags & CEDB_PROPNOTFOUND)) {
    if (buffer) SetLastError(ERROR_FILE_NOT_FOUND);
    LocalFree(buffer);
    return nullptr;
  }
  return buffer;
}

}  // namespace

HRESULT WriteTaskCategories(ITask* item, const wchar_t* text, bool post) {
  CEPROPVAL value{kPropCategories, 0, 0, {}};
  value.val.lpwstr = const_cast<wchar_t*>(text ? text : L"");
  return WriteItemProperty(item, value, post);
}

HRESULT WriteTaskTeamFlag(ITask* item, WORD team_task, bool post) {
  CEPROPVAL value{kPropTeamTask, 0, 0, {}};
  value.val.iVal = static_cast<SHORT>(team_task);
  return WriteItemProperty(item, value, post);
}

HRESULT WriteReminderHandle(const Task& task) {
  CEPROPVAL values[2] = {{kPropNotificationHandle, 0, 0, {}}, {kPropReminderMinutes, 0, 0, {}}};
  values[0].val.ulVal = task.notification_handle;
  values[1].val.lVal = task.reminder_minutes;
  return WriteProps(task.oid, values, 2);
}

HRESULT ReadTaskCategories(ITask* item, std::wstring* categories) {
  categories->clear();
  CEOID oid = 0;
  const HRESULT result = item ? item->get_Oid(&oid) : E_POINTER;
  if (FAILED(result)) return result;
  BYTE* buffer = ReadOneProperty(oid, kPropCategories);
  if (!buffer) {
    const HRESULT failure = LastErrorAsHresult();
    return FAILED(failure) ? failure : E_FAIL;
  }
  const wchar_t* text = reinterpret_cast<CEPROPVAL*>(buffer)->val.lpwstr;
  if (text) *categories = text;
  LocalFree(buffer);
  return S_OK;
}

DWORD ReadNotificationHandle(CEOID oid) {
  BYTE* buffer = ReadOneProperty(oid, kPropNotificationHandle);
  if (!buffer) return 0;
  const DWORD handle = reinterpret_cast<CEPROPVAL*>(buffer)->val.ulVal;
  LocalFree(buffer);
  return handle;
}

}  // namespace velmo
