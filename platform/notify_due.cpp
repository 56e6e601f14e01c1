#include "platform/notify_due.h"

#include "platform/oletime.h"

namespace velmo::notify {

DuePlan PlanDue(const std::vector<PendingNotification>& pending, DATE now,
                const std::function<bool(const std::wstring& application)>& application_exists) {
  DuePlan plan;
  for (const PendingNotification& n : pending) {
    if (n.status == CNS_SIGNALLED || (n.type != CNT_TIME && n.type != CNT_PERIOD)) continue;
    DATE start;
    if (!SystemTimeToVariantTime(&n.start, &start)) continue;
    if (start > now) {
      if (plan.next == kNoDate || start < plan.next) plan.next = start;
      continue;
    }
    const bool exists = application_exists(n.application);
    if (n.has_dialog) (exists ? plan.raise : plan.raise_and_clear).push_back(n);
    else (exists ? plan.start : plan.clear).push_back(n);
  }
  return plan;
}

}  // namespace velmo::notify
