#include "app/handover_channel.h"

#include "app/dismiss_dialogs.h"
#include "app/startup.h"
#include "platform/ipc.h"
#include "platform/ui/message_queue.h"

namespace velmo::app {
namespace {

struct Channel {
  ipc::Listener listener;
  int watch = 0;
  HWND main_window = nullptr;
};

Channel& TheChannel() {
  static Channel channel;
  return channel;
}

LRESULT DeliverCopyData(ULONG_PTR code, DWORD size, const BYTE* bytes) {
  COPYDATASTRUCT record{code, size, const_cast<BYTE*>(bytes)};
  return SendMessageW(TheChannel().main_window, WM_COPYDATA, 0,
                      reinterpret_cast<LPARAM>(&record));
}

}  // namespace

BOOL OpenHandoverChannel(HWND main_window) {
  CloseHandoverChannel();
  Channel& channel = TheChannel();
  if (!channel.listener.Open(kMainWindowClass)) return FALSE;
  channel.main_window = main_window;
  channel.watch = ui::WatchFd(channel.listener.fd(), [](int, short) {
    ipc::Handlers handlers;
    handlers.copy_data = DeliverCopyData;
    handlers.dismiss_dialogs = [] { DismissOpenDialogs(TheChannel().main_window); };
    TheChannel().listener.ReceiveOne(handlers);
  });
  return TRUE;
}

void CloseHandoverChannel() {
  Channel& channel = TheChannel();
  if (channel.watch) ui::UnwatchFd(channel.watch);
  channel.watch = 0;
  channel.listener.Close();
  channel.main_window = nullptr;
}

}  // namespace velmo::app
