#include "platform/ui/edit.h"
#include "platform/ui/hotkeys.h"
#include "platform/ui/keymap.h"
#include "platform/ui/softkey_bar.h"
#include "platform/ui/virtual_keys.h"
#include "tests/ui/ui_fixture.h"

// Last: curses.h defines macros (TRUE, OK ...) the headers above must not see.
#include <curses.h>

namespace velmo::testing {
namespace {

TEST(KeymapTest, TerminalKeysAreThePhonesKeys) {
  struct Case { int code; UINT vk; } const cases[] = {
      {KEY_F(1), VK_TSOFT1},          {KEY_F(2), VK_TSOFT2},          {KEY_F(3), VK_TTALK},
      {KEY_F(4), VK_TEND},            {KEY_F(5), VK_TVOLUMEDOWN},     {KEY_F(6), VK_TVOLUMEUP},
      {KEY_F(7), VK_TRECORD},         {KEY_NPAGE, VK_TVOLUMEDOWN},    {KEY_PPAGE, VK_TVOLUMEUP},
      {KEY_UP, VK_UP},                {KEY_BACKSPACE, VK_BACK},       {KEY_ENTER, VK_RETURN},
  };
  for (const Case& c : cases) {
    ui::InputEvent e;
    ASSERT_TRUE(ui::KeyFromCursesCode(c.code, &e)) << c.code;
    EXPECT_EQ(e.vk, c.vk) << c.code;
  }
  ui::InputEvent e;
  EXPECT_FALSE(ui::KeyFromCursesCode(KEY_F(12), &e));
  ASSERT_TRUE(ui::KeyFromCursesCode(KEY_RESIZE, &e));
  EXPECT_EQ(e.kind, ui::InputEvent::Kind::kResize);
}

TEST(KeymapTest, CharactersCarryTheirKeyAndText) {
  struct Case { wchar_t ch; UINT vk; wchar_t text; } const cases[] = {
      {L'5', '5', L'5'},         {L'd', 'D', L'd'},         {L'D', 'D', L'D'},
      {L'*', VK_TSTAR, L'*'},    {L'#', VK_TPOUND, L'#'},   {L'?', 63, L'?'},
      {L'\r', VK_RETURN, L'\r'}, {L'\n', VK_RETURN, L'\r'}, {0x1B, VK_ESCAPE, 0x1B},
      {0x7F, VK_BACK, 0x08},     {L'é', VK_NONAME, L'é'},   {L' ', VK_SPACE, L' '},
  };
  for (const Case& c : cases) {
    ui::InputEvent e;
    ASSERT_TRUE(ui::KeyFromChar(c.ch, &e)) << static_cast<int>(c.ch);
    EXPECT_EQ(e.vk, c.vk) << static_cast<int>(c.ch);
    EXPECT_EQ(e.ch, c.text) << static_cast<int>(c.ch);
  }
  ui::InputEvent e;
  EXPECT_FALSE(ui::KeyFromChar(0x01, &e));
}

class KeysTest : public UiTest {};

TEST_F(KeysTest, HotKeyReachesItsWindowWhateverHasTheFocus) {
  HWND main = MakeMain();
  HWND child = MakeChild(main, 1);
  SetFocus(child);
  ASSERT_TRUE(RegisterHotKey(main, 19, MOD_KEYUP, VK_ESCAPE));
  EXPECT_FALSE(RegisterHotKey(child, 20, 0, VK_ESCAPE)) << "one window per key";
  screen_.TypeKey(VK_ESCAPE, 0x1B);
  Pump();
  auto hot = Of(WM_HOTKEY);
  ASSERT_EQ(hot.size(), 2u);
  EXPECT_EQ(hot[0].hwnd, main);
  EXPECT_EQ(hot[0].wparam, 19u);
  EXPECT_EQ(HIWORD(hot[0].lparam), VK_ESCAPE);
  EXPECT_EQ(LOWORD(hot[0].lparam) & MOD_KEYUP, 0u);
  EXPECT_EQ(LOWORD(hot[1].lparam) & MOD_KEYUP, MOD_KEYUP) << "the release follows";
  EXPECT_TRUE(Of(WM_KEYDOWN).empty());
}

TEST_F(KeysTest, DisabledWindowGetsNoHotKey) {
  HWND main = MakeMain();
  RegisterHotKey(main, 1, 0, VK_TVOLUMEUP);
  EnableWindow(main, FALSE);
  screen_.TypeKey(VK_TVOLUMEUP);
  Pump();
  EXPECT_TRUE(Of(WM_HOTKEY).empty());
  EnableWindow(main, TRUE);
  UnregisterHotKey(main, 1);
  screen_.TypeKey(VK_TVOLUMEUP);
  Pump();
  EXPECT_TRUE(Of(WM_HOTKEY).empty());
  EXPECT_EQ(Of(WM_KEYDOWN).size(), 1u);
}

TEST_F(KeysTest, BackspaceDeletesInATextFieldAndIsTheBackKeyElsewhere) {
  HWND main = MakeMain();
  HWND edit = MakeChild(main, 0, 0, 0, 10, 1, WC_EDITW, 0, L"ab");
  SetFocus(main);
  screen_.TypeBackspace();
  Pump();
  ASSERT_EQ(Of(WM_KEYDOWN).size(), 1u);
  EXPECT_EQ(Of(WM_KEYDOWN)[0].wparam, VK_ESCAPE);
  SetFocus(edit);
  screen_.TypeBackspace();
  Pump();
  EXPECT_EQ(TextOf(edit), L"a");
}

TEST_F(KeysTest, SoftKeysGoToTheBarWhichSendsOrOpens) {
  HWND main = MakeMain();
  SOFTKEY left{L"Done", 40003, nullptr};
  SOFTKEY right{L"Menu", 40099, nullptr};
  HWND bar = CreateSoftKeyBar(main, &left, &right);
  ASSERT_EQ(SHFindMenuBar(main), bar);
  Pump();
  std::wstring bottom = screen_.Row(screen_.height() - 1);
  EXPECT_EQ(bottom.substr(0, 5), L" Done");
  EXPECT_EQ(bottom.substr(bottom.size() - 5), L"Menu ");
  screen_.TypeKey(VK_TSOFT1);
  screen_.TypeKey(VK_TSOFT2);
  Pump();
  EnableSoftKey(bar, SK_RIGHT, FALSE);
  EXPECT_EQ(Commands(), (std::vector<UINT>{40003, 40099}));
  screen_.TypeKey(VK_TSOFT2);
  Pump();
  EXPECT_EQ(Commands().size(), 2u) << "a disabled soft key does nothing";
  EXPECT_TRUE(Of(WM_KEYDOWN).empty()) << "soft keys do not reach the focus";
}

}  // namespace
}  // namespace velmo::testing
