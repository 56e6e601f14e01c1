// The task summary's page as lines of text: the task's fields with their
// labels, dates in words, the recurrence described, the categories with their
// icons and the notes with their links marked, wrapped to the page's width.
#pragma once

#include <string>
#include <vector>

#include "categories/cell_icon.h"
#include "platform/recurrence_pattern.h"
#include "platform/oletime.h"
#include "platform/wintypes.h"

namespace velmo {

// What the summary shows of a task, as read from the object model.
struct SummaryTask {
  std::wstring subject;
  LONG importance = 1;  // 0 Low, 1 Normal, 2 High
  DATE start = kNoDate;
  DATE due = kNoDate;
  bool reminder_set = false;
  DATE reminder = kNoDate;
  bool recurring = false;
  RecurrencePattern pattern;
  std::wstring categories;
  LONG sensitivity = 0;  // 2: private
  bool team_task = false;
  bool complete = false;
  DATE completed = kNoDate;
  std::wstring notes;
};

enum class SummaryInk { kTitle, kLabel, kText, kLink, kIcon };

struct SummaryPiece {
  std::wstring text;
  SummaryInk ink = SummaryInk::kText;
  const CellIcon* icon = nullptr;  // kIcon: the category's icon cells
};

using SummaryLine = std::vector<SummaryPiece>;

// The page for a width of `width` cells (at least 1): the subject as its
// title, one line per field that has something to say, then the notes. Words
// are carried to the next line whole unless one is wider than the page.
std::vector<SummaryLine> SummaryLines(const SummaryTask& task, int width);

// The text of a line, its icons as blanks (for tests and the headless screen).
std::wstring LineText(const SummaryLine& line);

}  // namespace velmo
