// The task summary's page: a control that draws the summary's lines from a
// scrolled top line, its keys scrolling it (Up/Down a line, the volume keys a
// page), laid out again for its width whenever its size changes.
#pragma once

#include "editor/summary_lines.h"
#include "platform/ui/messages.h"
#include "platform/ui/types.h"

namespace velmo {

// lParam: the SummaryTask to show (kept by the caller while the page lives).
constexpr UINT kMsgSummarySetTask = WM_USER + 1;
// Returns the index of the top line shown.
constexpr UINT kMsgSummaryTopLine = WM_USER + 2;

// Registers the page's class (res::kTaskSummaryPageClass) on the current screen.
void RegisterSummaryPage();

}  // namespace velmo
