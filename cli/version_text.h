// What `velmo --version` prints: the version, the owner, the libraries in use
// and what the program detects of the terminal it runs in.
#pragma once

#include <string>

namespace velmo::cli {

std::string VersionText();
int RunVersion();

}  // namespace velmo::cli
