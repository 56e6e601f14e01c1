// The settings store's load and save on a real registry file, as at every start.
#include <benchmark/benchmark.h>
#include <stdlib.h>

#include <filesystem>

#include "platform/device.h"
#include "settings/settings.h"

namespace {

class ScratchRoot {
 public:
  ScratchRoot() {
    std::string pattern = (std::filesystem::temp_directory_path() / "velmo-bench-XXXXXX").string();
    path_ = mkdtemp(pattern.data()) ? pattern : "/tmp/velmo-bench";
    velmo::device::SetRoot(path_);
    velmo::SetProgramFilePath(L"/usr/bin/velmo-todo");
  }
  ~ScratchRoot() { std::filesystem::remove_all(path_); }

 private:
  std::filesystem::path path_;
};

void BM_LoadSettings(benchmark::State& state) {
  ScratchRoot root;
  velmo::Settings s;
  velmo::LoadSettings(s);
  velmo::SaveSettings(s, true);
  for (auto _ : state) benchmark::DoNotOptimize(velmo::LoadSettings(s));
}
BENCHMARK(BM_LoadSettings)->Unit(benchmark::kMillisecond);

void BM_SaveSettings(benchmark::State& state) {
  ScratchRoot root;
  velmo::Settings s;
  velmo::LoadSettings(s);
  for (auto _ : state) benchmark::DoNotOptimize(velmo::SaveSettings(s, state.range(0) != 0));
}
BENCHMARK(BM_SaveSettings)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

}  // namespace
