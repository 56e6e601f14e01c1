// velmo: the companion command for people and scripts beside velmo-todo.
#include <cstdio>
#include <cstring>
#include <iterator>

#include "cli/subcommand.h"
#include "platform/device.h"

namespace {

using velmo::cli::Subcommand;

// One line per subcommand; keep the list in the order --help shows it.
constexpr Subcommand kSubcommands[] = {
    {"reg", "reg export [KEY] | reg import FILE   settings in registry-export text form",
     velmo::cli::RunReg},
    {"list", "list                                     every task, one line each (tab-separated)\n"
             "  list VIEW [--filter CATEGORIES] [--at DATE-TIME] [--search TEXT]\n"
             "      one view as the program lists it, its title first (VIEW: all, overdue,\n"
             "      active, completed, today, next, future, undated, search)",
     velmo::cli::RunList},
    {"add", "add SUBJECT [--start DATE] [--due DATE] [--reminder DATE-TIME] [--priority P]\n"
            "      [--categories TEXT] [--notes TEXT] [--private] [--complete]   add a task",
     velmo::cli::RunAdd},
    {"demo", "demo N                                   add N made-up tasks",
     velmo::cli::RunDemo},
    {"notifyd", "notifyd [--once]                         the reminder service: raises due reminders",
     velmo::cli::RunNotifyd},
    {"notifications", "notifications                            the pending notifications, one a line",
     velmo::cli::RunNotifications},
    {"sync", "sync [--folder DIR] [--command CMD | --no-command] [--timeout SECONDS]\n"
             "      the tasks to and from a folder of iCalendar task files, kept in step with a\n"
             "      CalDAV server by CMD (default: vdirsyncer sync); folder and command are kept",
     velmo::cli::RunSync},
    {"export", "export [--view VIEW] FILE.ics                  the tasks (of one view) as one iCalendar file",
     velmo::cli::RunExport},
    {"import", "import FILE.ics|DIR|FILE.json|todo.txt    tasks from iCalendar files, a Taskwarrior\n"
               "      export (task export) or a todo.txt file",
     velmo::cli::RunImport},
};

void PrintHelp(std::FILE* out) {
  std::fputs("usage: velmo [--root DIR] COMMAND [ARGS]\n\n"
             "The companion of velmo-todo. The device is DIR, else $VELMO_ROOT, else\n"
             "$XDG_DATA_HOME/velmo-todo, else ~/.local/share/velmo-todo.\n\ncommands:\n",
             out);
  for (const Subcommand& s : kSubcommands) std::fprintf(out, "  %s\n", s.usage);
  std::fputs("  --help                                   this text\n", out);
}

}  // namespace

int main(int argc, char** argv) {
  int first = 1;
  if (argc > 2 && std::strcmp(argv[1], "--root") == 0) {
    velmo::device::SetRoot(argv[2]);
    first = 3;
  }
  if (first >= argc || std::strcmp(argv[first], "--help") == 0 ||
      std::strcmp(argv[first], "-h") == 0) {
    PrintHelp(first >= argc ? stderr : stdout);
    return first >= argc ? 2 : 0;
  }
  for (const Subcommand& s : kSubcommands) {
    if (std::strcmp(argv[first], s.name) == 0) return s.run(argc - first - 1, argv + first + 1);
  }
  std::fprintf(stderr, "velmo: unknown command '%s' (see velmo --help)\n", argv[first]);
  return 2;
}
