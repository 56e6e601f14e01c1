// Which pending notifications are due, what to do with each, and when the next
// one falls due: the reminder service's decisions, apart from its waiting.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/notify.h"
#include "platform/oletime.h"

namespace velmo::notify {

struct DuePlan {
  // Due with a user notification whose application can be started: raised with
  // an "Open" action.
  std::vector<PendingNotification> raise;
  // Due with a user notification whose application is gone: raised without the
  // action and cleared, so it is not tried again.
  std::vector<PendingNotification> raise_and_clear;
  // Due without a user notification: the application is started and the
  // notification cleared (when the application is gone it is only cleared).
  std::vector<PendingNotification> start;
  std::vector<PendingNotification> clear;
  // The earliest start time still to come among waiting notifications; kNoDate
  // when none waits.
  DATE next = kNoDate;
};

// Due means waiting (not yet raised), timed (CNT_TIME or CNT_PERIOD) and its
// start time at or before now. Event registrations and raised notifications are
// left alone.
DuePlan PlanDue(const std::vector<PendingNotification>& pending, DATE now,
                const std::function<bool(const std::wstring& application)>& application_exists);

}  // namespace velmo::notify
