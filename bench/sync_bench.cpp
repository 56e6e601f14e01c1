// The synchronisation bridge on 2,550 demo tasks: the first export into an
// empty folder, a run with nothing changed on either side, and the import of
// 10,000 task files into an empty device.
#include <benchmark/benchmark.h>
#include <stdlib.h>

#include <cmath>
#include <cstdio>
#include <filesystem>

#include "cli/demo_tasks.h"
#include "platform/cedb.h"
#include "platform/clock.h"
#include "platform/device.h"
#include "settings/settings.h"
#include "store/connection.h"
#include "store/store_session.h"
#include "sync/bridge.h"
#include "sync/folder_files.h"
#include "sync/sync_state.h"
#include "sync/task_records.h"
#include "sync/todo.h"

namespace {

using namespace velmo;
namespace fs = std::filesystem;

fs::path NewRoot(const char* name) {
  std::string pattern = (fs::temp_directory_path() / (std::string("velmo-sync-bench-") + name + "-XXXXXX")).string();
  const fs::path root = mkdtemp(pattern.data());
  device::SetRoot(root);
  return root;
}

// Opens a fresh device's store; fills it with `demo` demo tasks.
void OpenDevice(const fs::path& root, int demo) {
  device::SetRoot(root);
  cedb::EnsureDeviceVolume();
  SetProgramFilePath(L"/usr/bin/velmo-todo");
  LoadSettings();
  OpenTasksDatabaseHandle(nullptr, false, 0);
  if (demo == 0) return;
  LogOnObjectModel(nullptr);
  cli::DemoTaskMaker maker(2550, std::trunc(NowAsDate()));
  cedb::BeginWriteBatch(&Store().volume);
  for (int i = 0; i < demo; ++i) cli::SaveDemoTask(maker.Next(), Store().app);
  cedb::EndWriteBatch(&Store().volume);
}

sync::TasksDatabase Tasks() { return {Store().volume, Store().tasks_db, Store().tasks_db_oid}; }

void Forget(const fs::path& folder) {
  fs::remove_all(folder);
  fs::create_directories(folder);
  fs::remove(sync::StateFile());
}

void BM_FirstExport2550(benchmark::State& state) {
  const fs::path root = NewRoot("export");
  OpenDevice(root, 2550);
  const fs::path folder = root / "tasks";
  for (auto _ : state) {
    state.PauseTiming();
    Forget(folder);
    state.ResumeTiming();
    sync::BridgeReport report;
    sync::RunBridge(Tasks(), folder, &report);
    if (report.to_folder != 2550) state.SkipWithError("not every task was written");
  }
  CloseConnection();
  fs::remove_all(root);
}
BENCHMARK(BM_FirstExport2550)->Unit(benchmark::kMillisecond)->Iterations(3);

void BM_UnchangedRun2550(benchmark::State& state) {
  const fs::path root = NewRoot("idle");
  OpenDevice(root, 2550);
  const fs::path folder = root / "tasks";
  fs::create_directories(folder);
  sync::BridgeReport first;
  sync::RunBridge(Tasks(), folder, &first);
  sync::RunBridge(Tasks(), folder, &first);
  for (auto _ : state) {
    sync::BridgeReport report;
    sync::RunBridge(Tasks(), folder, &report);
    if (report.to_folder + report.to_database) state.SkipWithError("something changed");
  }
  CloseConnection();
  fs::remove_all(root);
}
BENCHMARK(BM_UnchangedRun2550)->Unit(benchmark::kMillisecond);

void BM_Import10000Files(benchmark::State& state) {
  const fs::path source = NewRoot("files");
  const fs::path folder = source / "tasks";
  fs::create_directories(folder);
  for (int i = 0; i < 10000; ++i) {
    poom::TaskValues v;
    v.subject = L"Imported task " + std::to_wstring(i);
    v.due = MakeDate(2031, 1 + i % 12, 1 + i % 28);
    v.categories = i % 3 ? L"Home" : L"Work,Calls";
    v.importance = i % 3;
    const std::string uid = "task-" + std::to_string(i);
    sync::FileStamp stamp;
    std::string error;
    sync::WriteTaskFile(folder, uid + ".ics", sync::WriteTodo("", {}, v, uid), &stamp, &error);
  }
  for (auto _ : state) {
    state.PauseTiming();
    const fs::path root = NewRoot("import");
    OpenDevice(root, 0);
    state.ResumeTiming();
    sync::BridgeReport report;
    sync::RunBridge(Tasks(), folder, &report);
    if (report.to_database != 10000) state.SkipWithError("not every file was imported");
    state.PauseTiming();
    CloseConnection();
    fs::remove_all(root);
    state.ResumeTiming();
  }
  fs::remove_all(source);
}
BENCHMARK(BM_Import10000Files)->Unit(benchmark::kMillisecond)->Iterations(2);

}  // namespace
