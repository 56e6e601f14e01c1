// The full order of the list's rows: the current primary pair, the secondary and
// tertiary pairs of the sort record in use, then fixed tie-breakers; and the
// "Sort by" menu that replaces the primary pair.
#pragma once

#include <vector>

#include "platform/wintypes.h"
#include "settings/settings.h"
#include "store/task.h"

namespace velmo {

// Negative puts a first. Only a record with a tertiary key breaks a remaining tie,
// by Subject ascending, then Start Date and Due Date descending; without one a
// tie stays a tie. Keys and directions out of range compare equal and break no tie.
int CompareRows(const Task& a, const Task& b);

// The same under an explicit primary pair and record.
int CompareRowsBy(const Task& a, const Task& b, SortPair primary, const SortRow& record);

// Orders rows by CompareRows; rows that compare equal keep their order.
void SortRows(std::vector<const Task*>& rows);

// "Sort by" items 39950 .. 39959 are keys 1 .. 10.
constexpr UINT kCmdFirstSortBy = 39950;
constexpr UINT kCmdLastSortBy = 39959;
constexpr bool IsSortByCommand(UINT command) {
  return command >= kCmdFirstSortBy && command <= kCmdLastSortBy;
}

// Makes (key, its default direction) the current primary pair. Returns false for
// another command.
bool ChooseSortBy(UINT command);

// The "Sort by" item that carries the radio mark: that of the current primary
// key, or 0 when the key has no item (None, unknown keys).
UINT CheckedSortByItem();

// The "Sort by" command that brings back the primary key of the record in use,
// or 0 when the current primary key is already it (or it has no item).
UINT SortByCommandToRestore();

// After the settings pages applied new sort settings: a changed primary pair of
// the record in use becomes the current primary pair; a change of any pair of
// that record means the list must be sorted again.
struct SortSettingsChange {
  bool primary_reloaded = false;
  bool resort = false;
};
SortSettingsChange ApplySortSettings(const Settings& before, const Settings& after);

}  // namespace velmo
