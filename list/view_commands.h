// The main window's view commands as logic: what each does to the current view,
// the filter and the defaults, and what the window must then redo.
#pragma once

#include <functional>
#include <string>

#include "platform/wintypes.h"

namespace velmo {

// What the window redoes after a view command, as bits.
enum ViewCommandEffect : DWORD {
  kViewEffectNone = 0,
  kViewEffectRebuildList = 1u << 0,        // rebuild and sort the list, retitle
  kViewEffectRebuildFilterMenu = 1u << 1,  // the filter changed
  kViewEffectReloadTasks = 1u << 2,        // read every record again, then rebuild the list
  kViewEffectMenuMarks = 1u << 3,          // the view's radio mark and the default items moved
};

// The next and previous views of the stepping commands: forward from Undated (and
// from Search) is All Tasks, back from All Tasks is Undated, back from Search is
// Undated. A number that is no view steps to All Tasks or Undated.
UINT NextView(UINT view);
UINT PreviousView(UINT view);

// Whether a view would list nothing (it is asked while stepping with skipping).
using ViewEmptyTest = std::function<bool(UINT view)>;

// The view a step command lands on from `view`: one step, or with skipping the
// first view that is not empty, All Tasks being the stop.
UINT StepTarget(UINT view, bool forward, bool skip_empty, const ViewEmptyTest& is_empty);

bool IsViewCommand(UINT command);

// Carries out 40047-40049, 40050-40057 and 40063/40064/40069/40070 (40058 opens
// the search dialog, whose OK is ApplySearch). Returns the effects; a command
// that changes nothing returns kViewEffectNone. The default filter and view are
// saved with the settings by "Set as Default".
DWORD RunViewCommand(UINT command, const ViewEmptyTest& is_empty);

// The search dialog's OK: keeps the text (at most 100 characters) and the three
// switches, and makes Search the current view.
struct SearchRequest {
  std::wstring text;
  bool subjects = true;
  bool notes = true;
  bool case_sensitive = false;
};
constexpr size_t kSearchTextMaxChars = 100;
DWORD ApplySearch(const SearchRequest& request);

}  // namespace velmo
