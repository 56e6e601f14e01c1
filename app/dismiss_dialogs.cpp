#include "app/dismiss_dialogs.h"

#include "platform/ui/message_queue.h"
#include "platform/ui/window.h"

namespace velmo::app {
namespace {

// Every window belongs to the one thread of the message loop, so the first
// top-level window enumerated is the first of the main window's thread.
BOOL TakeFirst(HWND window, LPARAM found) {
  *reinterpret_cast<HWND*>(found) = window;
  return FALSE;
}

}  // namespace

void DismissOpenDialogs(HWND main_window) {
  HWND window = nullptr;
  EnumWindows(TakeFirst, reinterpret_cast<LPARAM>(&window));
  while (window && window != main_window && IsWindow(window)) {
    // The owner is taken first: a dialog may be gone once it has been cancelled.
    HWND owner = GetWindow(window, GW_OWNER);
    SendMessageW(window, WM_COMMAND, IDCANCEL, 0);
    window = owner;
  }
}

}  // namespace velmo::app
