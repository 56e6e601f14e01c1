// velmo list VIEW: one view of the tasks database as the program shows it, its
// title first. The device's settings are in force (the views, the sort, the
// default filter, "ReminderDelta"); the options replace the filter, the moment
// the views judge by and the search text. Nothing is written.
#include <cstdio>
#include <utility>
#include <vector>

#include "categories/category_state.h"
#include "cli/device_store.h"
#include "cli/list_output.h"
#include "cli/list_view_args.h"
#include "cli/subcommand.h"
#include "list/list_state.h"
#include "list/view_commands.h"
#include "list/view_ids.h"
#include "platform/cedb.h"
#include "settings/settings.h"
#include "store/connection.h"
#include "store/record_reader.h"

namespace velmo::cli {
namespace {

constexpr const char* kUsage =
    "usage: velmo list [VIEW [--filter CATEGORIES] [--at DATE-TIME] [--search TEXT]]\n"
    "VIEW: all, overdue, active, completed, today, next, future, undated, search\n";

// The view, filter and search in force before the records are read: the search
// marks are set as each record is read.
void ChooseView(const ListViewArgs& args) {
  const Settings& s = CurrentSettings();
  SetCategoryFilter(args.filter ? *args.filter : s.filter_categories);
  InitListState(s);
  if (args.view == kViewSearch) {
    ApplySearch({args.search ? *args.search : s.search, s.search_subjects, s.search_notes,
                 s.search_case_sensitive});
  } else {
    SetView(args.view);
  }
}

// The records as the program loads them: database order, at most kMaxTasks.
TaskTable ReadTable() {
  CEDBASEINFOEX info{};
  const DWORD count = ReadTasksDatabaseInfo(&info) ? info.dwNumRecords : 0;
  CeSeekDatabase(Store().tasks_db, CEDB_SEEK_BEGINNING, 0, nullptr);
  TaskTable table;
  for (DWORD i = 0; i < count && table.size() < kMaxTasks; ++i) {
    auto task = std::make_unique<Task>();
    if (ReadTaskRecord(task.get(), 0)) table.push_back(std::move(task));
  }
  return table;
}

// The tasks of a listing are left for the end of the process, which takes back
// their memory at once: freeing 2,550 tasks one by one costs more than writing
// the view. They stay reachable, so a leak checker counts them as in use.
void KeepUntilExit(TaskTable table) {
  static auto* const kept = new std::vector<TaskTable>;
  kept->push_back(std::move(table));
}

}  // namespace

int RunListView(int argc, char** argv) {
  ListViewArgs args;
  std::string error;
  if (!ParseListViewArgs(argc, argv, &args, &error)) {
    std::fprintf(stderr, "velmo list: %s\n%s", error.c_str(), kUsage);
    return 2;
  }
  if (!OpenDeviceStore("list", false)) return 1;
  ChooseView(args);
  TaskTable table = ReadTable();
  CloseDeviceStore();
  const std::string text = ViewListing(table, args.at);
  KeepUntilExit(std::move(table));
  std::fwrite(text.data(), 1, text.size(), stdout);
  return std::fflush(stdout) == 0 ? 0 : 1;
}

}  // namespace velmo::cli
