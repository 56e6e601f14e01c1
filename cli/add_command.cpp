// velmo add: a new task saved through the editor's commit, so that the same
// rules apply as in the editor; prints the new task's object identifier.
#include <cstdio>

#include "cli/device_store.h"
#include "cli/subcommand.h"
#include "cli/task_options.h"
#include "editor/commit_values.h"
#include "platform/wstr.h"
#include "settings/settings.h"

namespace velmo::cli {

int RunAdd(int argc, char** argv) {
  if (argc < 1 || argv[0][0] == '-') {
    std::fprintf(stderr, "usage: velmo add SUBJECT\n%s", kTaskOptionsUsage);
    return 2;
  }
  if (!OpenDeviceStore("add", true)) return 1;
  // No list is on screen: the new-task settings alone give the defaults.
  EditorValues values = NewTaskEditorValues(CurrentSettings(), L"");
  values.subject = FromUtf8(argv[0]);
  bool yes = false;
  CEOID oid = 0;
  int code = 2;
  if (ApplyTaskOptions("add", argc - 1, argv + 1, &values, &yes))
    code = CommitFromCommandLine("add", 0, values, yes, &oid);
  if (code == 0) std::printf("%u\n", oid);
  // A task saved whose reminder could not be scheduled still ends in failure.
  const bool reminders_scheduled = CloseDeviceStore();
  return code == 0 && !reminders_scheduled ? 1 : code;
}

}  // namespace velmo::cli
