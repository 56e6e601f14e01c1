// The "Shortcuts" settings page: one row per key with its name and its choice;
// Left and Right step the focused row through its choices, "Done" saves all 21
// values, "Cancel" (or the back key) leaves them as they were.
#pragma once

#include "platform/ui/types.h"

namespace velmo {

constexpr UINT kCmdShortcutsPage = 40030;

// Runs the page over `owner`. Returns IDOK when the bindings were saved,
// IDCANCEL when left unchanged, -1 when the page could not be shown.
INT_PTR ShowShortcutsPage(HWND owner);

}  // namespace velmo
