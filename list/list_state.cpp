#include "list/list_state.h"

#include "categories/category_state.h"
#include "list/view_ids.h"

namespace velmo {

ListState& CurrentListState() {
  static ListState state;
  return state;
}

void InitListState(const Settings& s) {
  ListState& state = CurrentListState();
  state.view = s.selected_view;
  ReloadPrimarySortPair();
  UpdateAtDefaultState();
}

const SortRow& SortRecordFor(UINT view, const Settings& s) {
  if (s.multi_sort == 1 && IsView(view)) return s.sort[ViewIndex(view)];
  return s.sort[0];
}

bool SetView(UINT view) {
  ListState& state = CurrentListState();
  if (view == state.view) return false;
  state.view = view;
  ReloadPrimarySortPair();
  return true;
}

void ReloadPrimarySortPair() {
  ListState& state = CurrentListState();
  state.primary = SortRecordFor(state.view)[0];
}

DefaultViewItems UpdateAtDefaultState() {
  ListState& state = CurrentListState();
  const Settings& s = CurrentSettings();
  state.at_default = state.view != kViewSearch && state.view == s.selected_view &&
                     CurrentFilterText() == s.filter_categories;
  if (state.at_default) return {true, false};
  return {false, state.view != kViewSearch};
}

}  // namespace velmo
