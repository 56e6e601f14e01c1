// Drawing one task's row of the owner-drawn list: the background (the selection
// colour, or the list's gradient), the subject in its state colour and font,
// and the information fields laid from the right edge. A compact row is one
// line (subject, then the fields at its right); a normal row is two (the
// subject, then the fields).
#pragma once

#include "list/draw_appearance.h"
#include "platform/ui/types.h"
#include "store/task.h"

namespace velmo {

struct RowDrawState {
  bool selected = false;
  bool compact = false;
  int list_lines = 0;  // the list's height in lines, for the gradient; 0: none
  DATE now = kNoDate;  // kNoDate: the clock's
  const ListAppearance* appearance = nullptr;  // nullptr: made from the settings
};

// `rect` is in the context's coordinates; its top is the row's line within the
// list (the gradient's position).
void DrawTaskRow(HDC hdc, const RECT& rect, const Task& task, const RowDrawState& state);

// WM_DRAWITEM of the list: the row of `task` as the item asks (selected or not,
// the list's height, the current display mode). Returns TRUE (drawn).
BOOL DrawTaskItem(const DRAWITEMSTRUCT* item, const Task& task);

// A task of today: not complete, and due or starting on today's date.
bool IsTodaysTask(const Task& task, DATE now);

// The list's background colour on a line: the window colour, or with the
// gradient a ramp from it at the top line to the appearance's bottom colour.
COLORREF ListLineColour(const ListAppearance& appearance, int line, int lines);

}  // namespace velmo
