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
#include "sync/folder_files.h"
#include "sync/task_records.h"
#include "sync/todo.h"

namespace velmo::cli {
namespace {

constexpr const char* kUsage =
    "usage: velmo export [--view VIEW] FILE.ics\n"
    "VIEW: all, overdue, active, completed, today, next, future, undated\n";

struct FreeComponent {
  void operator()(icalcomponent* c) const { icalcomponent_free(c); }
};
using Component = std::unique_ptr<icalcomponent, FreeComponent>;

// Whether a record is in the view (0: every task).
bool InView(UINT view, CEOID oid) {
  if (view == 0) return true;
  Task task;
  return ReadTaskRecord(&task, oid) && BelongsToView(task, kNoDate, view);
}

// The task's VTODO as its file would hold it, added to the calendar.
void AddTask(const sync::SyncRecord& r, icalcomponent* calendar) {
  const std::string uid = r.uid.empty() ? sync::NewUid() : r.uid;
  sync::Todo kept;
  std::string error;
  const bool has_kept = !r.kept.empty() && sync::ReadTodo(r.kept, &kept, &error);
  const std::string text = sync::WriteTodo(has_kept ? r.kept : "", kept.values, r.values, uid);
  Component file(icalparser_parse_string(text.c_str()));
  if (!file) return;
  for (icalcomponent* c = icalcomponent_get_first_component(file.get(), ICAL_ANY_COMPONENT); c;
       c = icalcomponent_get_next_component(file.get(), ICAL_ANY_COMPONENT))
    icalcomponent_add_component(calendar, icalcomponent_new_clone(c));
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
  Component calendar(icalcomponent_new_vcalendar());
  icalcomponent_add_property(calendar.get(), icalproperty_new_version("2.0"));
  icalcomponent_add_property(calendar.get(), icalproperty_new_prodid("-//Velmo//Velmo ToDo List//EN"));
  int count = 0;
  for (const sync::SyncRecord& r : records) {
    if (!InView(view, r.oid)) continue;
    AddTask(r, calendar.get());
    ++count;
  }
  CloseDeviceStore();
  if (!read) return std::fputs("velmo export: the tasks database cannot be read\n", stderr), 1;
  const std::filesystem::path path = std::filesystem::absolute(file);
  std::string error;
  sync::FileStamp stamp;
  if (!sync::WriteTaskFile(path.parent_path(), path.filename().string(),
                           icalcomponent_as_ical_string(calendar.get()), &stamp, &error))
    return std::fprintf(stderr, "velmo export: %s\n", error.c_str()), 1;
  std::printf("%d task(s) exported to %s\n", count, path.c_str());
  return 0;
}

}  // namespace velmo::cli
