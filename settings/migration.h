// Upgrading the settings of older versions of the program, by the stored version.
#pragma once

#include "settings/settings.h"

namespace velmo {

// Applies every rule that the stored version (s.version_major/minor) calls for,
// in order, and sets the version to the current one. Returns true when the stored
// version was not the current one (the caller then saves).
bool MigrateSettings(Settings& s);

}  // namespace velmo
