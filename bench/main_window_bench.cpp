// The main window over a full task table (2,550 tasks) on an 80 x 24 headless
// screen: a number key that changes the view, from the key to the redrawn
// screen (the shortcut, the view's rows rebuilt and sorted, the list refilled,
// the title, the soft keys and the paint), and the list rebuilt after a change.
#include <benchmark/benchmark.h>

#include "app/commands.h"
#include "app/list_rows.h"
#include "app/main_window.h"
#include "categories/category_state.h"
#include "list/list_state.h"
#include "platform/clock.h"
#include "platform/ui/desktop.h"
#include "platform/ui/message_queue.h"
#include "platform/ui/screen_headless.h"
#include "platform/ui/virtual_keys.h"
#include "platform/ui/window.h"
#include "settings/settings.h"
#include "store/task_table.h"

namespace {

using velmo::Task;

const DATE kNow = velmo::MakeDate(2026, 5, 12, 9, 15);

// Tasks with every mix of dates, states and categories a real table has.
void FillTable() {
  velmo::TaskTable& table = velmo::Tasks();
  table.clear();
  for (size_t i = 0; i < velmo::kMaxTasks; ++i) {
    auto task = std::make_unique<Task>();
    task->oid = static_cast<CEOID>(i + 1);
    task->subject = L"Task number " + std::to_wstring(i) + L" with a longer subject";
    const DATE day = static_cast<DATE>(velmo::WholeDay(kNow)) + static_cast<double>(i % 41) - 20;
    if (i % 5) task->due_date = day;
    if (i % 3 == 0) task->start_date = day - 2;
    task->complete = i % 7 == 0;
    if (task->complete) task->date_completed = day;
    task->importance = static_cast<LONG>(i % 3);
    task->categories = i % 2 ? L"Work" : L"Home, Errands";
    table.push_back(std::move(task));
  }
}

struct MainWindowFixture {
  velmo::ScopedClock clock{kNow};
  velmo::ui::HeadlessScreen screen{80, 24};
  velmo::ui::ScopedScreen attached{&screen};
  HWND window = nullptr;

  MainWindowFixture() {
    velmo::CurrentSettings() = velmo::Settings{};
    velmo::InitCategories(0, L"", L"");
    velmo::InitListState();
    window = velmo::app::CreateMainWindow();
    FillTable();
    velmo::app::RefreshAfterViewChange(true);
    velmo::ui::PumpMessages();
  }
  ~MainWindowFixture() {
    DestroyWindow(window);
    velmo::Tasks().clear();
  }
};

void BM_MainWindowViewKey(benchmark::State& state) {
  MainWindowFixture f;
  const wchar_t keys[] = {L'1', L'5', L'4', L'7'};  // All, Completed, Active, Today
  size_t k = 0;
  for (auto _ : state) {
    const wchar_t key = keys[k++ % 4];
    f.screen.TypeKey(key, key);
    velmo::ui::PumpMessages();
  }
  state.counters["rows"] = velmo::app::RowCount();
}
BENCHMARK(BM_MainWindowViewKey)->Unit(benchmark::kMicrosecond);

void BM_MainWindowRebuild(benchmark::State& state) {
  MainWindowFixture f;
  for (auto _ : state) {
    velmo::app::RebuildList();
    velmo::ui::PumpMessages();
  }
}
BENCHMARK(BM_MainWindowRebuild)->Unit(benchmark::kMicrosecond);

}  // namespace
