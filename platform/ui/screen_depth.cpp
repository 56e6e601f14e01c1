#include "platform/ui/screen_depth.h"

#include "platform/ui/ui_internal.h"

namespace velmo::ui {

ColourDepth ScreenDepth() {
  Screen* screen = internal::CurrentScreen();
  return screen ? screen->depth() : ColourDepth::kTrue;
}

}  // namespace velmo::ui
