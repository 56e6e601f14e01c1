// The entries of the editor's "Occurs" list: the thirteen choices worded for
// the task's base date, and "Custom pattern" when the task's pattern is none
// of them. The list is reworded whenever the start or due date changes, and
// keeps its selection.
#pragma once

#include <string>
#include <vector>

#include "platform/wintypes.h"

namespace velmo {

struct OccursList {
  std::vector<std::wstring> entries;
  int selection = 0;
  // The date the entries are worded for (year, month, day); 0 before the first fill.
  int filled_year = 0, filled_month = 0, filled_day = 0;
};

// Rewords the entries for the base date; nothing happens when they already are
// worded for its day. "Custom pattern" stays when it was there; so does the
// selection.
void FillOccursList(OccursList* list, DATE base);

// Selects a choice (0-13); choosing 13 adds "Custom pattern" when it is missing.
void SelectOccursChoice(OccursList* list, int choice);

}  // namespace velmo
