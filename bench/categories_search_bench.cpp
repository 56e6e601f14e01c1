// The Categories dialog and the search, at their largest: the dialog opened in
// filter mode over a full catalogue (384 categories, each used by the loaded
// table of 2,550 tasks), from the command to its first screen and closed again;
// and a search over 2,550 tasks with 10 KB of notes each, from the reload that
// reads every record again for its marks to the sorted rows of the Search view.
#include <benchmark/benchmark.h>
#include <stdlib.h>

#include <cmath>
#include <filesystem>
#include <string>

#include "app/main_window.h"
#include "categories/category_filter.h"
#include "categories/category_state.h"
#include "categories/dialog/categories_dialog.h"
#include "list/list_state.h"
#include "list/view_commands.h"
#include "list/view_rows.h"
#include "platform/cedb.h"
#include "platform/clock.h"
#include "platform/device.h"
#include "platform/ui/desktop.h"
#include "platform/ui/message_queue.h"
#include "platform/ui/screen_headless.h"
#include "platform/ui/virtual_keys.h"
#include "platform/ui/window.h"
#include "settings/settings.h"
#include "store/connection.h"
#include "store/store_session.h"
#include "store/task_table.h"

namespace {

using namespace velmo;

std::wstring CategoryName(size_t i) { return L"Category " + std::to_wstring(i); }

void BM_CategoriesDialogOpen(benchmark::State& state) {
  ui::HeadlessScreen screen{80, 24};
  ui::ScopedScreen attached{&screen};
  CurrentSettings() = Settings{};
  InitCategories(0, L"", L"");
  InitListState();
  HWND window = app::CreateMainWindow();
  TaskTable& table = Tasks();
  table.clear();
  for (size_t i = 0; i < kMaxTasks; ++i) {
    auto task = std::make_unique<Task>();
    task->oid = static_cast<CEOID>(i + 1);
    task->subject = L"Task " + std::to_wstring(i);
    task->categories = CategoryName(i % (kMaxCategories - 1)) + L"," + CategoryName((i * 7) % (kMaxCategories - 1));
    table.push_back(std::move(task));
  }
  MarkCategoryUse(table);
  // Arg 1: the initial text is the bad input of 400 names and 10,000 characters.
  std::wstring filter;
  const size_t names = state.range(0) ? 400 : 40;
  for (size_t i = 0; i < names; ++i) filter += (i ? L"," : L"") + CategoryName(i * 9);
  if (state.range(0)) filter.resize(10000, L'x');
  for (auto _ : state) {
    screen.AddIdleStep([&screen] { screen.TypeKey(VK_ESCAPE); });
    std::wstring result;
    benchmark::DoNotOptimize(
        RunCategoriesDialog(window, kCategoriesForFilter, CategoriesOpener::kOther, filter, &result));
  }
  state.counters["categories"] = CategoryCatalogue().count();
  DestroyWindow(window);
  table.clear();
}
BENCHMARK(BM_CategoriesDialogOpen)->Arg(0)->Arg(1)->ArgName("overlong_text")->Unit(benchmark::kMillisecond);

// A device of 2,550 tasks whose notes are 10 KB of words, one task in ten
// holding the word searched for: made once, opened for each run and closed
// after it, so the benchmarks that follow in the same process find no database
// of this one still open.
const std::filesystem::path& NotesRoot() {
  static const std::filesystem::path root = [] {
    std::string pattern = (std::filesystem::temp_directory_path() / "velmo-search-bench-XXXXXX").string();
    std::atexit([] { std::filesystem::remove_all(NotesRoot()); });
    return std::filesystem::path(mkdtemp(pattern.data()));
  }();
  return root;
}

void OpenNotesDevice() {
  static bool filled = false;
  const std::filesystem::path& root = NotesRoot();
  device::SetRoot(root);
  setenv("VELMO_ROOT", root.c_str(), 1);
  SetProgramFilePath(L"/usr/bin/velmo-todo");
  cedb::EnsureDeviceVolume();
  LoadSettings();
  OpenTasksDatabaseHandle(nullptr, false, 0);
  LogOnObjectModel(nullptr);
  if (!filled) {
    filled = true;
    std::wstring words;
    while (words.size() < 10240) words += L"meeting notes about the quarterly budget review and plans ";
    words.resize(10240);
    cedb::BeginWriteBatch(&Store().volume);
    for (int i = 0; i < 2550; ++i) {
      ITask* item = nullptr;
      Store().app->CreateItem(olTaskItem, &item);
      item->put_Subject((L"Task " + std::to_wstring(i)).c_str());
      std::wstring notes = words;
      if (i % 10 == 0) notes.replace(5000, 8, L"Pineapple");
      item->put_Body(notes.c_str());
      item->Save();
      item->Release();
    }
    cedb::EndWriteBatch(&Store().volume);
  }
  Store().reload = true;
  LoadTaskTable();
}

void CloseNotesDevice() {
  LogOffObjectModel();
  CloseTasksDatabase();
  Tasks().clear();
}

void BM_SearchRebuild2550WithNotes(benchmark::State& state) {
  OpenNotesDevice();
  InitCategories(0, L"", L"");
  InitListState();
  const bool case_sensitive = state.range(0) != 0;
  ApplySearch({case_sensitive ? L"Pineapple" : L"pineapple", true, true, case_sensitive});
  size_t rows = 0;
  for (auto _ : state) {
    Store().reload = true;
    LoadTaskTable();
    rows = SortedViewRows(Tasks(), kNoDate).size();
  }
  state.counters["rows"] = static_cast<double>(rows);
  CloseNotesDevice();
}
BENCHMARK(BM_SearchRebuild2550WithNotes)->Arg(0)->Arg(1)->ArgName("case_sensitive")->Unit(benchmark::kMillisecond);

}  // namespace
