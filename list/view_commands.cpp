#include "list/view_commands.h"

#include "categories/category_state.h"
#include "list/list_state.h"
#include "list/view_ids.h"
#include "settings/settings.h"

namespace velmo {
namespace {

constexpr DWORD kViewChanged = kViewEffectRebuildList | kViewEffectMenuMarks;
constexpr DWORD kViewAndFilterChanged = kViewChanged | kViewEffectRebuildFilterMenu;

// 40050 .. 40057: choosing the current view does nothing.
DWORD ChooseView(UINT view) {
  if (!SetView(view)) return kViewEffectNone;
  UpdateAtDefaultState();
  return kViewChanged;
}

DWORD ShowAllCategories() {
  if (CurrentView() == kViewAllTasks && CurrentFilterText().empty()) return kViewEffectNone;
  SetView(kViewAllTasks);
  SetCategoryFilter(L"");
  UpdateAtDefaultState();
  return kViewAndFilterChanged;
}

DWORD ShowDefaultView() {
  const Settings& s = CurrentSettings();
  if (CurrentView() == s.selected_view && CurrentFilterText() == s.filter_categories) {
    return kViewEffectNone;
  }
  SetView(s.selected_view);
  if (CurrentFilterText() != s.filter_categories) SetCategoryFilter(s.filter_categories);
  UpdateAtDefaultState();
  return kViewAndFilterChanged;
}

// A search is never made the default view.
DWORD SetAsDefault() {
  if (CurrentView() == kViewSearch) return kViewEffectNone;
  Settings& s = CurrentSettings();
  s.filter_categories = CurrentFilterText();
  s.selected_view = CurrentView();
  SaveSettings(s);
  UpdateAtDefaultState();
  return kViewEffectMenuMarks;
}

struct StepCommand {
  UINT command;
  bool forward;
  bool skip_empty;
};
constexpr StepCommand kStepCommands[] = {
    {kCmdNextView, true, false},
    {kCmdNextViewSkip, true, true},
    {kCmdPreviousView, false, false},
    {kCmdPreviousViewSkip, false, true},
};

const StepCommand* FindStep(UINT command) {
  for (const StepCommand& step : kStepCommands)
    if (step.command == command) return &step;
  return nullptr;
}

}  // namespace

UINT NextView(UINT view) {
  return view >= kFirstView && view < kLastSteppedView ? view + 1 : kViewAllTasks;
}

UINT PreviousView(UINT view) {
  return view > kFirstView && view <= kLastView ? view - 1 : kLastSteppedView;
}

UINT StepTarget(UINT view, bool forward, bool skip_empty, const ViewEmptyTest& is_empty) {
  do {
    view = forward ? NextView(view) : PreviousView(view);
  } while (skip_empty && view != kViewAllTasks && is_empty && is_empty(view));
  return view;
}

bool IsViewCommand(UINT command) {
  return (command >= kCmdViewAllCategories && command <= kLastSteppedView) ||
         FindStep(command) != nullptr;
}

DWORD RunViewCommand(UINT command, const ViewEmptyTest& is_empty) {
  if (command >= kFirstView && command <= kLastSteppedView) return ChooseView(command);
  if (const StepCommand* step = FindStep(command)) {
    return ChooseView(StepTarget(CurrentView(), step->forward, step->skip_empty, is_empty));
  }
  switch (command) {
    case kCmdViewAllCategories: return ShowAllCategories();
    case kCmdDefaultView: return ShowDefaultView();
    case kCmdSetAsDefault: return SetAsDefault();
    default: return kViewEffectNone;
  }
}

DWORD ApplySearch(const SearchRequest& request) {
  Settings& s = CurrentSettings();
  s.search = request.text.substr(0, kSearchTextMaxChars);
  s.search_subjects = request.subjects;
  s.search_notes = request.notes;
  s.search_case_sensitive = request.case_sensitive;
  SetView(kViewSearch);
  UpdateAtDefaultState();
  return kViewEffectRebuildFilterMenu | kViewEffectReloadTasks | kViewEffectMenuMarks;
}

}  // namespace velmo
