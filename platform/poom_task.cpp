// The task item's reference count, getters and setters.
#include <cmath>

#include "platform/clock.h"
#include "platform/oletime.h"
#include "platform/poom_recurrence.h"
#include "platform/poom_task.h"

namespace velmo::poom {
namespace {

HRESULT GetText(const std::wstring& text, BSTR* out) {
  if (!out) return E_POINTER;
  *out = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
  return *out ? S_OK : E_OUTOFMEMORY;
}

template <typename T>
HRESULT Get(const T& value, T* out) {
  if (!out) return E_POINTER;
  *out = value;
  return S_OK;
}

HRESULT GetFlag(bool value, VARIANT_BOOL* out) {
  if (!out) return E_POINTER;
  *out = value ? VARIANT_TRUE : VARIANT_FALSE;
  return S_OK;
}

// A date the platform can hold, or no date.
bool ValidDate(DATE date) {
  SYSTEMTIME unused;
  return date == kNoDate || VariantTimeToSystemTime(date, &unused);
}

}  // namespace

TaskItem::TaskItem(std::shared_ptr<Session> session, CEOID oid, const TaskValues& values)
    : session_(std::move(session)), oid_(oid), values_(values),
      changed_(oid == 0 ? static_cast<unsigned>(kAllFields) : 0u) {}

ULONG TaskItem::AddRef() { return ++refs_; }

ULONG TaskItem::Release() {
  const ULONG left = --refs_;
  if (left == 0) delete this;
  return left;
}

#define VELMO_TEXT_PROPERTY(Name, member, field)                 \
  HRESULT TaskItem::get_##Name(BSTR* value) { return GetText(values_.member, value); } \
  HRESULT TaskItem::put_##Name(LPCWSTR value) {                  \
    values_.member = value ? value : L"";                        \
    changed_ |= field;                                           \
    return S_OK;                                                 \
  }

VELMO_TEXT_PROPERTY(Subject, subject, kFieldSubject)
VELMO_TEXT_PROPERTY(Body, body, kFieldBody)
VELMO_TEXT_PROPERTY(Categories, categories, kFieldCategories)
VELMO_TEXT_PROPERTY(ReminderSoundFile, sound, kFieldSound)
#undef VELMO_TEXT_PROPERTY

#define VELMO_DATE_PROPERTY(Name, member, field)                      \
  HRESULT TaskItem::get_##Name(DATE* value) { return Get(values_.member, value); } \
  HRESULT TaskItem::put_##Name(DATE value) {                          \
    if (!ValidDate(value)) return E_INVALIDARG;                       \
    values_.member = value;                                           \
    changed_ |= field;                                                \
    return S_OK;                                                      \
  }

VELMO_DATE_PROPERTY(StartDate, start, kFieldStart)
VELMO_DATE_PROPERTY(DueDate, due, kFieldDue)
VELMO_DATE_PROPERTY(DateCompleted, completed, kFieldCompleted)
#undef VELMO_DATE_PROPERTY

HRESULT TaskItem::get_ReminderTime(DATE* value) { return Get(ReminderTime(), value); }

HRESULT TaskItem::put_ReminderTime(DATE value) {
  if (!ValidDate(value)) return E_INVALIDARG;
  pending_reminder_ = value;
  has_pending_reminder_ = true;
  changed_ |= kFieldReminderTime;
  return S_OK;
}

DATE TaskItem::ReminderTime() const {
  if (has_pending_reminder_) return pending_reminder_;
  const DATE base = values_.reminder_from_due ? values_.due : values_.start;
  if (values_.reminder_from_due && base == kNoDate) return kNoDate;
  return base - values_.reminder_minutes / 1440.0;
}

void SettleReminder(TaskValues* values, DATE reminder) {
  values->reminder_from_due = values->due != kNoDate;
  if (reminder == kNoDate) {
    values->reminder_minutes = 0;
    return;
  }
  const DATE base = values->reminder_from_due ? values->due : values->start;
  const double minutes = std::round((base - reminder) * 1440.0);
  values->reminder_minutes =
      static_cast<LONG>(std::fmax(-2147483647.0, std::fmin(2147483647.0, minutes)));
}

