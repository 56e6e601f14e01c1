#include "list/belongs.h"

#include "categories/category_filter.h"
#include "list/list_state.h"
#include "list/view_rules.h"
#include "platform/clock.h"

namespace velmo {

bool BelongsToView(const Task& task, DATE ref, UINT view) {
  if (!TaskPassesFilter(task)) return false;
  if (ref == kNoDate) ref = NowAsDate();
  return TaskInView(task, ref, view, CurrentSettings());
}

bool Belongs(const Task& task, DATE ref) { return BelongsToView(task, ref, CurrentView()); }

}  // namespace velmo
