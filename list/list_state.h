// The task list's program-wide state: the current view, the current primary
// sort pair and the at-default flag. The category filter in force (its list and
// its text) is kept beside the category catalogue in categories/category_state.h.
// Everything here lives from start-up to exit.
#pragma once

#include "platform/wintypes.h"
#include "settings/settings.h"

namespace velmo {

struct ListState {
  UINT view = kFirstViewCommand;  // the current view's command, 40050 .. 40058
  SortPair primary;               // stands in for the primary pair of the sort record in use
  bool at_default = false;        // view and filter are the default ones
};

ListState& CurrentListState();
inline UINT CurrentView() { return CurrentListState().view; }

// Start-up: the current view is the default view of `s`, the primary pair is
// that of its sort record, and the at-default flag is worked out.
void InitListState(const Settings& s = CurrentSettings());

// The sort record a view uses: its own when "MultiSort" is 1, else the first.
const SortRow& SortRecordFor(UINT view, const Settings& s = CurrentSettings());

// Makes `view` current when it differs from the current one and loads the
// primary pair from its sort record. Returns whether the view changed.
bool SetView(UINT view);

// Loads the current primary pair from the sort record of the current view.
void ReloadPrimarySortPair();

// The "Default View" and "Set as Default" menu items after a view or filter change.
struct DefaultViewItems {
  bool default_view_checked = false;  // 40048 carries a check mark
  bool set_as_default_enabled = false;  // 40049 is enabled (greyed otherwise)
};

// Recomputes the at-default flag from the view, the filter text and the
// defaults of the settings; returns how the two menu items look. A search is
// never at the default.
DefaultViewItems UpdateAtDefaultState();

}  // namespace velmo
