#include "editor/occurrence_counter.h"

#include "editor/recurrence_writer.h"

namespace velmo {

LONG CountOccurrencesOnScratchTask(IPOutlookApp* app, const EditorFields& f, DATE today) {
  ITask* scratch = nullptr;
  if (!app || FAILED(app->CreateItem(olTaskItem, &scratch)) || !scratch) return 0;
  LONG count = 0;
  IRecurrencePattern* live = nullptr;
  RecurrencePattern pattern = f.pattern.value_or(RecurrencePattern{});
  const DATE end = f.no_end ? kNoDate : f.recurrence_end.value;
  if (WriteRecurrenceChoice(f.occurs_choice, OccursBaseDate(f, today), end, &pattern) &&
      SUCCEEDED(scratch->GetRecurrencePattern(&live)) && live) {
    LONG read = 0;
    if (SUCCEEDED(poom::WritePattern(pattern, live)) && SUCCEEDED(live->get_Occurrences(&read)))
      count = read < 0 ? 0 : read;
    live->Release();
  }
  scratch->Release();
  return count;
}

}  // namespace velmo
