#include "editor/menu_state.h"

#include "res/command_ids.h"

namespace velmo {
namespace {

enum FocusMask : unsigned {
  kOnText = 1u << static_cast<int>(EditorFocus::kText) | 1u << static_cast<int>(EditorFocus::kNotes),
  kOnDate = 1u << static_cast<int>(EditorFocus::kDate),
  kOnEnd = 1u << static_cast<int>(EditorFocus::kRecurrenceEnd),
  kAlways = ~0u,
};

struct CommandRule {
  UINT first;
  UINT last;
  unsigned enabled_on;
};

constexpr CommandRule kRules[] = {
    {40094, 40104, kOnDate},           // Yesterday .. Due Date
    {40107, 40107, kOnDate | kOnEnd},  // Date Picker...
    {40085, 40085, kOnText},           // My Text
    {40086, 40086, kOnText},           // Contact
    {40092, 40092, kOnText},           // Call History, when the phone has calls
    {40140, 40153, kOnText},           // Time, Date and Time, Short and Long Date
    {47000, 47000, kOnText},           // Tab
};

}  // namespace

const EditorCommandRange kEditorMenuCommands[5] = {
    {40094, 40107}, {40085, 40092}, {40140, 40153}, {47000, 47000}, {cmd::kDelete, cmd::kDelete}};

bool EditorCommandEnabled(UINT command, EditorFocus focus, bool is_new, bool has_calls) {
  if (command == cmd::kDelete) return !is_new;
  if (command == 40092 && !has_calls) return false;
  for (const CommandRule& rule : kRules) {
    if (command >= rule.first && command <= rule.last)
      return (rule.enabled_on & (1u << static_cast<int>(focus))) != 0;
  }
  return true;
}

}  // namespace velmo
