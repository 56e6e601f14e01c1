// The information of one row, as the "Infos" / "InfosCompressed" choice packs
// it: the date fields, the status icons and the category icons, in the order
// they are laid from the row's right edge leftwards.
#pragma once

#include <string>
#include <vector>

#include "categories/cell_icon.h"
#include "list/draw_colours.h"
#include "store/task.h"

namespace velmo {

// The bits of the packed choice.
enum InfoBits : DWORD {
  kInfoStartDate = 0x04000000,      // the start date, while the task is not completed
  kInfoDueDate = 0x08000000,        // the effective due date, while not completed
  kInfoRelativeDays = 0x10000000,   // the due date as days from today, while not completed
  kInfoDateCompleted = 0x40000000,  // the date completed and the completed icon
  kInfoPriority = 0x00020000,       // high (icon 0) or low (icon 1) priority
  kInfoRecurring = 0x00002000,      // icon 2
  kInfoTeamTask = 0x00001000,       // icon 14
  kInfoReminder = 0x00200000,       // icon 11
  kInfoNotes = 0x00400000,          // icon 12
  kInfoPrivate = 0x00800000,        // icon 13
  kInfoCategoryIcons = 0x00000800,  // the task's categories that have an icon
  kInfoLinks = 0x00000400,          // icon 15: a telephone number, e-mail or web address
};

// Put between the start date and the due date when both are shown.
constexpr wchar_t kDateRangeSeparator[] = L"-";

struct RowPiece {
  enum class Kind { kText, kIcon, kCategoryIcon } kind = Kind::kText;
  std::wstring text;                 // kText
  RowColour colour = RowColour::kNormal;  // kText
  int icon = -1;                     // kIcon: status icon index
  const CellIcon* cells = nullptr;   // kCategoryIcon
  bool joined = false;  // right against the piece on its right, without a blank between
};

// The pieces of a row, rightmost first. Dates are written with `date_picture`.
std::vector<RowPiece> RowInfoPieces(const Task& task, DWORD infos, DATE now,
                                    const std::wstring& date_picture);

// "=" for a due day that is today, "-n" n days ago, "+n" n days ahead.
std::wstring RelativeDayText(DATE due, DATE now);

}  // namespace velmo
