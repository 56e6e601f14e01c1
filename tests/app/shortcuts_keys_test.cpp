#include <gtest/gtest.h>

#include <set>

#include "app/shortcut_actions.h"
#include "app/shortcut_hotkeys.h"
#include "app/shortcut_keys.h"
#include "platform/ui/messages.h"
#include "platform/ui/virtual_keys.h"
#include "res/strings.h"

namespace velmo {
namespace {

TEST(ShortcutKeys, ListKeysWithTheDefaultBindings) {
  struct Case { UINT vk; UINT command; } cases[] = {
      {'5', 40053},        {'D', 40053},        // a keyboard's "D" is the 5 key
      {'0', 40057},        {VK_QUESTION, 40057}, {'1', 40050}, {'W', 40050},
      {'9', 40159},        {'C', 40159},         {'3', 40156},
      {'A', 40056},        {VK_TSTAR, 40056},    // star: "View: Future Tasks"
      {'G', 40157},        {VK_TPOUND, 40157},   // hash: "Last Task"
      {VK_RETURN, 40007},  {VK_LEFT, 40069},     {VK_RIGHT, 40063}, {VK_TTALK, 40121},
      {VK_UP, 0},          {VK_DOWN, 0},         // they move through the list
      {'Q', 0},            {'B', 0},             {VK_F11, 0}, {VK_NONAME, 0}, {0xFFFF, 0},
      {VK_TVOLUMEUP, 0},   {VK_TRECORD, 0},      // hot keys, not list keys
  };
  for (const Case& c : cases) EXPECT_EQ(ListKeyCommand(c.vk, kDefaultShortcuts), c.command) << c.vk;
}

TEST(ShortcutKeys, NothingAndCodesOutsideTheTableDoNothing) {
  ShortcutTable b = kDefaultShortcuts;
  b[5] = 0;  // "Nothing"
  b[6] = 70;
  b[8] = 71;  // past the table
  EXPECT_EQ(ListKeyCommand('5', b), 0u);
  EXPECT_EQ(ListKeyCommand('6', b), 39981u);
  EXPECT_EQ(ListKeyCommand('8', b), 0u);
  EXPECT_EQ(SlotCommand(kSlotBackKey, b), 0u);  // a list index, never an action
}

TEST(ShortcutKeys, ActionTableCoversEveryCodeOnceWithItsText) {
  std::set<WORD> codes;
  for (const ShortcutAction& a : kShortcutActions) {
    EXPECT_TRUE(codes.insert(a.code).second) << a.code;
    EXPECT_NE(res::String(a.text_id), nullptr) << a.text_id;
    EXPECT_EQ(ShortcutActionPosition(a.code), &a - kShortcutActions.data());
  }
  EXPECT_EQ(codes.size(), 71u);
  EXPECT_EQ(*codes.rbegin(), 70);
  // Two rows whose list position differs from their code.
  EXPECT_EQ(kShortcutActions[2].code, 49);
  EXPECT_EQ(res::Text(kShortcutActions[36].text_id), L"View: Filter » skip empty");
  EXPECT_EQ(res::Text(kFirstSlotNameId + kSlotTalkKey), L"Talk Key");
}

TEST(ShortcutHotKeys, PressesOfRecordVolumeAndTalk) {
  const ShortcutContext list{}, entry{true, false};
  struct Case { UINT vk; bool up; ShortcutContext context; UINT command; } cases[] = {
      {VK_TVOLUMEDOWN, false, list, 40060},  // "Filter: Category » skip empty"
      {VK_TVOLUMEUP, false, list, 40062},    // "Filter: Category « skip empty"
      {VK_TRECORD, false, list, 40048},
      {VK_TTALK, false, list, 40121},
      {VK_TTALK, false, entry, kCmdQuickEntryCallHistory},
      {VK_TVOLUMEUP, true, list, 0},  // releases do nothing
      {VK_TTALK, true, entry, 0},
      {'5', false, list, 0},  // not a hot key
  };
  for (const Case& c : cases) {
    ShortcutOutcome o = HandleShortcutKey(c.vk, c.up, c.context, kDefaultShortcuts);
    EXPECT_EQ(o.command, c.command) << c.vk;
    EXPECT_EQ(o.kind, c.command ? ShortcutKind::kCommand : ShortcutKind::kNothing) << c.vk;
  }
}

TEST(ShortcutHotKeys, BackKeyOnReleaseByItsChoice) {
  using K = ShortcutKind;
  struct Case { WORD choice; bool at_default; ShortcutOutcome outcome; UINT restore_sort = 0; } cases[] = {
      {kBackKeyBack, false, {K::kDefaultBack, 0}},     {kBackKeyBack, true, {K::kDefaultBack, 0}},
      {kBackKeyExit, false, {K::kCommand, kCmdExit}},  {kBackKeyExit, true, {K::kCommand, kCmdExit}},
      {kBackKeyDefaultViewOrBack, false, {K::kCommand, kCmdShowDefaultView}},
      {kBackKeyDefaultViewOrBack, true, {K::kDefaultBack, 0}},
      {kBackKeyDefaultViewOrExit, false, {K::kCommand, kCmdShowDefaultView}},
      {kBackKeyDefaultViewOrExit, true, {K::kCommand, kCmdExit}},
      {9, false, {K::kDefaultBack, 0}},  // a value outside the list
      // A "Sort by" choice to undo: "Default View / Back" at the default view restores it.
      {kBackKeyDefaultViewOrBack, true, {K::kCommand, 39954}, 39954},
      {kBackKeyDefaultViewOrBack, false, {K::kCommand, kCmdShowDefaultView}, 39954},
      {kBackKeyDefaultViewOrExit, true, {K::kCommand, kCmdExit}, 39954},
  };
  for (const Case& c : cases) {
    ShortcutTable b = kDefaultShortcuts;
    b[kSlotBackKey] = c.choice;
    ShortcutContext context{false, c.at_default, c.restore_sort};
    EXPECT_EQ(HandleShortcutKey(VK_TBACK, true, context, b), c.outcome) << c.choice;
    EXPECT_EQ(HandleShortcutKey(VK_TBACK, false, context, b), ShortcutOutcome{});
    context.in_quick_entry = true;
    EXPECT_EQ(HandleShortcutKey(VK_TBACK, true, context, b).kind, K::kEntryField);
  }
  // The message form: the release arrives with MOD_KEYUP among the modifiers.
  ShortcutTable exit_binding = kDefaultShortcuts;
  exit_binding[kSlotBackKey] = kBackKeyExit;
  LPARAM released = static_cast<LPARAM>(MAKELONG(MOD_KEYUP, VK_TBACK));
  EXPECT_EQ(HandleHotKeyMessage(kHotKeyBack, released, {}, exit_binding).command, kCmdExit);
  EXPECT_EQ(LeftMenuCommand(3), 40003u);
  EXPECT_EQ(LeftMenuCommand(7), 0u);
}

}  // namespace
}  // namespace velmo
