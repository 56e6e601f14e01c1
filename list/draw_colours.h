// The colours of the task list: which state colour a row's subject and each of
// its date fields take at a given moment, and the colour settings (indexes
// into the colour tables) turned into colours.
#pragma once

#include "platform/ui/types.h"
#include "store/task.h"

namespace velmo {

// The colour a piece of a row takes, before it is looked up in the settings.
enum class RowColour {
  kCompleted,   // "CompletedColor"
  kUndated,     // "UndatedColor"
  kFuture,      // "FutureColor"
  kOverdue,     // "OverdueColor"
  kNormal,      // "NormalColor"
  kWindowText,  // the window text colour
};
constexpr int kRowColourCount = 6;

// The subject's colour. Dates are compared as they are, times of day included:
// a task is overdue only once `now` is past a whole day after its due date. A
// task with only a start date takes the window text colour, none of the state
// colours.
RowColour SubjectColour(const Task& task, DATE now);

// A date field's colour: future before `date`, overdue after date + 1.0,
// normal in between (both ends included).
RowColour DateColour(DATE date, DATE now);

// A text-colour index ("No change" gives `no_change`); an index outside the
// table gives the window text colour.
COLORREF TextColourFromIndex(DWORD index, COLORREF no_change);
// A background-colour index; outside the table, the window colour.
COLORREF BackgroundColourFromIndex(DWORD index);

}  // namespace velmo
