// The colour depth of the screen the window system runs on, for drawing that
// must show by other means what colours would (a mark beside a coloured row).
#pragma once

#include "platform/ui/screen.h"

namespace velmo::ui {

// The attached screen's depth; true colour when no screen is attached.
ColourDepth ScreenDepth();

}  // namespace velmo::ui
