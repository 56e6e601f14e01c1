// The look for the desktop's tel: handler that decides whether there is a
// phone: a desktop of 300 application entries and no handler, so that every
// association file and every entry is read (the worst case, paid once a start).
#include <benchmark/benchmark.h>
#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "platform/desktop_apps.h"

namespace {

constexpr int kEntries = 300;

class Desktop {
 public:
  Desktop() {
    char folder[] = "/tmp/velmo-bench-XXXXXX";
    root_ = mkdtemp(folder);
    const std::filesystem::path apps = root_ / "share" / "applications";
    std::filesystem::create_directories(apps);
    for (int i = 0; i < kEntries; ++i)
      std::ofstream(apps / ("app" + std::to_string(i) + ".desktop"))
          << "[Desktop Entry]\nType=Application\nName=App " << i << "\nExec=app" << i
          << " %U\nMimeType=text/plain;image/png;x-scheme-handler/http;\nCategories=Utility;\n";
    setenv("XDG_DATA_HOME", (root_ / "home").c_str(), 1);
    setenv("XDG_DATA_DIRS", (root_ / "share").c_str(), 1);
    setenv("XDG_CONFIG_HOME", (root_ / "config").c_str(), 1);
    setenv("XDG_CONFIG_DIRS", (root_ / "etc").c_str(), 1);
  }
  ~Desktop() { std::filesystem::remove_all(root_); }

 private:
  std::filesystem::path root_;
};

void BM_TelHandlerNotFoundAmongEntries(benchmark::State& state) {
  Desktop desktop;
  for (auto _ : state) benchmark::DoNotOptimize(velmo::shell::DefaultApplication("x-scheme-handler/tel"));
  state.counters["entries"] = kEntries;
}
BENCHMARK(BM_TelHandlerNotFoundAmongEntries)->Unit(benchmark::kMillisecond);

}  // namespace
