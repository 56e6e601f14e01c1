#include "store/task_recurrence.h"

#include "editor/recurrence_choices.h"
#include "editor/recurrence_writer.h"

namespace velmo {

LONG WriteRecurrenceToItem(ITask* item, int choice, DATE base, DATE end) {
  if (!item) return 0;
  if (choice == kOccursOnce) {
    item->ClearRecurrencePattern();
    return 0;
  }
  IRecurrencePattern* pattern = nullptr;
  if (FAILED(item->GetRecurrencePattern(&pattern)) || !pattern) return 0;
  RecurrencePattern values;
  poom::ReadPattern(pattern, &values);
  LONG occurrences = 0;
  if (WriteRecurrenceChoice(choice, base, end, &values) &&
      SUCCEEDED(poom::WritePattern(values, pattern)) &&
      FAILED(pattern->get_Occurrences(&occurrences)))
    occurrences = 0;
  pattern->Release();
  return occurrences < 0 ? 0 : occurrences;
}

HRESULT ReadRecurrenceFromItem(ITask* item, bool* recurring, RecurrencePattern* pattern) {
  *recurring = false;
  VARIANT_BOOL is_recurring = VARIANT_FALSE;
  HRESULT result = item ? item->get_IsRecurring(&is_recurring) : E_POINTER;
  if (FAILED(result) || !is_recurring) return result;
  IRecurrencePattern* from = nullptr;
  result = item->GetRecurrencePattern(&from);
  if (FAILED(result) || !from) return FAILED(result) ? result : E_FAIL;
  result = poom::ReadPattern(from, pattern);
  from->Release();
  *recurring = SUCCEEDED(result);
  return result;
}

LONG CountChoiceOccurrences(IPOutlookApp* app, ITask* edited, int choice, DATE base, DATE end) {
  if (choice == kCustomPattern) return WriteRecurrenceToItem(edited, choice, base, end);
  ITask* scratch = nullptr;
  if (!app || FAILED(app->CreateItem(olTaskItem, &scratch)) || !scratch) return 0;
  const LONG occurrences = WriteRecurrenceToItem(scratch, choice, base, end);
  scratch->Release();
  return occurrences;
}

}  // namespace velmo
