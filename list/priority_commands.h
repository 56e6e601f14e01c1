// The commands that set or step a task's priority (0 Low, 1 Normal, 2 High):
// "High", "Normal", "Low", "Priority Up", "Priority Down" and the "Priority
// Cycle" action, which steps up and wraps from High to Low.
#pragma once

#include "platform/poom.h"
#include "store/task.h"

namespace velmo {

enum class PriorityRequest { kLow = 0, kNormal = 1, kHigh = 2, kStepUp, kStepDown };

constexpr UINT kCmdPriorityDown = 40010;
constexpr UINT kCmdPriorityUp = 40011;
constexpr UINT kCmdPriorityCycle = 40012;
constexpr UINT kCmdPriorityHigh = 40013;
constexpr UINT kCmdPriorityNormal = 40014;
constexpr UINT kCmdPriorityLow = 40015;

// The request and wrap of a priority command; false for any other command.
bool PriorityCommandRequest(UINT command, PriorityRequest* request, bool* wrap);

// The priority after the request, from the item's priority `p`. A step from an
// unknown value lands on Normal; a step past either end wraps only with `wrap`.
LONG NextPriority(LONG p, PriorityRequest request, bool wrap);

// Carries the request out on the task's item: when the priority changes, the
// task's reminder time is kept as its pending reminder time (the re-read after
// the save restores it) and the item is saved. Returns S_OK when saved, S_FALSE
// when nothing changed, or the item's failure. The item is not released.
HRESULT SetTaskPriority(ITask* item, Task* task, PriorityRequest request, bool wrap);

}  // namespace velmo
