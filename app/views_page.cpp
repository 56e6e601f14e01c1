// The "Views" page: what the views show, and the sort. "Same sort for all
// views" is "MultiSort" inverted; the three sort rows edit the record of the
// view chosen beside "Sort tasks by", or record 0 when one sort serves all.
// Choosing a key pre-selects its default direction.
#include <algorithm>

#include "app/settings_page.h"
#include "app/settings_pages.h"
#include "list/list_state.h"
#include "list/sort_compare.h"
#include "list/view_ids.h"
#include "platform/ui/button.h"
#include "platform/ui/dialog.h"
#include "platform/ui/spinner.h"
#include "res/dialogs_settings.h"
#include "res/strings.h"

namespace velmo::app {
namespace {

using namespace res::settings_id;
using K = FieldKind;

constexpr LONG kMostDays = 999;
// List position = stored direction: Ascending, Descending, Ascending (none last).
constexpr UINT kDirectionNames[] = {491, 493, 492};

const PageField kFields[] = {
    {kShowCompleted, K::kCheck, &Settings::show_completed},
    {kUndatedInActive, K::kCheck, &Settings::undated_in_active},
    {kNDays, K::kNumber, &Settings::n_days, nullptr, nullptr, {}, 0, kMostDays},
    {kADays, K::kNumber, &Settings::a_days, nullptr, nullptr, {}, 0, kMostDays},
    {kTodayInFuture, K::kCheck, &Settings::today_in_future},
    {kTodayInPast, K::kCheck, &Settings::today_in_past},
    {kSameSort, K::kCheckInverted, &Settings::multi_sort},
};

struct SortEdit {
  SortTable shown;    // the stored table at the nearest values the lists show
  SortTable working;  // as the user has made it
};

SortPair Showable(SortPair pair) {
  const auto clamp = [](WORD value, SHORT high) {
    return static_cast<WORD>(std::clamp<SHORT>(static_cast<SHORT>(value), 0, high));
  };
  return {clamp(pair.key, kLastSortKey), clamp(pair.order, kSortAscendingNoneLast)};
}

int KeyList(int row) { return kSortKeyFirst + 4 * row; }
int DirectionList(int row) { return KeyList(row) + 2; }

bool SameSort(HWND page) { return SendDlgItemMessageW(page, kSameSort, BM_GETCHECK, 0, 0) == BST_CHECKED; }

// The record the rows edit.
int Record(HWND page) { return SameSort(page) ? 0 : SelectedChoice(page, kSortView); }

void ShowRecord(HWND page, const SortEdit& edit) {
  const bool same = SameSort(page);
  if (same) SelectChoice(page, kSortView, 0);
  EnableControl(page, kSortView, !same);
  EnableControl(page, kSortView + 1, !same);
  const SortRow& record = edit.working[static_cast<size_t>(Record(page))];
  for (int row = 0; row < kSortLevels; ++row) {
    SelectChoice(page, KeyList(row), record[static_cast<size_t>(row)].key);
    SelectChoice(page, DirectionList(row), record[static_cast<size_t>(row)].order);
  }
}

void Init(HWND page, PageState& state) {
  auto& edit = *static_cast<SortEdit*>(state.own);
  for (size_t r = 0; r < edit.shown.size(); ++r)
    for (size_t n = 0; n < kSortLevels; ++n) edit.shown[r][n] = Showable(state.before.sort[r][n]);
  edit.working = edit.shown;
  for (UINT view = kFirstView; view <= kLastView; ++view) AddChoice(page, kSortView, res::Text(view));
  SelectChoice(page, kSortView, ViewIndex(CurrentView()));
  for (int row = 0; row < kSortLevels; ++row) {
    for (SHORT key = 0; key <= kLastSortKey; ++key)
      AddChoice(page, KeyList(row), res::Text(kSortKeyTextBase + static_cast<UINT>(key)));
    AddChoices(page, DirectionList(row), kDirectionNames);
  }
  ShowRecord(page, edit);
}

bool Changed(HWND page, PageState& state, int id) {
  auto& edit = *static_cast<SortEdit*>(state.own);
  if (id == kSameSort || id == kSortView) {
    ShowRecord(page, edit);
    return true;
  }
  for (int row = 0; row < kSortLevels; ++row) {
    SortPair& pair = edit.working[static_cast<size_t>(Record(page))][static_cast<size_t>(row)];
    if (id == KeyList(row)) {
      pair.key = static_cast<WORD>(SelectedChoice(page, id));
      pair.order = static_cast<WORD>(DefaultSortDirection(static_cast<SHORT>(pair.key)));
      SelectChoice(page, DirectionList(row), pair.order);
      return true;
    }
    if (id == DirectionList(row)) {
      pair.order = static_cast<WORD>(SelectedChoice(page, id));
      return true;
    }
  }
  return false;
}

// Only the keys and directions the user changed replace the stored ones.
void Done(HWND, PageState& state) {
  const auto& edit = *static_cast<const SortEdit*>(state.own);
  for (size_t r = 0; r < edit.shown.size(); ++r) {
    for (size_t n = 0; n < kSortLevels; ++n) {
      const SortPair shown = edit.shown[r][n], now = edit.working[r][n];
      SortPair& stored = state.edited.sort[r][n];
      if (now.key != shown.key) stored.key = now.key;
      if (now.order != shown.order) stored.order = now.order;
    }
  }
}

const PageDef kPage{res::kViewsPage, kFields, {Init, Changed, Done}};

}  // namespace

INT_PTR ShowViewsPage(HWND owner) {
  SortEdit edit;
  return RunSettingsPage(owner, kPage, &edit);
}

}  // namespace velmo::app
