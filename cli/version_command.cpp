#include <unistd.h>

#include <cstdio>

#include "cli/version_text.h"
#include "platform/library_versions.h"
#include "platform/owner.h"
#include "platform/ui/terminal_traits.h"
#include "platform/wstr.h"

namespace velmo::cli {
namespace {

// The terminal the command runs in: standard output's, else standard error's or
// input's when output goes to a pipe.
int TerminalDescriptor() {
  for (int fd : {STDOUT_FILENO, STDERR_FILENO, STDIN_FILENO})
    if (isatty(fd)) return fd;
  return STDOUT_FILENO;
}

}  // namespace

std::string VersionText() {
  std::string owner = ToUtf8(owner::OwnerName());
  return std::string("velmo ") + VELMO_VERSION + " (Velmo ToDo List)\n" +
         "owner: " + (owner.empty() ? "unknown" : owner) + "\n" +
         "libraries: " + platform::LibraryVersions() + "\n" +
         "terminal: " + ui::DescribeTerminal(ui::ReadTerminalFacts(TerminalDescriptor())) + "\n";
}

int RunVersion() {
  std::fputs(VersionText().c_str(), stdout);
  return 0;
}

}  // namespace velmo::cli
