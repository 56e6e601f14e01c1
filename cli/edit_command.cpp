// velmo edit ID: a task's fields changed through the editor's commit, the
// fields not given keeping the task's values as the editor shows them; prints
// the task's object identifier (a new one when edited notes replaced the task
// by a copy).
#include <cstdio>
#include <cstdlib>

#include "cli/device_store.h"
#include "cli/subcommand.h"
#include "cli/task_options.h"
#include "editor/commit_values.h"
#include "platform/poom.h"
#include "settings/settings.h"
#include "store/connection.h"
#include "store/record_reader.h"

namespace velmo::cli {
namespace {

// The identifier of "ID": a positive decimal number.
CEOID ParseOid(const char* text) {
  char* end = nullptr;
  const unsigned long value = std::strtoul(text, &end, 10);
  return *text >= '1' && *text <= '9' && *end == '\0' && value <= 0xFFFFFFFFul ? static_cast<CEOID>(value) : 0;
}

// The editor's values of task `oid`; false with the reason printed.
bool ReadTaskValues(CEOID oid, EditorValues* values) {
  Task record;
  ITask* item = nullptr;
  if (!ReadTaskRecord(&record, oid) || FAILED(Store().app->GetItemFromOid(oid, &item)) || !item) {
    std::fprintf(stderr, "velmo edit: there is no task %u\n", oid);
    return false;
  }
  const HRESULT read = EditorValuesOfTask(item, record, CurrentSettings(), values);
  item->Release();
  if (FAILED(read))
    std::fprintf(stderr, "velmo edit: the recurrence of task %u cannot be read (result 0x%08X)\n", oid,
                 static_cast<unsigned>(read));
  return SUCCEEDED(read);
}

}  // namespace

int RunEdit(int argc, char** argv) {
  const CEOID oid = argc >= 1 ? ParseOid(argv[0]) : 0;
  if (oid == 0) {
    std::fprintf(stderr, "usage: velmo edit ID\n%s", kTaskOptionsUsage);
    return 2;
  }
  if (!OpenDeviceStore("edit", true)) return 1;
  EditorValues values;
  bool yes = false;
  CEOID saved = 0;
  int code = 1;
  if (ReadTaskValues(oid, &values)) {
    code = 2;
    if (ApplyTaskOptions("edit", argc - 1, argv + 1, &values, &yes))
      code = CommitFromCommandLine("edit", oid, values, yes, &saved);
  }
  if (code == 0) std::printf("%u\n", saved);
  const bool reminders_scheduled = CloseDeviceStore();
  return code == 0 && !reminders_scheduled ? 1 : code;
}

}  // namespace velmo::cli
