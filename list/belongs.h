// Whether a task is listed: the category filter in force, then the current view.
#pragma once

#include "platform/wintypes.h"
#include "store/task.h"

namespace velmo {

// `ref` is the moment the views judge by; kNoDate takes the local time now. A
// pass over many tasks takes the time once and gives it to every call.
bool Belongs(const Task& task, DATE ref);

// The same for another view than the current one.
bool BelongsToView(const Task& task, DATE ref, UINT view);

}  // namespace velmo
