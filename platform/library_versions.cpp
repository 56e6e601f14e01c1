// Each library's own word on its version.
#include "platform/library_versions.h"

#include <libical/ical.h>
#include <sqlite3.h>
#include <unicode/uversion.h>

// Last: curses.h defines macros.
#include <curses.h>

namespace velmo::platform {

std::string LibraryVersions() {
  UVersionInfo icu{};
  u_getVersion(icu);
  char icu_text[U_MAX_VERSION_STRING_LENGTH] = {};
  u_versionToString(icu, icu_text);
  std::string curses = curses_version();  // "ncurses 6.4.20221231"
  // libical has no run-time query; the version it was built as is the one
  // linked in.
  std::string ical = std::to_string(ICAL_MAJOR_VERSION) + "." + std::to_string(ICAL_MINOR_VERSION) +
                     "." + std::to_string(ICAL_PATCH_VERSION);
  return std::string("SQLite ") + sqlite3_libversion() + ", ICU " + icu_text + ", libical " + ical +
         ", " + curses;
}

}  // namespace velmo::platform
