// The actions a key can be bound to: each action code names one menu command of
// the main window, so a key press becomes that command. The codes are what the
// "Shortcuts" value stores; the table is in the order the choice list shows.
#pragma once

#include <array>

#include "platform/wintypes.h"

namespace velmo {

struct ShortcutAction {
  UINT text_id;  // the action's name in the choice list
  WORD code;     // stored in the "Shortcuts" value
  UINT command;  // 0: the action does nothing
};

constexpr int kShortcutActionCount = 71;

// In list order: list position = index.
extern const std::array<ShortcutAction, kShortcutActionCount> kShortcutActions;

// The list position of an action code, or -1 for a code outside the table.
int ShortcutActionPosition(WORD code);

// The command of an action code; 0 for "Nothing" and for codes outside the table.
UINT ShortcutActionCommand(WORD code);

// The Left Menu list (what the left soft key does in the list), by index.
constexpr int kLeftMenuChoiceCount = 7;
struct LeftMenuChoice {
  UINT text_id;
  UINT command;
};
extern const std::array<LeftMenuChoice, kLeftMenuChoiceCount> kLeftMenuChoices;
// The command of a Left Menu index; 0 outside the list.
UINT LeftMenuCommand(WORD index);

// The Back Key list, by index.
enum BackKeyChoice : WORD {
  kBackKeyBack = 0,
  kBackKeyDefaultViewOrBack = 1,
  kBackKeyExit = 2,
  kBackKeyDefaultViewOrExit = 3,
};
constexpr int kBackKeyChoiceCount = 4;
extern const std::array<UINT, kBackKeyChoiceCount> kBackKeyChoiceTexts;

}  // namespace velmo
