#include "store/welcome_task.h"

#include <cmath>

#include "platform/clock.h"
#include "platform/registry.h"
#include "res/strings.h"
#include "settings/settings.h"

namespace velmo {
namespace {

constexpr wchar_t kWelcomeValue[] = L"WelcomeTask";
constexpr UINT kWelcomeSubject = 816;
constexpr UINT kWelcomeNotes = 817;
constexpr double kWelcomeDays = 15;

bool IsFirstRun(HKEY key) {
  DWORD type = 0, size = 0;
  return RegQueryValueExW(key, kWelcomeValue, nullptr, &type, nullptr, &size) ==
         ERROR_FILE_NOT_FOUND;
}

CEOID SaveWelcomeTask(IPOutlookApp* app) {
  ITask* task = nullptr;
  if (FAILED(app->CreateItem(olTaskItem, &task)) || !task) return 0;
  const DATE today = std::trunc(NowAsDate());
  CEOID oid = 0;
  task->put_Subject(res::Text(kWelcomeSubject).c_str());
  task->put_Body(res::Text(kWelcomeNotes).c_str());
  task->put_StartDate(today);
  task->put_DueDate(today + kWelcomeDays);
  task->put_ReminderSet(VARIANT_FALSE);
  if (SUCCEEDED(task->Save())) task->get_Oid(&oid);
  task->Release();
  return oid;
}

}  // namespace

CEOID MakeWelcomeTaskOnFirstRun(IPOutlookApp* app) {
  HKEY key = nullptr;
  if (!app || RegCreateKeyExW(HKEY_CURRENT_USER, kSettingsKey, 0, nullptr, REG_OPTION_NON_VOLATILE,
                              KEY_ALL_ACCESS, nullptr, &key, nullptr) != ERROR_SUCCESS)
    return 0;
  CEOID oid = 0;
  if (IsFirstRun(key)) {
    oid = SaveWelcomeTask(app);
    const DWORD value = oid;
    RegSetValueExW(key, kWelcomeValue, 0, REG_DWORD, reinterpret_cast<const BYTE*>(&value),
                   sizeof value);
  }
  RegCloseKey(key);
  return oid;
}

}  // namespace velmo
