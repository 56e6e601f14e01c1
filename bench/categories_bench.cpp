// The category work of a list rebuild over a full task table (2,550 tasks):
// the filter test for every task, and the use marks plus the Filter menu; and
// parsing a categories string of the largest catalogue.
#include <benchmark/benchmark.h>

#include <string>

#include "categories/category_filter.h"
#include "categories/category_state.h"
#include "categories/filter_menu.h"

namespace {

// Tasks with none, one or a few of 40 categories, as a real table has them.
velmo::TaskTable MakeTable() {
  velmo::TaskTable tasks;
  for (size_t i = 0; i < velmo::kMaxTasks; ++i) {
    auto task = std::make_unique<velmo::Task>();
    task->oid = static_cast<CEOID>(i + 1);
    for (size_t k = 0; k < i % 4; ++k)
      task->categories += (k ? L"," : L"") + std::wstring(L"Category ") + std::to_wstring((i * 7 + k) % 40);
    tasks.push_back(std::move(task));
  }
  return tasks;
}

void BM_TaskPassesFilter(benchmark::State& state) {
  const velmo::TaskTable tasks = MakeTable();
  velmo::InitCategories(0, L"Category 3,<NoCat>", L"");
  for (auto _ : state) {
    int shown = 0;
    for (const auto& t : tasks) shown += velmo::TaskPassesFilter(*t);
    benchmark::DoNotOptimize(shown);
  }
}
BENCHMARK(BM_TaskPassesFilter)->Unit(benchmark::kMicrosecond);

void BM_RebuildFilterMenu(benchmark::State& state) {
  const velmo::TaskTable tasks = MakeTable();
  velmo::InitCategories(0, L"Category 3", L"");
  for (auto _ : state) benchmark::DoNotOptimize(velmo::RebuildFilterMenu(tasks).next_command);
}
BENCHMARK(BM_RebuildFilterMenu)->Unit(benchmark::kMicrosecond);

void BM_ParseFullCatalogue(benchmark::State& state) {
  std::wstring text;
  for (int i = 0; i < velmo::kMaxCategories; ++i) text += L"Name " + std::to_wstring(i * 7919 % 1000) + L",";
  for (auto _ : state) {
    velmo::CategoryList list;
    benchmark::DoNotOptimize(velmo::ParseCategories(list, text, velmo::InFilter, true));
  }
}
BENCHMARK(BM_ParseFullCatalogue)->Unit(benchmark::kMicrosecond);

}  // namespace
