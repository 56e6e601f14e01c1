#include "app/handover_channel.h"

#include <algorithm>
#include <map>

#include "app/dismiss_dialogs.h"
#include "app/startup.h"
#include "platform/ipc.h"
#include "platform/ui/message_queue.h"

namespace velmo::app {
namespace {

// How often the loop looks again at connections that have not finished their
// message, to drop those past their time.
constexpr DWORD kExpiryIntervalMs = 1000;

struct Channel {
  ipc::Listener listener;
  std::map<int, int> watches;  // descriptor -> watch
  int expiry_hook = 0;
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

void Service();

// The loop watches the listening socket and each connection still being read.
void WatchWhatTheListenerReads() {
  Channel& channel = TheChannel();
  const std::vector<int> wanted = channel.listener.WatchedFds();
  for (auto it = channel.watches.begin(); it != channel.watches.end();) {
    if (std::find(wanted.begin(), wanted.end(), it->first) == wanted.end()) {
      ui::UnwatchFd(it->second);
      it = channel.watches.erase(it);
    } else {
      ++it;
    }
  }
  for (const int fd : wanted)
    if (!channel.watches.count(fd)) channel.watches[fd] = ui::WatchFd(fd, [](int, short) { Service(); });
  // Only while a connection is being read does the loop wake up to drop it.
  const bool reading = wanted.size() > 1;
  if (reading && !channel.expiry_hook) {
    channel.expiry_hook = ui::AddIdleHook(Service, kExpiryIntervalMs);
  } else if (!reading && channel.expiry_hook) {
    ui::RemoveIdleHook(channel.expiry_hook);
    channel.expiry_hook = 0;
  }
}

void Service() {
  ipc::Handlers handlers;
  handlers.copy_data = DeliverCopyData;
  handlers.dismiss_dialogs = [] { DismissOpenDialogs(TheChannel().main_window); };
  TheChannel().listener.Service(handlers);
  WatchWhatTheListenerReads();
}

}  // namespace

BOOL OpenHandoverChannel(HWND main_window) {
  CloseHandoverChannel();
  Channel& channel = TheChannel();
  if (!channel.listener.Open(kMainWindowClass)) return FALSE;
  channel.main_window = main_window;
  WatchWhatTheListenerReads();
  return TRUE;
}

void CloseHandoverChannel() {
  Channel& channel = TheChannel();
  for (const auto& [fd, watch] : channel.watches) ui::UnwatchFd(watch);
  channel.watches.clear();
  if (channel.expiry_hook) ui::RemoveIdleHook(channel.expiry_hook);
  channel.expiry_hook = 0;
  channel.listener.Close();
  channel.main_window = nullptr;
}

}  // namespace velmo::app
