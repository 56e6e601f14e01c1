#include "editor/occurs_list.h"

#include "editor/recurrence_choices.h"
#include "editor/recurrence_words.h"

namespace velmo {

void FillOccursList(OccursList* list, DATE base) {
  SYSTEMTIME st{};
  if (!VariantTimeToSystemTime(base, &st)) return;
  if (st.wYear == list->filled_year && st.wMonth == list->filled_month && st.wDay == list->filled_day)
    return;
  const bool had_custom = list->entries.size() > kFixedChoices;
  list->entries.clear();
  for (int choice = 0; choice < kFixedChoices; ++choice)
    list->entries.push_back(RecurrenceChoiceText(choice, base));
  if (had_custom) list->entries.push_back(RecurrenceChoiceText(kCustomPattern, base));
  list->filled_year = st.wYear;
  list->filled_month = st.wMonth;
  list->filled_day = st.wDay;
}

void SelectOccursChoice(OccursList* list, int choice) {
  if (choice < 0 || choice > kCustomPattern) return;
  if (choice == kCustomPattern && list->entries.size() == kFixedChoices)
    list->entries.push_back(RecurrenceChoiceText(kCustomPattern, 0));
  if (static_cast<size_t>(choice) < list->entries.size()) list->selection = choice;
}

}  // namespace velmo
