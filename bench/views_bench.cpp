// Rebuilding one view of a full table: every task judged against one moment,
// then the rows sorted, as the list does after every change. Arguments: the
// view, a two-category filter or none, and a first sort (no collation key kept
// from an earlier one) or a repeated one.
#include <benchmark/benchmark.h>

#include <random>

#include "categories/category_state.h"
#include "list/collation_key_cache.h"
#include "list/list_state.h"
#include "list/view_ids.h"
#include "list/view_rows.h"
#include "platform/locale.h"
#include "platform/oletime.h"
#include "settings/settings.h"
#include "store/task.h"

namespace {

using velmo::Task;
using velmo::TaskTable;

constexpr const wchar_t* kSubjects[] = {
    L"Call the plumber about the boiler", L"Buy milk", L"Quarterly report",
    L"Renew passport", L"Dentist appointment", L"Pay the electricity bill",
    L"Pick up dry cleaning", L"Prepare slides for Monday", L"Book flights to Lisbon",
    L"Water the plants", L"Review pull request", L"Email Anna about the budget",
    L"", L"Car service", L"Birthday present for Tom", L"Back up the laptop"};
constexpr const wchar_t* kCategories[] = {L"",         L"Work",          L"Home",
                                          L"Personal", L"Work,Personal", L"Errands, Home",
                                          L"Holiday",  L"Business,Work"};

// A table like a long-used phone's: a third undated, many overdue and done,
// reminders on a quarter, a spread of categories and priorities.
TaskTable RealisticTable(DATE today) {
  std::mt19937 rng(2550);
  auto pick = [&](int n) { return static_cast<int>(rng() % static_cast<unsigned>(n)); };
  TaskTable table;
  for (size_t i = 0; i < velmo::kMaxTasks; ++i) {
    auto t = std::make_unique<Task>();
    t->oid = static_cast<CEOID>(1000 + i);
    t->subject = std::wstring(kSubjects[pick(16)]) + L" " + std::to_wstring(i % 97);
    t->categories = kCategories[pick(8)];
    t->importance = pick(3);
    t->sensitivity = pick(10) == 0 ? velmo::kSensitivityPrivate : velmo::kSensitivityNormal;
    if (pick(3) != 0) {
      t->due_date = today + pick(120) - 60;
      if (pick(2) == 0) t->start_date = t->due_date - pick(10);
    }
    if (pick(4) == 0) {
      t->reminder_set = 1;
      t->reminder_time = (t->due_date != kNoDate ? t->due_date : today + pick(20) - 5) +
                         (8 + pick(10)) / 24.0;
    }
    if (pick(3) == 0) {
      t->complete = 1;
      t->date_completed = today - pick(90);
    }
    table.push_back(std::move(t));
  }
  return table;
}

void BM_RebuildView(benchmark::State& state) {
  velmo::locale::ScopedLocale locale("en_US");
  velmo::CurrentSettings() = velmo::Settings{};
  velmo::SetCategoryFilter(state.range(1) ? L"Work,Home" : L"");
  velmo::CurrentListState().view = 0;
  velmo::SetView(static_cast<UINT>(state.range(0)));
  const DATE now = velmo::MakeDate(2024, 5, 15, 10, 30);
  const TaskTable table = RealisticTable(velmo::MakeDate(2024, 5, 15));
  const bool cold = state.range(2) != 0;  // no collation key kept from an earlier sort
  size_t rows = 0;
  for (auto _ : state) {
    if (cold) velmo::ForgetCollationKeys();
    auto listed = velmo::SortedViewRows(table, now);
    rows = listed.size();
    benchmark::DoNotOptimize(listed.data());
  }
  state.counters["rows"] = static_cast<double>(rows);
  velmo::SetCategoryFilter(L"");
}
BENCHMARK(BM_RebuildView)
    ->ArgsProduct({{velmo::kViewAllTasks, velmo::kViewOverdue, velmo::kViewActive,
                    velmo::kViewToday, velmo::kViewUndated},
                   {0, 1},
                   {0}})
    ->Args({velmo::kViewAllTasks, 0, 1})
    ->Args({velmo::kViewOverdue, 0, 1})
    ->Unit(benchmark::kMicrosecond);

}  // namespace