void TaskItem::SettleReminder() {
  if (!has_pending_reminder_) return;
  poom::SettleReminder(&values_, pending_reminder_);
  has_pending_reminder_ = false;
  changed_ |= kFieldReminderTime;
}

HRESULT TaskItem::get_Complete(VARIANT_BOOL* value) { return GetFlag(values_.complete, value); }

HRESULT TaskItem::put_Complete(VARIANT_BOOL value) {
  const bool complete = value != VARIANT_FALSE;
  if (complete == values_.complete) return S_OK;
  values_.complete = complete;
  values_.completed = complete ? static_cast<DATE>(WholeDay(NowAsDate())) : kNoDate;
  changed_ |= kFieldCompleted;
  return S_OK;
}

HRESULT TaskItem::get_Importance(LONG* value) { return Get(values_.importance, value); }

HRESULT TaskItem::put_Importance(LONG value) {
  if (value != olImportanceLow && value != olImportanceNormal && value != olImportanceHigh)
    return E_INVALIDARG;
  values_.importance = value;
  changed_ |= kFieldImportance;
  return S_OK;
}

HRESULT TaskItem::get_Sensitivity(LONG* value) { return Get(values_.sensitivity, value); }

HRESULT TaskItem::put_Sensitivity(LONG value) {
  if (value != olNormal && value != olPrivate) return E_INVALIDARG;
  values_.sensitivity = value;
  changed_ |= kFieldSensitivity;
  return S_OK;
}

HRESULT TaskItem::get_TeamTask(VARIANT_BOOL* value) { return GetFlag(values_.team, value); }

HRESULT TaskItem::put_TeamTask(VARIANT_BOOL value) {
  values_.team = value != VARIANT_FALSE;
  changed_ |= kFieldTeam;
  return S_OK;
}

HRESULT TaskItem::get_ReminderSet(VARIANT_BOOL* value) {
  return GetFlag(values_.reminder_set, value);
}

HRESULT TaskItem::put_ReminderSet(VARIANT_BOOL value) {
  values_.reminder_set = value != VARIANT_FALSE;
  changed_ |= kFieldReminderSet;
  return S_OK;
}

HRESULT TaskItem::get_ReminderOptions(LONG* value) { return Get(values_.options, value); }

HRESULT TaskItem::put_ReminderOptions(LONG value) {
  values_.options = value;
  changed_ |= kFieldOptions;
  return S_OK;
}

HRESULT TaskItem::get_Oid(CEOID* oid) { return Get(oid_, oid); }

HRESULT TaskItem::get_IsRecurring(VARIANT_BOOL* value) {
  return GetFlag(values_.recurring, value);
}

HRESULT TaskItem::GetRecurrencePattern(IRecurrencePattern** pattern) {
  if (!pattern) return E_POINTER;
  if (!values_.recurring) {
    RecurrencePattern fresh;
    const DATE base = values_.start != kNoDate ? values_.start
                      : values_.due != kNoDate ? values_.due
                                               : static_cast<DATE>(WholeDay(NowAsDate()));
    fresh.PatternStartDate = static_cast<DATE>(WholeDay(base));
    values_.pattern = fresh;
    values_.recurring = true;
    changed_ |= kFieldRecurrence;
  }
  *pattern = NewPatternObject(this);
  return *pattern ? S_OK : E_OUTOFMEMORY;
}

HRESULT TaskItem::ClearRecurrencePattern() {
  if (values_.recurring) changed_ |= kFieldRecurrence;
  values_.recurring = false;
  values_.pattern = RecurrencePattern{};
  return S_OK;
}

bool TaskItem::RecursAgain() const {
  if (!values_.recurring) return false;
  const LONG occurrences = CountOccurrences(values_.pattern, 2);
  return occurrences == kUnlimitedOccurrences || occurrences >= 2;
}

}  // namespace velmo::poom
