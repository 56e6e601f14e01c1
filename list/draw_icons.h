// The program's status icons as the terminal draws them: one narrow glyph each,
// by the icon's index in the program's icon image list.
#pragma once

#include <optional>

#include "platform/ui/types.h"

namespace velmo {

enum StatusIcon : int {
  kIconHighPriority = 0,
  kIconLowPriority = 1,
  kIconRecurring = 2,
  kIconCompleted = 8,
  kIconReminder = 11,
  kIconNotes = 12,
  kIconPrivate = 13,
  kIconTeamTask = 14,
  kIconLinks = 15,
};

struct IconGlyph {
  wchar_t glyph = 0;                // 0: no such icon
  std::optional<COLORREF> colour;   // none: the row's text colour
};

// The glyph of an icon index; glyph 0 for an index that has none.
IconGlyph StatusIconGlyph(int index);

}  // namespace velmo
