// velmo reg: the settings in the text form of registry exports.
#include <cstdio>

#include "cli/subcommand.h"

namespace velmo::cli {

int RunReg(int, char**) {
  std::fputs("velmo reg: not built yet\n", stderr);
  return 1;
}

}  // namespace velmo::cli
