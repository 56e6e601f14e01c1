// velmo export: the tasks, or those of one view, as one iCalendar file of
// VTODOs, written as the folder of task files would hold them.
#include <libical/ical.h>

#include <cstdio>
#include <memory>
#include <string>
#include <string_view>

#include "categories/category_state.h"
#include "cli/device_store.h"
#include "cli/list_view_args.h"
#include "cli/subcommand.h"
#include "list/belongs.h"
#include "list/list_state.h"
#include "settings/settings.h"
#include "store/connection.h"
#include "store/record_reader.h"
#include "sync/bridge_plan.h"
#include "sync/calendar_export.h"
#include "sync/folder_files.h"
#include "sync/task_records.h"
#include "sync/todo.h"

namespace velmo::cli {
namespace {

constexpr const char* kUsage =
    "usage: velmo export [--view VIEW] FILE.ics\n"
    "VIEW: all, overdue, active, completed, today, next, future, undated\n";

// Whether a record is in the view (0: every task).
bool InView(UINT view, CEOID oid) {
  if (view == 0) return true;
  Task task;
  return ReadTaskRecord(&task, oid) && BelongsToView(task, kNoDate, view);
}

}  // namespace

int RunExport(int argc, char** argv) {
  UINT view = 0;
  const char* file = nullptr;
  for (int i = 0; i < argc; ++i) {
    if (std::string_view(argv[i]) == "--view" && i + 1 < argc) {
      view = ViewFromName(argv[++i]);
      if (view == 0) return std::fprintf(stderr, "velmo export: unknown view '%s'\n%s", argv[i], kUsage), 2;
    } else if (!file && argv[i][0] != '-') {
      file = argv[i];
    } else {
      return std::fputs(kUsage, stderr), 2;
    }
  }
  if (!file) return std::fputs(kUsage, stderr), 2;
  if (!OpenDeviceStore("export", false)) return 1;
  SetCategoryFilter(CurrentSettings().filter_categories);
  InitListState(CurrentSettings());
  std::vector<sync::SyncRecord> records;
  const bool read = sync::ReadAllSyncRecords(Store().tasks_db, &records);
  std::vector<sync::SyncRecord> shown;
  for (sync::SyncRecord& r : records)
    if (InView(view, r.oid)) shown.push_back(std::move(r));
  const int count = static_cast<int>(shown.size());
  CloseDeviceStore();
  if (!read) return std::fputs("velmo export: the tasks database cannot be read\n", stderr), 1;
  const std::filesystem::path path = std::filesystem::absolute(file);
  std::string error;
  sync::FileStamp stamp;
  if (!sync::WriteTaskFile(path.parent_path(), path.filename().string(),
                           sync::CalendarOfRecords(shown), &stamp, &error))
    return std::fprintf(stderr, "velmo export: %s\n", error.c_str()), 1;
  std::printf("%d task(s) exported to %s\n", count, path.c_str());
  return 0;
}

}  // namespace velmo::cli
