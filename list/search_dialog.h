// The search dialog: "Find what:" (at most 100 characters), "Subjects",
// "Notes", "Case sensitive", and "Filter:" with the categories to search in
// ("Select Categories" while there are none), chosen with the Categories
// dialog on the action key.
#pragma once

#include <string>

#include "list/view_commands.h"
#include "platform/ui/types.h"

namespace velmo {

// Opens over `request` and `filter` (a categories string); on Done fills both
// with what the user chose and returns true. Cancel returns false and changes
// nothing.
bool RunSearchDialog(HWND owner, SearchRequest* request, std::wstring* filter);

}  // namespace velmo
