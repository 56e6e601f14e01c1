// Applying a changed settings block at once: what the settings pages and
// "Reset Settings" changed shows in the main window without a restart.
#pragma once

#include "settings/settings.h"

namespace velmo::app {

// Applies the difference between `before` and the current block to the main
// window: list mode, entry bar, menus, sort, views and colours; a changed
// reminder difference reloads the task table. Nothing without a main window.
void ApplySettingsChange(const Settings& before);

}  // namespace velmo::app
