// The list's title: the view's name with the number of rows (or the position of
// one row among them) and the category filter.
#pragma once

#include <string>
#include <string_view>

#include "platform/wintypes.h"
#include "settings/settings.h"

namespace velmo {

// The title's longest text; a longer one is cut.
constexpr size_t kTitleMaxChars = 99;

// What the title says of the filter: nothing without one, the category's name
// (or "No Category") for one, "Multiple" for more ("Multiple Cat." in All Tasks).
std::wstring TitleCategoryText(UINT view, int filter_count, std::wstring_view first_name);

// The title from its parts: `count` is the number of rows ("12") or a position
// ("3/12"); the view's day-count settings choose the Next Days and Active forms.
std::wstring FormatViewTitle(UINT view, std::wstring_view count, std::wstring_view category_text,
                             int filter_count, const Settings& s);

// The title of the current view under the filter in force. `position` < 0 gives
// the plain form with the number of rows; otherwise the position form shows
// position + 1 of `rows`, as the task editor's title does.
std::wstring ListTitle(int rows, int position = -1);

}  // namespace velmo
