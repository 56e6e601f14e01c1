// What every settings page shares: a dialog table from res/ and a table of
// fields, each binding one control to one setting of the block. The page
// shows each setting at the nearest value its control can show; "Done"
// writes back only the fields the user changed (so a value the page cannot
// show is kept as stored), saves the block with flush and applies it at once;
// "Cancel" changes nothing.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "platform/ui/types.h"
#include "res/dialog_table.h"
#include "settings/settings.h"

namespace velmo::app {

enum class FieldKind {
  kCheck,          // check box: checked is 1, unchecked 0
  kCheckInverted,  // check box: checked is 0, unchecked 1
  kBit,            // check box over one bit of a packed value
  kChoice,         // spinner list: the list position is the value
  kNumber,         // edit with its up-down, within [low, high]
  kTime,           // time picker: minutes after midnight
  kText,           // edit of at most `high` characters
};

struct PageField {
  int id;
  FieldKind kind;
  DWORD Settings::*dword = nullptr;
  LONG Settings::*signed_dword = nullptr;
  std::wstring Settings::*text = nullptr;
  std::span<const UINT> choices = {};  // kChoice: the entries' string ids
  LONG low = 0;
  LONG high = 0;
  DWORD bit = 0;  // kBit
};

struct PageState;

// A page's own parts beyond its fields (each may be null).
struct PageHooks {
  void (*init)(HWND page, PageState& state) = nullptr;
  // A control's notification; true when the page handled it.
  bool (*changed)(HWND page, PageState& state, int id) = nullptr;
  // Writes the page's own controls into state.edited on "Done".
  void (*done)(HWND page, PageState& state) = nullptr;
  // The action key on the focused control `id`; true when it opened something
  // there (otherwise the action key is "Done").
  bool (*action)(HWND page, PageState& state, int id) = nullptr;
};

struct PageDef {
  const res::DialogDef& dialog;
  std::span<const PageField> fields;
  PageHooks hooks = {};
};

struct PageState {
  const PageDef* def = nullptr;
  Settings before;  // the block as the page found it
  Settings edited;  // what "Done" makes current
  std::vector<LONG> shown;              // each field's value as first shown
  std::vector<std::wstring> shown_text;
  void* own = nullptr;  // the page's own state, for its hooks
};

// Runs the page over `owner`. IDOK when the block was saved and applied,
// IDCANCEL when left unchanged, -1 when the page could not be shown.
INT_PTR RunSettingsPage(HWND owner, const PageDef& page, void* own = nullptr);

// The control helpers the pages' own parts use.
void AddChoices(HWND page, int id, std::span<const UINT> text_ids);
void AddChoice(HWND page, int id, const std::wstring& text);
void SelectChoice(HWND page, int id, int index);
int SelectedChoice(HWND page, int id);
void EnableControl(HWND page, int id, bool enabled);

// Makes `after` the current block: saves it with flush, then applies what
// changed since `before` to the main window (when there is one).
void CommitSettings(const Settings& before, const Settings& after);

}  // namespace velmo::app
