// velmo demo N: fills the device with N made-up tasks, saved through the object
// model like the editor's, in one transaction of the volume.
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "cli/demo_tasks.h"
#include "cli/device_store.h"
#include "cli/subcommand.h"
#include "editor/save_failure.h"
#include "platform/cedb.h"
#include "platform/clock.h"
#include "platform/wstr.h"
#include "store/connection.h"

namespace velmo::cli {
namespace {

constexpr long kMostTasks = 1000000;
constexpr std::uint32_t kSeed = 2550;

}  // namespace

int RunDemo(int argc, char** argv) {
  char* end = nullptr;
  const long count = argc == 1 ? std::strtol(argv[0], &end, 10) : 0;
  if (argc != 1 || *end != '\0' || count < 1 || count > kMostTasks) {
    std::fprintf(stderr, "usage: velmo demo N   (1 <= N <= %ld)\n", kMostTasks);
    return 2;
  }
  if (!OpenDeviceStore("demo", true)) return 1;
  StoreConnection& store = Store();
  DemoTaskMaker maker(kSeed, std::trunc(NowAsDate()));
  // A volume that takes no batch (full, read-only, held, damaged) takes no task.
  if (!cedb::BeginWriteBatch(&store.volume)) {
    PrintStoreFailure("demo");
    CloseDeviceStore();
    return 1;
  }
  long saved = 0;
  for (long i = 0; i < count; ++i) {
    const DemoTask task = maker.Next();
    const HRESULT result = SaveDemoTask(task, store.app);
    if (SUCCEEDED(result)) {
      ++saved;
      continue;
    }
    const SaveFailureMessage message = DescribeSaveFailure({task.start, task.due, task.reminder, 0, result});
    std::fprintf(stderr, "velmo demo: \"%s\" not saved: %s\n", ToUtf8(task.subject).c_str(),
                 ToUtf8(message.text).c_str());
    // A refusal of the file itself (full, read-only, damaged) refuses the rest too.
    if ((static_cast<DWORD>(result) & 0xFFFF0000u) == 0x80070000u) {
      PrintStoreFailure("demo");
      break;
    }
  }
  const bool written = cedb::EndWriteBatch(&store.volume);
  CloseDeviceStore();
  if (!written) {
    std::fprintf(stderr, "velmo demo: %s\n", cedb::LastFailure().c_str());
    return 1;
  }
  std::printf("%ld tasks added\n", saved);
  return saved == count ? 0 : 1;
}

}  // namespace velmo::cli
