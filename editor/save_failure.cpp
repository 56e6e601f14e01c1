#include "editor/save_failure.h"

#include <string>

#include "res/strings.h"

namespace velmo {
namespace {

constexpr UINT kInvalidDateInputs = 358;
constexpr UINT kInvalidTask = 329;
constexpr UINT kErrorNumber = 359;  // "Error %1" with the result
constexpr LONG kMaxOccurrences = 999;
constexpr DATE kReminderWindowDays = 45;

bool Set(DATE d) { return d != kNoDate; }

struct Rule {
  bool (*holds)(const SaveOutcome&);
  UINT caption;
  UINT text;
};

constexpr Rule kRules[] = {
    {[](const SaveOutcome& o) { return o.occurrences > kMaxOccurrences; }, kInvalidDateInputs, 357},
    {[](const SaveOutcome& o) { return !Set(o.due) && Set(o.reminder); }, kInvalidDateInputs, 353},
    {[](const SaveOutcome& o) { return Set(o.due) && Set(o.reminder) && o.reminder > o.due + 1; },
     kInvalidDateInputs, 352},
    {[](const SaveOutcome& o) { return Set(o.start) && !Set(o.due); }, kInvalidDateInputs, 354},
    {[](const SaveOutcome& o) { return Set(o.start) && Set(o.due) && o.due < o.start; }, kInvalidDateInputs,
     346},
    {[](const SaveOutcome& o) {
       return o.result == kReminderTimeRefused && Set(o.reminder) && Set(o.start) &&
              o.reminder < o.start - kReminderWindowDays;
     },
     kInvalidDateInputs, 355},
    {[](const SaveOutcome& o) {
       return o.result == kReminderTimeRefused && Set(o.reminder) && Set(o.due) &&
              o.reminder < o.due - kReminderWindowDays;
     },
     kInvalidDateInputs, 356},
    {[](const SaveOutcome& o) { return o.result == kReminderTimeRefused; }, kInvalidDateInputs, 344},
    {[](const SaveOutcome& o) { return o.result == kDatesRefused; }, kInvalidDateInputs, 343},
    {[](const SaveOutcome& o) { return o.result == E_INVALIDARG; }, kInvalidTask, 345},
};

}  // namespace

SaveFailureMessage DescribeSaveFailure(const SaveOutcome& outcome) {
  for (const Rule& rule : kRules)
    if (rule.holds(outcome)) return {rule.caption, res::Text(rule.caption), res::Text(rule.text)};
  return {kInvalidTask, res::Text(kInvalidTask), res::FormatId(kErrorNumber, {std::to_wstring(outcome.result)})};
}

}  // namespace velmo
