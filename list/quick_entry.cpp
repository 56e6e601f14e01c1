// The mode of the entry box and the task made from it.
#include "list/quick_entry.h"

#include "categories/category_names.h"
#include "store/connection.h"
#include "store/direct_writes.h"

namespace velmo {
namespace {

constexpr bool IsSet(DATE d) { return d != kNoDate; }

// Releases an item when it goes out of scope.
struct ItemRef {
  ITask* item = nullptr;
  ~ItemRef() {
    if (item) item->Release();
  }
};

}  // namespace

QuickEntryMode& CurrentQuickEntry() {
  static QuickEntryMode mode;
  return mode;
}

QuickEntryMode StartQuickEntryMode(const Settings& s, std::wstring_view filter_text) {
  QuickEntryMode m;
  m.active = true;
  m.high = s.importance_for_new == kImportanceHigh;
  m.normal = s.importance_for_new == kImportanceNormal;
  m.low = s.importance_for_new == kImportanceLow;
  m.sensitivity_private = s.sensitivity_for_new != 0;
  m.sensitivity_normal = !m.sensitivity_private;
  m.team_task = s.team_task_for_new != 0;
  m.reminder = s.reminder_for_new != 0;
  std::wstring_view categories = s.categories_for_new;
  if (s.filtered_cat_for_new && !filter_text.empty()) categories = filter_text;
  m.categories = categories.empty() ? std::wstring(kNoCategoryMarker) : std::wstring(categories);
  return m;
}

bool ApplyQuickEntryCommand(QuickEntryMode& m, UINT command) {
  switch (command) {
    case kCmdQuickHigh:
    case kCmdQuickNormal:
    case kCmdQuickLow:
      m.high = command == kCmdQuickHigh;
      m.normal = command == kCmdQuickNormal;
      m.low = command == kCmdQuickLow;
      return true;
    case kCmdQuickSensitivityNormal:
    case kCmdQuickSensitivityPrivate:
      m.sensitivity_normal = command == kCmdQuickSensitivityNormal;
      m.sensitivity_private = command == kCmdQuickSensitivityPrivate;
      return true;
    case kCmdQuickTeamTask:
      m.team_task = !m.team_task;
      return true;
    case kCmdQuickReminder:
      m.reminder = !m.reminder;
      return true;
    default:
      return false;
  }
}

bool QuickEntryChecked(const QuickEntryMode& m, UINT command) {
  switch (command) {
    case kCmdQuickHigh: return m.high;
    case kCmdQuickNormal: return m.normal;
    case kCmdQuickLow: return m.low;
    case kCmdQuickSensitivityNormal: return m.sensitivity_normal;
    case kCmdQuickSensitivityPrivate: return m.sensitivity_private;
    case kCmdQuickTeamTask: return m.team_task;
    case kCmdQuickReminder: return m.reminder;
    default: return false;
  }
}

QuickReminder QuickEntryReminder(const QuickEntryMode& m, const Settings& s) {
  QuickReminder r;
  if (!IsSet(m.due_date)) return r;
  r.set = m.reminder;
  DATE due_day = static_cast<DATE>(WholeDay(m.due_date));
  DWORD minutes = s.reminder_time_for_new;
  DATE unmoved = due_day + (minutes / 60 * 60 + minutes % 60) / 1440.0;
  DATE moved = unmoved - s.reminder_delta / 24.0;
  if (moved >= due_day) {
    r.time = due_day;
    r.pending = unmoved;
  } else {
    r.time = moved;
  }
  return r;
}

HRESULT CreateQuickTask(IPOutlookApp* app, const std::wstring& subject,
                        const QuickEntryMode& m, const Settings& s, CEOID* oid,
                        bool* save_failed) {
  if (oid) *oid = 0;
  if (save_failed) *save_failed = false;
  if (!app) return E_POINTER;
  ItemRef ref;
  HRESULT hr = app->CreateItem(olTaskItem, &ref.item);
  if (FAILED(hr) || !ref.item) return FAILED(hr) ? hr : E_FAIL;
  ITask* item = ref.item;
  item->put_Subject(subject.c_str());
  if (m.high || m.normal || m.low) {
    item->put_Importance(m.high ? olImportanceHigh : m.normal ? olImportanceNormal : olImportanceLow);
  }
  if (m.sensitivity_normal || m.sensitivity_private) {
    item->put_Sensitivity(m.sensitivity_normal ? olNormal : olPrivate);
  }
  item->put_TeamTask(m.team_task ? VARIANT_TRUE : VARIANT_FALSE);
  QuickReminder reminder = QuickEntryReminder(m, s);
  if (IsSet(m.due_date)) {
    item->put_DueDate(m.due_date);
    item->put_ReminderSet(reminder.set ? VARIANT_TRUE : VARIANT_FALSE);
    item->put_ReminderTime(reminder.time);
    Store().pending_reminder_time = reminder.pending;
  } else {
    item->put_ReminderSet(VARIANT_FALSE);
  }
  hr = item->Save();
  if (FAILED(hr)) {
    Store().pending_reminder_time = kNoDate;
    if (save_failed) *save_failed = true;
    return hr;
  }
  Store().task_saved = true;
  item->get_Oid(oid);
  WriteTaskCategories(item, m.categories.c_str(), true);
  return S_OK;
}

}  // namespace velmo
