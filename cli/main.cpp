// velmo: the companion command for people and scripts beside velmo-todo.
#include <cstdio>
#include <cstring>
#include <iterator>

#include "cli/subcommand.h"
#include "cli/version_text.h"
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
    {"add", "add SUBJECT [OPTIONS]                    add a task, saved as the editor saves it",
     velmo::cli::RunAdd},
    {"edit", "edit ID [OPTIONS]                        change a task, saved as the editor saves it\n"
             "      OPTIONS: [--subject TEXT] [--start DATE|none] [--due DATE|none]\n"
             "      [--reminder DATE-TIME|none] [--recurs CHOICE] [--until DATE|none]\n"
             "      [--priority low|normal|high] [--categories TEXT] [--notes TEXT]\n"
             "      [--private|--normal] [--team|--no-team] [--complete|--incomplete] [--yes]\n"
             "      CHOICE: once, daily, weekly, biweekly, 3weeks, 4weeks, monthly-nth, monthly,\n"
             "      2months, 3months, 4months, 6months, yearly (over the start, else due date)",
     velmo::cli::RunEdit},
    {"demo", "demo N                                   add N made-up tasks",
     velmo::cli::RunDemo},
    {"notifyd", "notifyd [--once]                         the reminder service: raises due reminders",
     velmo::cli::RunNotifyd},
    {"notifications", "notifications                            the pending notifications, one a line",
     velmo::cli::RunNotifications},
    {"check", "check                                    the volume, the registry and the notifications\n"
              "      file, each with its verdict (exit 1 when one is damaged or not this program's)",
     velmo::cli::RunCheck},
    {"recover", "recover                                  copy every readable task of a damaged volume\n"
                "      into a new one; the damaged file is kept aside",
     velmo::cli::RunRecover},
    {"sync", "sync [--folder DIR] [--command CMD | --no-command] [--timeout SECONDS]\n"
             "      the tasks to and from a folder of iCalendar task files, kept in step with a\n"
             "      CalDAV server by CMD (default: vdirsyncer sync); folder and command are kept",
     velmo::cli::RunSync},
    {"export", "export [--view VIEW] FILE.ics                  the tasks (of one view) as one iCalendar file",
     velmo::cli::RunExport},
    {"import", "import FILE.ics|DIR|FILE.json|todo.txt    tasks from iCalendar files, a Taskwarrior\n"
               "      export (task export) or a todo.txt file",
     velmo::cli::RunImport},
    {"contacts", "contacts import DIR|FILE.vcf | contacts list   the device's address book, filled\n"
                 "      from vCard files (a card already there by its UID is replaced)",
     velmo::cli::RunContacts},
    {"beam", "beam --to ADDRESS FILE                   send a file to a paired Bluetooth device\n"
             "      (object push through BlueZ); waits for the transfer's end",
     velmo::cli::RunBeam},
};

void PrintHelp(std::FILE* out) {
  std::fputs("usage: velmo [--root DIR] COMMAND [ARGS]\n\n"
             "The companion of velmo-todo. The device is DIR, else $VELMO_ROOT, else\n"
             "$XDG_DATA_HOME/velmo-todo, else ~/.local/share/velmo-todo.\n\ncommands:\n",
             out);
  for (const Subcommand& s : kSubcommands) std::fprintf(out, "  %s\n", s.usage);
  std::fputs("  --version                                the version, the libraries and the terminal\n"
             "  --help                                   this text\n",
             out);
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
  if (std::strcmp(argv[first], "--version") == 0) return velmo::cli::RunVersion();
  for (const Subcommand& s : kSubcommands) {
    if (std::strcmp(argv[first], s.name) == 0) return s.run(argc - first - 1, argv + first + 1);
  }
  std::fprintf(stderr, "velmo: unknown command '%s' (see velmo --help)\n", argv[first]);
  return 2;
}
