// The task store: loading the table of 2,550 tasks made by the demo maker,
// against reading the same records' bytes with one SQLite statement; the
// after-synchronisation pass over 100,000 tasks, unchanged and after a change
// to every reminder.
#include <benchmark/benchmark.h>
#include <sqlite3.h>
#include <stdlib.h>

#include <cmath>
#include <cwchar>
#include <filesystem>
#include <string>

#include "cli/demo_tasks.h"
#include "platform/cedb.h"
#include "platform/clock.h"
#include "platform/device.h"
#include "platform/registry.h"
#include "settings/settings.h"
#include "store/after_sync.h"
#include "store/connection.h"
#include "store/store_session.h"
#include "store/task_props.h"
#include "store/task_table.h"

namespace {

using namespace velmo;

constexpr wchar_t kPassVolume[] = L"\\IPSM\\pass100k.vol";
constexpr int kPassTasks = 100000;

void MakeRoot() {
  static const bool made = [] {
    std::string pattern = (std::filesystem::temp_directory_path() / "velmo-store-bench-XXXXXX").string();
    static const std::filesystem::path root = mkdtemp(pattern.data());
    device::SetRoot(root);
    setenv("VELMO_ROOT", root.c_str(), 1);
    std::atexit([] { std::filesystem::remove_all(root); });
    SetProgramFilePath(L"/usr/bin/velmo-todo");
    return cedb::EnsureDeviceVolume();
  }();
  benchmark::DoNotOptimize(made);
}

// The default device with 2,550 demo tasks, the store's connection open on it.
void OpenDemoDevice() {
  static const bool filled = [] {
    MakeRoot();
    LoadSettings();
    OpenTasksDatabaseHandle(nullptr, false, 0);
    LogOnObjectModel(nullptr);
    cli::DemoTaskMaker maker(2550, std::trunc(NowAsDate()));
    cedb::BeginWriteBatch(&Store().volume);
    for (int i = 0; i < 2550; ++i) cli::SaveDemoTask(maker.Next(), Store().app);
    cedb::EndWriteBatch(&Store().volume);
    Store().reload = true;
    LoadTaskTable();  // the first load after the change does the reminder checks
    return true;
  }();
  benchmark::DoNotOptimize(filled);
}

void BM_LoadTaskTable2550(benchmark::State& state) {
  OpenDemoDevice();
  for (auto _ : state) {
    Store().reload = true;
    LoadTaskTable();
    benchmark::DoNotOptimize(Tasks().size());
  }
  state.counters["tasks"] = static_cast<double>(Tasks().size());
  FreeTaskTable();
}
BENCHMARK(BM_LoadTaskTable2550)->Unit(benchmark::kMillisecond);

// The floor: the same records' bytes, one statement, nothing decoded.
void BM_RawSqliteRead2550(benchmark::State& state) {
  OpenDemoDevice();
  sqlite3* db = nullptr;
  const std::string file = device::MapPlatformPath(cedb::kDefaultVolumePath).string();
  sqlite3_open_v2(file.c_str(), &db, SQLITE_OPEN_READONLY, nullptr);
  sqlite3_stmt* stmt = nullptr;
  sqlite3_prepare_v2(db, "SELECT oid, props FROM records WHERE db=?1 ORDER BY oid", -1, &stmt, nullptr);
  sqlite3_bind_int64(stmt, 1, Store().tasks_db_oid);
  for (auto _ : state) {
    size_t bytes = 0;
    while (sqlite3_step(stmt) == SQLITE_ROW) {
      const void* data = sqlite3_column_blob(stmt, 1);
      bytes += static_cast<size_t>(sqlite3_column_bytes(stmt, 1)) + (data != nullptr);
    }
    sqlite3_reset(stmt);
    benchmark::DoNotOptimize(bytes);
  }
  sqlite3_finalize(stmt);
  sqlite3_close(db);
}
BENCHMARK(BM_RawSqliteRead2550)->Unit(benchmark::kMillisecond);

// The pass's device: a second volume named by "DbPath", 100,000 tasks with
// reminders, a few in the past, most to come.
class PassVolume {
 public:
  PassVolume() {
    MakeRoot();
    CloseConnection();
    HKEY key = nullptr;
    RegCreateKeyExW(HKEY_CURRENT_USER, L"Software\\Microsoft\\Windows", 0, nullptr, 0, KEY_ALL_ACCESS,
                    nullptr, &key, nullptr);
    RegSetValueExW(key, L"DbPath", 0, REG_SZ, reinterpret_cast<const BYTE*>(kPassVolume),
                   sizeof kPassVolume);
    RegCloseKey(key);
    CeMountDBVol(&volume_, kPassVolume, CREATE_ALWAYS);
    CEDBASEINFO info{};
    info.dwFlags = CEDB_VALIDNAME;
    std::wcscpy(info.szDbaseName, cedb::kTasksDatabaseName);
    db_oid_ = CeCreateDatabaseEx(&volume_, &info);
    db_ = CeOpenDatabaseEx(&volume_, &db_oid_, nullptr, 0, 0, nullptr);
    const DATE today = std::trunc(NowAsDate());
    cedb::BeginWriteBatch(&volume_);
    for (int i = 0; i < kPassTasks; ++i) {
      const std::wstring subject = L"Renew the parking permit #" + std::to_wstring(i);
      CEPROPVAL p[7] = {{kPropSubject}, {kPropDueDate}, {kPropReminderBaseFlag}, {kPropReminderMinutes},
                        {kPropReminderSet}, {kPropReminderOptions}, {kPropNotificationHandle}};
      p[0].val.lpwstr = const_cast<wchar_t*>(subject.c_str());
      DateToFileTime(today + (i % 10 == 0 ? -3 : 1 + i % 60) + 0.375, &p[1].val.filetime);
      p[2].val.iVal = 1;
      p[3].val.lVal = 30;
      p[4].val.iVal = 1;
      p[5].val.lVal = -1;
      CeWriteRecordProps(db_, 0, 7, p);
    }
    cedb::EndWriteBatch(&volume_);
    RunAfterSyncPass();  // the notifications made once
  }

