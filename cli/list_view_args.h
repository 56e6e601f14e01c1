// The arguments of `velmo list VIEW [--filter CATEGORIES] [--at DATE-TIME]
// [--search TEXT]`.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/wintypes.h"

namespace velmo::cli {

struct ListViewArgs {
  UINT view = 0;                        // the view's command
  std::optional<std::wstring> filter;   // none: the device's default filter
  DATE at = 0;                          // kNoDate: now
  std::optional<std::wstring> search;   // none: the device's last search text
};

// The view a name stands for (all, overdue, active, completed, today, next,
// future, undated, search), or 0.
UINT ViewFromName(std::string_view name);

// Parses the arguments after "list VIEW"'s "list". Returns false with `error`
// set for a bad one; `error` names it.
bool ParseListViewArgs(int argc, char** argv, ListViewArgs* args, std::string* error);

}  // namespace velmo::cli
