// Setting and stepping a task's priority through its object-model item.
#include "list/priority_commands.h"

#include <algorithm>
#include <iterator>

namespace velmo {
namespace {

struct PriorityCommand {
  UINT command;
  PriorityRequest request;
  bool wrap;
};

constexpr PriorityCommand kPriorityCommands[] = {
    {kCmdPriorityHigh, PriorityRequest::kHigh, false},
    {kCmdPriorityNormal, PriorityRequest::kNormal, false},
    {kCmdPriorityLow, PriorityRequest::kLow, false},
    {kCmdPriorityDown, PriorityRequest::kStepDown, false},
    {kCmdPriorityUp, PriorityRequest::kStepUp, false},
    {kCmdPriorityCycle, PriorityRequest::kStepUp, true},
};

}  // namespace

bool PriorityCommandRequest(UINT command, PriorityRequest* request, bool* wrap) {
  auto it = std::find_if(std::begin(kPriorityCommands), std::end(kPriorityCommands),
                         [command](const PriorityCommand& c) { return c.command == command; });
  if (it == std::end(kPriorityCommands)) return false;
  *request = it->request;
  *wrap = it->wrap;
  return true;
}

LONG NextPriority(LONG p, PriorityRequest request, bool wrap) {
  switch (request) {
    case PriorityRequest::kStepUp:
      if (p == olImportanceLow) return olImportanceNormal;
      if (p == olImportanceNormal) return olImportanceHigh;
      if (p == olImportanceHigh) return wrap ? olImportanceLow : p;
      return olImportanceNormal;
    case PriorityRequest::kStepDown:
      if (p == olImportanceHigh) return olImportanceNormal;
      if (p == olImportanceNormal) return olImportanceLow;
      if (p == olImportanceLow) return wrap ? olImportanceHigh : p;
      return olImportanceNormal;
    default:
      return static_cast<LONG>(request);
  }
}

HRESULT SetTaskPriority(ITask* item, Task* task, PriorityRequest request, bool wrap) {
  if (!item) return E_POINTER;
  LONG p = 0;
  HRESULT hr = item->get_Importance(&p);
  if (FAILED(hr)) return hr;
  LONG wanted = NextPriority(p, request, wrap);
  if (wanted == p) return S_FALSE;
  hr = item->put_Importance(wanted);
  if (FAILED(hr)) return hr;
  if (task) task->pending_reminder_time = task->reminder_time;
  hr = item->Save();
  return FAILED(hr) ? hr : S_OK;
}

}  // namespace velmo