  // A synchronisation that moves every reminder by a minute.
  void ChangeEveryReminder() {
    const LONG value = 30 + (++round_ % 2);
    cedb::BeginWriteBatch(&volume_);
    for (CEOID oid = CeSeekDatabase(db_, CEDB_SEEK_BEGINNING, 0, nullptr); oid != 0;
         oid = CeSeekDatabase(db_, CEDB_SEEK_CURRENT, 1, nullptr)) {
      CEPROPVAL minutes{kPropReminderMinutes, 0, 0, {}};
      minutes.val.lVal = value;
      CeWriteRecordProps(db_, oid, 1, &minutes);
    }
    cedb::EndWriteBatch(&volume_);
  }

 private:
  CEGUID volume_{};
  CEOID db_oid_ = 0;
  HANDLE db_ = INVALID_HANDLE_VALUE;
  LONG round_ = 0;
};

PassVolume& Pass100k() {
  static PassVolume volume;
  return volume;
}

void BM_AfterSyncUnchanged100k(benchmark::State& state) {
  Pass100k();
  for (auto _ : state) RunAfterSyncPass();
}
BENCHMARK(BM_AfterSyncUnchanged100k)->Unit(benchmark::kMillisecond);

void BM_AfterSyncEveryReminderChanged100k(benchmark::State& state) {
  PassVolume& volume = Pass100k();
  for (auto _ : state) {
    state.PauseTiming();
    volume.ChangeEveryReminder();
    state.ResumeTiming();
    RunAfterSyncPass();
  }
}
BENCHMARK(BM_AfterSyncEveryReminderChanged100k)->Unit(benchmark::kMillisecond)->Iterations(3);

}  // namespace
