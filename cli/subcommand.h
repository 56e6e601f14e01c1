// The companion command's subcommands. Each takes the arguments after its own
// name and returns the process exit code.
#pragma once

namespace velmo::cli {

struct Subcommand {
  const char* name;
  const char* usage;    // one line for velmo --help
  int (*run)(int argc, char** argv);
};

// Every subcommand, defined in cli/<name>_command.cpp, listed in cli/main.cpp.
int RunReg(int argc, char** argv);
int RunList(int argc, char** argv);
int RunListView(int argc, char** argv);  // velmo list VIEW ..., from RunList
int RunAdd(int argc, char** argv);
int RunEdit(int argc, char** argv);
int RunDemo(int argc, char** argv);
int RunNotifyd(int argc, char** argv);
int RunNotifications(int argc, char** argv);
int RunCheck(int argc, char** argv);
int RunRecover(int argc, char** argv);
int RunSync(int argc, char** argv);
int RunExport(int argc, char** argv);
int RunImport(int argc, char** argv);
int RunContacts(int argc, char** argv);
int RunBeam(int argc, char** argv);

}  // namespace velmo::cli
