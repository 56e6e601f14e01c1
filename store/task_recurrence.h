// A task item's recurrence through the object model: an "Occurs" choice
// written into the item's pattern, the pattern read back as plain values, and
// the occurrence count of a choice worked out on a scratch item.
#pragma once

#include "platform/recurrence_pattern.h"
#include "platform/poom.h"

namespace velmo {

// Choice 0 clears the item's pattern; choices 1-12 write their type and fields
// for the base date, choice 13 keeps the pattern's own fields; then the base
// date becomes the pattern's start and `end` its end (kNoDate: no end). Returns
// the pattern's Occurrences, 0 when negative or unreadable. Nothing is saved.
LONG WriteRecurrenceToItem(ITask* item, int choice, DATE base, DATE end);

// Whether the item recurs and, when it does, its pattern.
HRESULT ReadRecurrenceFromItem(ITask* item, bool* recurring, RecurrencePattern* pattern);

// The occurrences a choice would give, from a new unsaved item (for choice 13,
// `edited`, the item being edited): 0 for no limit or when it cannot be worked out.
LONG CountChoiceOccurrences(IPOutlookApp* app, ITask* edited, int choice, DATE base, DATE end);

}  // namespace velmo
