#include "list/sort_rows.h"

#include <algorithm>

#include "list/list_state.h"
#include "list/sort_compare.h"

namespace velmo {
namespace {

int ComparePair(const Task& a, const Task& b, SortPair pair) {
  return Compare(a, b, static_cast<SHORT>(pair.key), static_cast<SHORT>(pair.order));
}

// Settle ties of a record that names a tertiary key, first result that differs.
constexpr SortPair kTieBreakers[] = {
    {kSortSubject, kSortAscending},
    {kSortStartDate, kSortDescending},
    {kSortDueDate, kSortDescending},
};

constexpr bool IsKnownPair(SortPair pair) {
  return pair.key >= 1 && pair.key <= kLastSortKey && pair.order <= kSortAscendingNoneLast;
}

constexpr UINT SortByItem(WORD key) {
  return key >= 1 && key <= kLastSortKey ? kCmdFirstSortBy - 1 + key : 0;
}

}  // namespace

int CompareRowsBy(const Task& a, const Task& b, SortPair primary, const SortRow& record) {
  int r = 0;
  if (primary.key != 0) r = ComparePair(a, b, primary);
  if (record[1].key != 0 && r == 0) r = ComparePair(a, b, record[1]);
  if (record[2].key == 0) return r;
  if (r == 0) r = ComparePair(a, b, record[2]);
  // A record the program cannot read (keys or directions out of range) orders
  // nothing, so it brings no tie-breakers either.
  if (!IsKnownPair(record[2])) return r;
  for (const SortPair& pair : kTieBreakers) {
    if (r != 0) break;
    r = ComparePair(a, b, pair);
  }
  return r;
}

int CompareRows(const Task& a, const Task& b) {
  return CompareRowsBy(a, b, CurrentListState().primary, SortRecordFor(CurrentView()));
}

void SortRows(std::vector<const Task*>& rows) {
  const SortPair primary = CurrentListState().primary;
  const SortRow& record = SortRecordFor(CurrentView());
  // A stable merge sort: equal rows keep their order, and no order a comparison
  // could give makes it run past the rows.
  std::stable_sort(rows.begin(), rows.end(), [&](const Task* a, const Task* b) {
    return CompareRowsBy(*a, *b, primary, record) < 0;
  });
}

bool ChooseSortBy(UINT command) {
  if (!IsSortByCommand(command)) return false;
  const auto key = static_cast<SHORT>(command - kCmdFirstSortBy + 1);
  CurrentListState().primary = {static_cast<WORD>(key),
                                static_cast<WORD>(DefaultSortDirection(key))};
  return true;
}

UINT CheckedSortByItem() { return SortByItem(CurrentListState().primary.key); }

UINT SortByCommandToRestore() {
  const WORD record_key = SortRecordFor(CurrentView())[0].key;
  if (record_key == CurrentListState().primary.key) return 0;
  return SortByItem(record_key);
}

SortSettingsChange ApplySortSettings(const Settings& before, const Settings& after) {
  const UINT view = CurrentView();
  const SortRow& old_record = SortRecordFor(view, before);
  const SortRow& new_record = SortRecordFor(view, after);
  SortSettingsChange change;
  if (old_record[0] != new_record[0]) {
    CurrentListState().primary = new_record[0];
    change.primary_reloaded = true;
  }
  change.resort = old_record != new_record;
  return change;
}

}  // namespace velmo
