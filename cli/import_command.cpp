// velmo import: tasks from iCalendar files (a file, or a folder of task
// files), a Taskwarrior export or a todo.txt file, added to the tasks
// database as they are, in one transaction. A task that came with a UID keeps
// it, so a later `velmo sync` pairs it with its file instead of doubling it.
#include <cstdio>

#include "cli/device_store.h"
#include "cli/subcommand.h"
#include "platform/cedb.h"
#include "store/connection.h"
#include "store/task_table.h"
#include "sync/import_sources.h"
#include "sync/task_records.h"

namespace velmo::cli {

int RunImport(int argc, char** argv) {
  if (argc != 1 || argv[0][0] == '-') {
    std::fputs("usage: velmo import FILE.ics|DIR|FILE.json|todo.txt\n", stderr);
    return 2;
  }
  const sync::ImportResult result = sync::ReadImportSource(argv[0]);
  for (const std::string& p : result.problems) std::fprintf(stderr, "velmo import: %s\n", p.c_str());
  if (result.tasks.empty()) {
    std::fprintf(stderr, "velmo import: no tasks found in %s\n", argv[0]);
    return 1;
  }
  if (!OpenDeviceStore("import", true)) return 1;
  std::vector<CEOID> reminders;
  bool ok = cedb::BeginWriteBatch(&Store().volume);
  for (const sync::ImportedTask& t : result.tasks) {
    const CEOID oid = ok ? sync::WriteSyncRecord(Store().tasks_db, 0, t.values, t.uid, t.kept) : 0;
    ok = oid != 0;
    if (ok && t.values.reminder_set) reminders.push_back(oid);
  }
  ok = cedb::EndWriteBatch(&Store().volume) && ok;
  if (!ok) {
    std::fprintf(stderr, "velmo import: the tasks database could not be written (%s); nothing was imported\n",
                 cedb::LastFailure().c_str());
    CloseDeviceStore();
    return 1;
  }
  // The re-read that follows a change makes each reminder's notification.
  for (const CEOID oid : reminders) ReadTask(nullptr, oid, true);
  FreeTaskTable();
  CloseDeviceStore();
  std::printf("%zu task(s) imported\n", result.tasks.size());
  return result.problems.empty() ? 0 : 1;
}

}  // namespace velmo::cli
