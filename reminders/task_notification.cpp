#include "reminders/task_notification.h"

#include <cwchar>
#include <string_view>

#include "platform/locale.h"
#include "platform/notify.h"
#include "res/strings.h"
#include "settings/settings.h"

namespace velmo {
namespace {

constexpr UINT kProgramTitle = 121;  // "Velmo ToDo List"
constexpr UINT kNoSubject = 197;
constexpr UINT kHighSuffix = 821;
constexpr UINT kLowSuffix = 822;

constexpr LONG kDefaultOptions = PUN_LED | PUN_DIALOG | PUN_SOUND;  // 13
constexpr wchar_t kDefaultSound[] = L"reminder";
constexpr double kNotificationSpan = 0.05;  // days the notification stays up: 72 minutes

// The platform's own task program, whose notifications are not ours to reuse.
constexpr std::wstring_view kForeignApplications[] = {L"TASK.EXE", L"TASKS.EXE"};

std::wstring ShortDate(DATE date) {
  SYSTEMTIME st{};
  if (!VariantTimeToSystemTime(date, &st)) return {};
  wchar_t buffer[80];
  const int n = GetDateFormatW(LOCALE_USER_DEFAULT, DATE_SHORTDATE, &st, nullptr, buffer, 80);
  return n > 0 ? std::wstring(buffer, n - 1) : std::wstring();
}

// A dash between two dates that are written with dashes would read as one date.
const wchar_t* RangeSeparator() {
  wchar_t separator[8] = L"";
  GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDATE, separator, 8);
  return std::wstring_view(separator) == L"-" ? L"/" : L"-";
}

}  // namespace

std::wstring ReminderText(const Task& task) {
  std::wstring text = task.subject.empty() ? res::Text(kNoSubject) : task.subject;
  text += L"\r\n";
  if (task.start_date != kNoDate) {
    text += ShortDate(task.start_date);
    text += L' ';
    text += RangeSeparator();
    text += L' ';
  }
  text += ShortDate(task.due_date);
  if (task.importance == kImportanceHigh) text += res::Text(kHighSuffix);
  if (task.importance == kImportanceLow) text += res::Text(kLowSuffix);
  return text;
}

DWORD SetTaskNotification(Task* task) {
  const Settings& s = CurrentSettings();
  std::wstring application = s.path.empty() ? ProgramFilePath() : s.path;
  std::wstring arguments = std::to_wstring(task->oid);
  CE_NOTIFICATION_TRIGGER trigger{};
  trigger.dwSize = kPlatformTriggerSize;
  trigger.dwType = CNT_TIME;
  trigger.lpszApplication = application.data();
  trigger.lpszArguments = arguments.data();
  if (!VariantTimeToSystemTime(task->reminder_time, &trigger.stStartTime) ||
      !VariantTimeToSystemTime(task->reminder_time + kNotificationSpan, &trigger.stEndTime))
    return 0;

  if (task->reminder_options < 0) task->reminder_options = kDefaultOptions;
  if (task->reminder_sound.empty()) task->reminder_sound = kDefaultSound;
  std::wstring title = res::Text(kProgramTitle);
  std::wstring text = ReminderText(*task);
  std::wstring sound = task->reminder_sound;
  CE_USER_NOTIFICATION notification{};
  notification.ActionFlags = static_cast<DWORD>(task->reminder_options);
  notification.pwszDialogTitle = title.data();
  notification.pwszDialogText = text.data();
  notification.pwszSound = sound.data();
  notification.nMaxSound = static_cast<DWORD>(sound.size());

  const HANDLE old = notify::HandleOf(task->notification_handle);
  HANDLE made = CeSetUserNotificationEx(old, &trigger, &notification);
  if (!made && old) {
    CeClearUserNotification(old);
    made = CeSetUserNotificationEx(nullptr, &trigger, &notification);
  }
  return notify::HandleValue(made);
}

DATE NotificationTime(DWORD handle) {
  if (handle == 0) return kNoDate;
  alignas(std::max_align_t) BYTE buffer[4096];
  DWORD needed = 0;
  if (!CeGetUserNotification(notify::HandleOf(handle), sizeof buffer, &needed, buffer))
    return kNoDate;
  const auto* header = reinterpret_cast<const CE_NOTIFICATION_INFO_HEADER*>(buffer);
  const CE_NOTIFICATION_TRIGGER* trigger = header->pcent;
  if (!trigger) return kNoDate;
  const std::wstring_view application = trigger->lpszApplication ? trigger->lpszApplication : L"";
  for (const std::wstring_view foreign : kForeignApplications)
    if (application == foreign) return kNoDate;
  DATE start = kNoDate;
  return SystemTimeToVariantTime(&trigger->stStartTime, &start) ? start : kNoDate;
}

}  // namespace velmo
