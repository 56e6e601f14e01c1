// The object model and user notifications: saving a new task and saving a
// change through ITask, reading an item by identifier, counting the occurrences
// of a pattern, and making notifications one call at a time and in a batch.
#include <benchmark/benchmark.h>
#include <stdlib.h>

#include <filesystem>
#include <string>

#include "platform/device.h"
#include "platform/notify.h"
#include "platform/notify_store.h"
#include "platform/oletime.h"
#include "platform/poom.h"
#include "platform/poom_recurrence.h"

namespace {

// A fresh device root for each benchmark, removed afterwards.
class BenchRoot {
 public:
  BenchRoot() {
    std::string pattern = (std::filesystem::temp_directory_path() / "velmo-bench-XXXXXX").string();
    path_ = mkdtemp(pattern.data());
    velmo::device::SetRoot(path_);
  }
  ~BenchRoot() { std::filesystem::remove_all(path_); }

 private:
  std::filesystem::path path_;
};

IPOutlookApp* LoggedOn() {
  IPOutlookApp* app = nullptr;
  CreatePOutlookApp(&app);
  app->Logon(nullptr);
  return app;
}

CEOID SaveNew(IPOutlookApp* app, int n) {
  ITask* item = nullptr;
  app->CreateItem(olTaskItem, &item);
  const DATE due = velmo::MakeDate(2025, 9, 1) + n % 300;
  item->put_Subject((L"Renew the parking permit #" + std::to_wstring(n)).c_str());
  item->put_Body(L"Bring the old permit, the car papers and 30 \u20ac.\r\nOffice opens at 8.");
  item->put_StartDate(due - 3);
  item->put_DueDate(due);
  item->put_ReminderSet(VARIANT_TRUE);
  item->put_ReminderTime(due - 1.0 / 24);
  item->Save();
  CEOID oid = 0;
  item->get_Oid(&oid);
  item->Release();
  return oid;
}

void BM_SaveNewTask(benchmark::State& state) {
  BenchRoot root;
  IPOutlookApp* app = LoggedOn();
  int n = 0;
  for (auto _ : state) benchmark::DoNotOptimize(SaveNew(app, n++));
  app->Release();
}
BENCHMARK(BM_SaveNewTask)->Unit(benchmark::kMicrosecond);

void BM_GetChangeSave(benchmark::State& state) {
  BenchRoot root;
  IPOutlookApp* app = LoggedOn();
  const CEOID oid = SaveNew(app, 1);
  LONG importance = 0;
  for (auto _ : state) {
    ITask* item = nullptr;
    app->GetItemFromOid(oid, &item);
    item->put_Importance(importance++ % 3);
    benchmark::DoNotOptimize(item->Save());
    item->Release();
  }
  app->Release();
}
BENCHMARK(BM_GetChangeSave)->Unit(benchmark::kMicrosecond);

void BM_CountOccurrences(benchmark::State& state) {
  velmo::RecurrencePattern p;
  p.RecurrenceType = velmo::kRecursWeekly;
  p.DayOfWeekMask = velmo::WeekdayBit(1) | velmo::WeekdayBit(4);
  p.PatternStartDate = velmo::MakeDate(2025, 1, 1);
  p.PatternEndDate = p.PatternStartDate + static_cast<double>(state.range(0)) * 7 / 2;
  p.NoEndDate = FALSE;
  for (auto _ : state) benchmark::DoNotOptimize(velmo::poom::CountOccurrences(p));
}
BENCHMARK(BM_CountOccurrences)->Arg(10)->Arg(999)->Unit(benchmark::kMicrosecond);

HANDLE SetNotification(int n) {
  std::wstring app = L"/usr/bin/velmo-todo", args = std::to_wstring(n), title = L"Velmo ToDo List",
               text = L"Renew the parking permit\r\n01/09/2025", sound = L"reminder";
  const SYSTEMTIME at = {2030, 1, 0, 1, 9, 0, 0, 0};
  CE_NOTIFICATION_TRIGGER trigger = {kPlatformTriggerSize, CNT_TIME, 0, app.data(), args.data(), at, at};
  CE_USER_NOTIFICATION user = {13, title.data(), text.data(), sound.data(), 8, 0};
  return CeSetUserNotificationEx(nullptr, &trigger, &user);
}

void BM_SetNotification(benchmark::State& state) {
  BenchRoot root;
  int n = 0;
  for (auto _ : state) benchmark::DoNotOptimize(SetNotification(n++));
}
BENCHMARK(BM_SetNotification)->Unit(benchmark::kMicrosecond);

// 1,000 notifications in one batch, per batch.
void BM_SetNotificationsInABatch(benchmark::State& state) {
  BenchRoot root;
  int n = 0;
  for (auto _ : state) {
    velmo::notify::BeginStoreBatch();
    for (int i = 0; i < 1000; ++i) benchmark::DoNotOptimize(SetNotification(n++));
    velmo::notify::EndStoreBatch();
  }
}
BENCHMARK(BM_SetNotificationsInABatch)->Unit(benchmark::kMillisecond);

}  // namespace
