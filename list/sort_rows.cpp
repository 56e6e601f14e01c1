#include "list/sort_rows.h"

#include <algorithm>
#include <iterator>

#include "list/collation_key_cache.h"
#include "list/list_state.h"
#include "list/sort_compare.h"
#include "platform/lstrcmp.h"

namespace velmo {
namespace {

// A row being ordered: its task and, during a sort, the collation keys of its texts.
struct Keyed {
  const Task* task;
  TaskTextKeys* keys;
};

int ComparePair(const Keyed& a, const Keyed& b, SortPair pair) {
  return CompareKeyed(*a.task, a.keys, *b.task, b.keys, static_cast<SHORT>(pair.key),
                      static_cast<SHORT>(pair.order));
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

int CompareKeyedRows(const Keyed& a, const Keyed& b, SortPair primary, const SortRow& record) {
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

// The pairs an order by `primary` and `record` may consult.
std::vector<SortPair> PairsInUse(SortPair primary, const SortRow& record) {
  std::vector<SortPair> pairs = {primary, record[1], record[2]};
  if (record[2].key != 0 && IsKnownPair(record[2]))
    pairs.insert(pairs.end(), std::begin(kTieBreakers), std::end(kTieBreakers));
  return pairs;
}

bool UsesKey(const std::vector<SortPair>& pairs, WORD key) {
  return std::any_of(pairs.begin(), pairs.end(), [key](SortPair p) { return p.key == key; });
}

}  // namespace

int CompareRowsBy(const Task& a, const Task& b, SortPair primary, const SortRow& record) {
  return CompareKeyedRows({&a, nullptr}, {&b, nullptr}, primary, record);
}

int CompareRows(const Task& a, const Task& b) {
  return CompareRowsBy(a, b, CurrentListState().primary, SortRecordFor(CurrentView()));
}

void SortRows(std::vector<const Task*>& rows) {
  const SortPair primary = CurrentListState().primary;
  const SortRow& record = SortRecordFor(CurrentView());
  const CollationScope collation;
  PrepareCollationKeyCache();
  const std::vector<SortPair> pairs = PairsInUse(primary, record);
  const bool by_text = UsesKey(pairs, kSortSubject) || UsesKey(pairs, kSortCategories);
  std::vector<TaskTextKeys> keys(by_text ? rows.size() : 0);
  std::vector<Keyed> keyed(rows.size());
  for (size_t i = 0; i < rows.size(); ++i) keyed[i] = {rows[i], by_text ? &keys[i] : nullptr};
  // A stable merge sort: equal rows keep their order, and no order a comparison
  // could give makes it run past the rows.
  std::stable_sort(keyed.begin(), keyed.end(), [&](const Keyed& a, const Keyed& b) {
    return CompareKeyedRows(a, b, primary, record) < 0;
  });
  for (size_t i = 0; i < rows.size(); ++i) rows[i] = keyed[i].task;
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
