// velmo list: every task of the tasks database in database order, one line each;
// with a view, that view (cli/list_view_command.cpp).
#include <cstdio>

#include "cli/device_store.h"
#include "cli/list_output.h"
#include "cli/subcommand.h"
#include "platform/cedb.h"
#include "store/connection.h"
#include "store/record_reader.h"

namespace velmo::cli {

int RunList(int argc, char** argv) {
  if (argc != 0) return RunListView(argc, argv);
  if (!OpenDeviceStore("list", false)) return 1;
  CEDBASEINFOEX info{};
  const DWORD count = ReadTasksDatabaseInfo(&info) ? info.dwNumRecords : 0;
  // One record at a time: the listing needs no table.
  CeSeekDatabase(Store().tasks_db, CEDB_SEEK_BEGINNING, 0, nullptr);
  Task task;
  for (DWORD i = 0; i < count; ++i) {
    if (!ReadTaskRecord(&task, 0)) continue;
    const std::string line = TaskLine(task);
    std::fwrite(line.data(), 1, line.size(), stdout);
    std::fputc('\n', stdout);
  }
  CloseDeviceStore();
  return std::fflush(stdout) == 0 ? 0 : 1;
}

}  // namespace velmo::cli
