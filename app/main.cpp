// velmo-todo: the program's entry point.
#include <cstdio>

#include "app/command_line.h"
#include "app/startup.h"

int main(int argc, char** argv) {
  std::setvbuf(stdout, nullptr, _IOLBF, 0);
  return velmo::app::RunProgram(velmo::app::JoinArguments(argc, argv));
}
