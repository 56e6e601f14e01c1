// The versions of the libraries the program runs on, as they report themselves
// at run time (for `velmo --version` and bug reports).
#pragma once

#include <string>

namespace velmo::platform {

// "SQLite 3.40.1, ICU 72.1, libical 3.0.16, ncurses 6.4.20221231".
std::string LibraryVersions();

}  // namespace velmo::platform
