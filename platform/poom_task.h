// The object model's task item: the values of one task record in memory, which
// fields were changed since the item was read or saved, and the record they
// belong to. Its ITask methods are spread over poom_task*.cpp by concern.
#pragma once

#include <atomic>
#include <memory>
#include <string>

#include "platform/recurrence_pattern.h"
#include "platform/poom.h"
#include "platform/poom_session.h"

namespace velmo::poom {

// The fields of a task as the object model holds them (the platform's values,
// not the record's encodings).
struct TaskValues {
  std::wstring subject;
  std::wstring body;
  std::wstring categories;
  std::wstring sound;
  DATE start = kNoDate;
  DATE due = kNoDate;
  DATE completed = kNoDate;
  bool complete = false;
  bool team = false;
  bool reminder_set = false;
  bool recurring = false;
  LONG importance = olImportanceNormal;
  LONG sensitivity = olNormal;
  LONG options = -1;
  // The reminder: minutes before the due date (from_due) or the start date.
  LONG reminder_minutes = 0;
  bool reminder_from_due = true;
  RecurrencePattern pattern;
};

// Field bits: what a Save writes.
enum TaskField : unsigned {
  kFieldSubject = 1u << 0,
  kFieldBody = 1u << 1,
  kFieldCategories = 1u << 2,
  kFieldSound = 1u << 3,
  kFieldStart = 1u << 4,
  kFieldDue = 1u << 5,
  kFieldCompleted = 1u << 6,  // DateCompleted and Complete
  kFieldTeam = 1u << 7,
  kFieldReminderSet = 1u << 8,
  kFieldReminderTime = 1u << 9,  // minutes and base flag
  kFieldImportance = 1u << 10,
  kFieldSensitivity = 1u << 11,
  kFieldOptions = 1u << 12,
  kFieldRecurrence = 1u << 13,  // recurring flag and pattern
  kAllFields = (1u << 14) - 1,
};

// The record's properties for the fields given, with the storage their strings
// and blobs point into.
struct EncodedProps {
  std::vector<CEPROPVAL> values;
  std::vector<std::unique_ptr<std::wstring>> strings;
  std::vector<std::unique_ptr<std::string>> blobs;
};

// Record <-> values (poom_task_record.cpp). Properties of an unexpected type
// are left out of the values.
void DecodeTask(const CEPROPVAL* begin, const CEPROPVAL* end, TaskValues* out);
void EncodeTask(const TaskValues& values, unsigned fields, EncodedProps* out);
// Whether a property belongs to the object model (written by EncodeTask).
bool IsModelProperty(CEPROPID propid);

// Turns a reminder instant into minutes before the due date (when there is one)
// or the start date.
void SettleReminder(TaskValues* values, DATE reminder);

class TaskItem final : public ITask {
 public:
  TaskItem(std::shared_ptr<Session> session, CEOID oid, const TaskValues& values);

  ULONG AddRef() override;
  ULONG Release() override;

  HRESULT get_Subject(BSTR* value) override;
  HRESULT put_Subject(LPCWSTR value) override;
  HRESULT get_Body(BSTR* value) override;
  HRESULT put_Body(LPCWSTR value) override;
  HRESULT get_Categories(BSTR* value) override;
  HRESULT put_Categories(LPCWSTR value) override;
  HRESULT get_ReminderSoundFile(BSTR* value) override;
  HRESULT put_ReminderSoundFile(LPCWSTR value) override;
  HRESULT get_StartDate(DATE* value) override;
  HRESULT put_StartDate(DATE value) override;
  HRESULT get_DueDate(DATE* value) override;
  HRESULT put_DueDate(DATE value) override;
  HRESULT get_DateCompleted(DATE* value) override;
  HRESULT put_DateCompleted(DATE value) override;
  HRESULT get_ReminderTime(DATE* value) override;
  HRESULT put_ReminderTime(DATE value) override;
  HRESULT get_Complete(VARIANT_BOOL* value) override;
  HRESULT put_Complete(VARIANT_BOOL value) override;
  HRESULT get_Importance(LONG* value) override;
  HRESULT put_Importance(LONG value) override;
  HRESULT get_Sensitivity(LONG* value) override;
  HRESULT put_Sensitivity(LONG value) override;
  HRESULT get_TeamTask(VARIANT_BOOL* value) override;
  HRESULT put_TeamTask(VARIANT_BOOL value) override;
  HRESULT get_ReminderSet(VARIANT_BOOL* value) override;
  HRESULT put_ReminderSet(VARIANT_BOOL value) override;
  HRESULT get_ReminderOptions(LONG* value) override;
  HRESULT put_ReminderOptions(LONG value) override;

  HRESULT Save() override;
  HRESULT Delete() override;
  HRESULT Copy(ITask** copy) override;
  HRESULT get_Oid(CEOID* oid) override;

  HRESULT get_IsRecurring(VARIANT_BOOL* value) override;
  HRESULT GetRecurrencePattern(IRecurrencePattern** pattern) override;
  HRESULT ClearRecurrencePattern() override;

  // For the pattern object: the item's pattern, changed through Touch.
  const RecurrencePattern& pattern() const { return values_.pattern; }
  RecurrencePattern& ChangePattern() {
    changed_ |= kFieldRecurrence;
    return values_.pattern;
  }

 private:
  ~TaskItem() = default;

  // The reminder instant: the one put since the last save, else the minutes
  // counted back from the base date.
  DATE ReminderTime() const;
  // Turns a reminder instant put since the last save into minutes and base.
  void SettleReminder();
  // Save's checks; S_OK or the refusal.
  HRESULT Validate() const;
  // Writes the fields given into record oid (0: a new record).
  HRESULT WriteFields(CEOID oid, const TaskValues& values, unsigned fields, CEOID* written);
  // Copies the record's properties that are not the object model's (except the
  // notification handle) from this item's record to record `to`.
  HRESULT CopyForeignProperties(CEOID to);
  // The handle of the reminder notification the record names, or 0.
  DWORD NotificationHandle() const;
  // Completes the current occurrence as a task of its own and moves the series.
  HRESULT CompleteOccurrence();
  bool RecursAgain() const;

  std::atomic<ULONG> refs_{1};
  std::shared_ptr<Session> session_;
  CEOID oid_;
  TaskValues values_;
  unsigned changed_ = 0;
  DATE pending_reminder_ = kNoDate;  // put since the last save
  bool has_pending_reminder_ = false;
};

// A pattern object over an item (poom_pattern.cpp); holds a reference to it.
IRecurrencePattern* NewPatternObject(TaskItem* item);

}  // namespace velmo::poom
