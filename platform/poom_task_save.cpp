// The task item's Save (with its checks and the completion of one occurrence of
// a recurring task), Delete and Copy.
#include "platform/clock.h"
#include "platform/notify.h"
#include "platform/poom_props.h"
#include "platform/poom_recurrence.h"
#include "platform/poom_task.h"

namespace velmo::poom {
namespace {

constexpr DATE kReminderDaysAfterDue = 1;
constexpr DATE kReminderDaysBefore = 45;
constexpr LONG kMaxOccurrences = 999;

// The date an occurrence is counted from: the start, else the due date, else
// the pattern's start.
DATE OccurrenceBase(const TaskValues& v) {
  if (v.start != kNoDate) return v.start;
  if (v.due != kNoDate) return v.due;
  return v.pattern.PatternStartDate;
}

// Ends a batch of writes, keeping the first failure.
HRESULT EndBatch(Session& session, HRESULT hr) {
  const bool committed = session.EndBatch();
  if (FAILED(hr)) return hr;
  return committed ? S_OK : E_FAIL;
}

}  // namespace

HRESULT TaskItem::Validate() const {
  const TaskValues& v = values_;
  if (v.reminder_set) {
    const DATE reminder = ReminderTime();
    if (v.due == kNoDate || reminder > v.due + kReminderDaysAfterDue ||
        reminder < v.due - kReminderDaysBefore ||
        (v.start != kNoDate && reminder < v.start - kReminderDaysBefore))
      return E_POOM_REMINDER;
  }
  if (v.start != kNoDate && (v.due == kNoDate || v.due < v.start)) return E_POOM_DATES;
  if (v.recurring && CountOccurrences(v.pattern, kMaxOccurrences + 1) > kMaxOccurrences) return E_POOM_DATES;
  return S_OK;
}

HRESULT TaskItem::WriteFields(CEOID oid, const TaskValues& values, unsigned fields,
                              CEOID* written) {
  EncodedProps props;
  EncodeTask(values, fields, &props);
  if (props.values.empty()) {
    *written = oid;
    return session_->IsTaskRecord(oid) ? S_OK : E_INVALIDARG;
  }
  return session_->Write(oid, props.values, written);
}

HRESULT TaskItem::CopyForeignProperties(CEOID to) {
  if (oid_ == 0) return S_OK;
  RecordProps record;
  const HRESULT hr = session_->Read(oid_, &record);
  if (FAILED(hr)) return hr;
  std::vector<CEPROPVAL> foreign;
  for (const CEPROPVAL& v : record)
    if (!IsModelProperty(v.propid) && v.propid != kPropNotificationHandle) foreign.push_back(v);
  if (foreign.empty()) return S_OK;
  return session_->Write(to, foreign, nullptr);
}

HRESULT TaskItem::Save() {
  if (oid_ != 0 && !session_->IsTaskRecord(oid_)) return E_INVALIDARG;
  const HRESULT hr = Validate();
  if (FAILED(hr)) return hr;
  if (values_.recurring && values_.pattern.PatternStartDate == kNoDate) {
    const DATE base = OccurrenceBase(values_);
    values_.pattern.PatternStartDate =
        static_cast<DATE>(WholeDay(base != kNoDate ? base : NowAsDate()));
    changed_ |= kFieldRecurrence;
  }
  if ((changed_ & kFieldCompleted) && values_.complete && RecursAgain()) {
    const HRESULT split = CompleteOccurrence();
    if (split != S_FALSE) return split;
  }
  SettleReminder();
  CEOID written = 0;
  const HRESULT write = WriteFields(oid_, values_, oid_ == 0 ? static_cast<unsigned>(kAllFields) : changed_, &written);
  if (FAILED(write)) return write;
  oid_ = written;
  changed_ = 0;
  return S_OK;
}

// The completed occurrence becomes a new record (complete, not recurring, no
// reminder, the item's other properties copied); the item itself stays the
// series, incomplete, its dates moved to the next occurrence, which also starts
// its pattern. S_FALSE when there is no next occurrence after all (the caller
// then completes the item as it is).
HRESULT TaskItem::CompleteOccurrence() {
  SettleReminder();
  const DATE base = OccurrenceBase(values_);
  const DATE next = NextOccurrenceAfter(values_.pattern, base);
  if (next == kNoDate) return S_FALSE;

  TaskValues done = values_;
  done.recurring = false;
  done.reminder_set = false;

  TaskValues series = values_;
  const DATE shift = static_cast<DATE>(WholeDay(next) - WholeDay(base));
  if (series.start != kNoDate) series.start += shift;
  if (series.due != kNoDate) series.due += shift;
  series.complete = false;
  series.completed = kNoDate;
  series.pattern.PatternStartDate = next;
  const unsigned series_fields =
      oid_ == 0 ? static_cast<unsigned>(kAllFields) : changed_ | kFieldStart | kFieldDue | kFieldCompleted | kFieldRecurrence;

  if (!session_->BeginBatch()) return E_FAIL;
  CEOID done_oid = 0;
  CEOID series_oid = 0;
  HRESULT hr = WriteFields(0, done, kAllFields, &done_oid);
  if (SUCCEEDED(hr)) hr = CopyForeignProperties(done_oid);
  if (SUCCEEDED(hr)) hr = WriteFields(oid_, series, series_fields, &series_oid);
  hr = EndBatch(*session_, hr);
  if (FAILED(hr)) return hr;
  values_ = series;
  oid_ = series_oid;
  changed_ = 0;
  return S_OK;
}

DWORD TaskItem::NotificationHandle() const {
  RecordProps record;
  if (FAILED(session_->Read(oid_, &record))) return 0;
  for (const CEPROPVAL& v : record)
    if (v.propid == kPropNotificationHandle) return v.val.ulVal;
  return 0;
}

HRESULT TaskItem::Delete() {
  if (oid_ == 0) return S_OK;
  // A deleted task reminds of nothing: its notification goes with its record,
  // whichever program deletes it (the editor's copy of a task, a delete, sync).
  const DWORD notification = NotificationHandle();
  const HRESULT hr = session_->Delete(oid_);
  if (FAILED(hr)) return hr;
  if (notification) CeClearUserNotification(notify::HandleOf(notification));
  oid_ = 0;
  changed_ = kAllFields;
  return S_OK;
}

HRESULT TaskItem::Copy(ITask** copy) {
  if (!copy) return E_POINTER;
  *copy = nullptr;
  if (oid_ != 0 && !session_->IsTaskRecord(oid_)) return E_INVALIDARG;
  HRESULT hr = Validate();
  if (FAILED(hr)) return hr;
  TaskValues values = values_;
  if (has_pending_reminder_) poom::SettleReminder(&values, pending_reminder_);
  if (!session_->BeginBatch()) return E_FAIL;
  CEOID copy_oid = 0;
  hr = WriteFields(0, values, kAllFields, &copy_oid);
  if (SUCCEEDED(hr)) hr = CopyForeignProperties(copy_oid);
  hr = EndBatch(*session_, hr);
  if (FAILED(hr)) return hr;
  *copy = new TaskItem(session_, copy_oid, values);
  return S_OK;
}

}  // namespace velmo::poom
