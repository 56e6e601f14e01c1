#include "app/change_pump.h"

#include <vector>

#include "app/main_window_state.h"
#include "platform/cedb.h"
#include "platform/ui/message_queue.h"

namespace velmo::app {
namespace {

int g_hook = 0;
HANDLE g_lost = nullptr;  // the handle last reported lost: reported once only

}  // namespace

void PumpDatabaseChanges() {
  std::vector<cedb::DbChange> changes;
  for (HANDLE db : cedb::NotifyingHandles()) {
    CENOTIFYREQUEST request{};
    if (!cedb::GetNotifyRequest(db, &request) || !request.hwnd) continue;
    changes.clear();
    if (!cedb::PollChanges(db, &changes)) {
      if (g_lost != db) PostMessageW(request.hwnd, kMsgDatabaseLost, 0, 0);
      g_lost = db;
      continue;
    }
    if (g_lost == db) g_lost = nullptr;  // readable again: a later loss is news
    for (const cedb::DbChange& change : changes) {
      CENOTIFICATION* n = cedb::NewNotification(db, change);
      if (n && !PostMessageW(request.hwnd, change.uType, 0, reinterpret_cast<LPARAM>(n)))
        CeFreeNotification(nullptr, n);
    }
  }
}

void StartChangePump() {
  if (!g_hook) g_hook = ui::AddIdleHook(PumpDatabaseChanges, kChangePollMs);
}

void StopChangePump() {
  if (g_hook) ui::RemoveIdleHook(g_hook);
  g_hook = 0;
  g_lost = nullptr;
}

}  // namespace velmo::app
