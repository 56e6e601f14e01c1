#include "app/second_instance.h"

#include "app/handover.h"
#include "app/startup.h"
#include "platform/ipc.h"

namespace velmo::app {

void HandOverToRunningInstance(const StartRequest& start) {
  HWND window = FindWindowW(kMainWindowClass, nullptr);
  // The lowest bit brings the window forward together with its owned windows.
  if (start.request != kAfterSyncRequest && window)
    ipc::SetForegroundWindow(reinterpret_cast<HWND>(reinterpret_cast<std::uintptr_t>(window) | 1));

  OutgoingHandover handover;
  if (!BuildHandover(start, &handover)) {
    if (window) ipc::DismissDialogs(window);
    return;
  }
  // Synchronous: the payload lives in this frame until the receiver is done.
  // Without a window this does nothing.
  ipc::SendMessageW(window, WM_COPYDATA, 0, reinterpret_cast<LPARAM>(&handover.record));
}

}  // namespace velmo::app
