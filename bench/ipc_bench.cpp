// The hand-over channel: one synchronous WM_COPYDATA from a second instance to
// the running one, and the mutex check every start begins with.
#include <benchmark/benchmark.h>
#include <poll.h>
#include <stdlib.h>

#include <atomic>
#include <filesystem>
#include <thread>
#include <vector>

#include "platform/device.h"
#include "platform/ipc.h"

namespace {

struct TempRuntime {
  std::filesystem::path dir;
  TempRuntime() {
    std::string pattern = (std::filesystem::temp_directory_path() / "velmo-bench-XXXXXX").string();
    dir = mkdtemp(pattern.data());
    velmo::device::SetRoot(dir / "root");
    setenv("XDG_RUNTIME_DIR", dir.c_str(), 1);
  }
  ~TempRuntime() { std::filesystem::remove_all(dir); }
};

void BM_CopyDataRoundTrip(benchmark::State& state) {
  TempRuntime runtime;
  velmo::ipc::Listener listener;
  if (!listener.Open(L"Velmo ToDo List")) {
    state.SkipWithError("cannot listen");
    return;
  }
  std::atomic<bool> stop{false};
  std::thread receiver([&] {
    velmo::ipc::Handlers handlers;
    handlers.copy_data = [](ULONG_PTR, DWORD size, const BYTE*) -> LRESULT { return size; };
    while (!stop) {
      std::vector<pollfd> fds;
      for (const int fd : listener.WatchedFds()) fds.push_back({fd, POLLIN, 0});
      if (poll(fds.data(), fds.size(), 20) > 0) listener.Service(handlers);
    }
  });
  HWND window = FindWindowW(L"Velmo ToDo List", nullptr);
  char16_t payload[11] = u"1234567890";
  COPYDATASTRUCT record{0, 20, payload};
  for (auto _ : state) {
    benchmark::DoNotOptimize(
        velmo::ipc::SendMessageW(window, WM_COPYDATA, 0, reinterpret_cast<LPARAM>(&record)));
  }
  stop = true;
  receiver.join();
}
BENCHMARK(BM_CopyDataRoundTrip)->Unit(benchmark::kMicrosecond);

void BM_CreateMutexWhileHeld(benchmark::State& state) {
  TempRuntime runtime;
  HANDLE first = CreateMutexW(nullptr, FALSE, L"_VELMO_TODO_MUTEX_");
  for (auto _ : state) {
    HANDLE second = CreateMutexW(nullptr, FALSE, L"_VELMO_TODO_MUTEX_");
    CloseHandle(second);
  }
  CloseHandle(first);
}
BENCHMARK(BM_CreateMutexWhileHeld)->Unit(benchmark::kMicrosecond);

}  // namespace
