#include <string>

#include "platform/ui/edit.h"
#include "platform/ui/virtual_keys.h"
#include "tests/ui/ui_fixture.h"

namespace velmo::testing {
namespace {

constexpr int kEditId = 7;

class EditTest : public UiTest {
 protected:
  EditTest() {
    main_ = MakeMain();
    edit_ = MakeChild(main_, kEditId, 2, 3, 10, 1, WC_EDITW);
    SetFocus(edit_);
  }
  // How many notifications of the code the parent received.
  int Notified(WORD code) const {
    int n = 0;
    for (const Received& r : Of(WM_COMMAND)) n += HIWORD(r.wparam) == code;
    return n;
  }

  HWND main_;
  HWND edit_;
};

TEST_F(EditTest, TypingBackspaceAndCaretKeys) {
  // Text typed (or, when null, the key), and the field afterwards.
  struct Step { const wchar_t* typed; UINT vk; const wchar_t* text; } const steps[] = {
      {L"Buy milk", 0, L"Buy milk"},   {nullptr, VK_BACK, L"Buy mil"},  {nullptr, VK_HOME, L"Buy mil"},
      {nullptr, VK_BACK, L"Buy mil"},  // nothing before the caret
      {nullptr, VK_DELETE, L"uy mil"},  {L"B", 0, L"Buy mil"},
      {nullptr, VK_END, L"Buy mil"},    {nullptr, VK_LEFT, L"Buy mil"},
      {L"*#", 0, L"Buy mi*#l"},
  };
  for (const Step& s : steps) {
    if (s.typed) {
      screen_.TypeText(s.typed);
    } else if (s.vk == VK_BACK) {
      screen_.TypeBackspace();
    } else {
      screen_.TypeKey(s.vk);
    }
    Pump();
    EXPECT_EQ(TextOf(edit_), s.text);
  }
  EXPECT_EQ(Notified(EN_CHANGE), 8 + 1 + 1 + 1 + 2);
}

TEST_F(EditTest, CaretIsTheTerminalCursorAndTheFieldScrolls) {
  screen_.TypeText(L"0123456789abc");
  Pump();
  ASSERT_TRUE(screen_.cursor_visible());
  // The field starts at column 2 of the window, row 3 of the work area.
  EXPECT_EQ(screen_.cursor().y, 1 + 3);
  EXPECT_LT(screen_.cursor().x, 2 + 10);
  EXPECT_EQ(screen_.Row(4).substr(2, 10), L"456789abc ");
  SetFocus(main_);
  Pump();
  EXPECT_FALSE(screen_.cursor_visible());
}

TEST_F(EditTest, SelectionIsReplacedByTypingAndTextIsLimited) {
  SetWindowTextW(edit_, L"old text");
  SendMessageW(edit_, EM_SETSEL, 0, -1);
  DWORD from = 9, to = 9;
  SendMessageW(edit_, EM_GETSEL, reinterpret_cast<WPARAM>(&from), reinterpret_cast<LPARAM>(&to));
  EXPECT_EQ(from, 0u);
  EXPECT_EQ(to, 8u);
  screen_.TypeText(L"new");
  Pump();
  EXPECT_EQ(TextOf(edit_), L"new");
  SendMessageW(edit_, EM_LIMITTEXT, 5, 0);
  screen_.TypeText(L"est");
  Pump();
  EXPECT_EQ(TextOf(edit_), L"newes");
  EXPECT_GT(Notified(EN_MAXTEXT), 0);
}

TEST_F(EditTest, WideCharactersTakeTwoCells) {
  screen_.TypeText(L"日本x");
  Pump();
  EXPECT_EQ(TextOf(edit_), L"日本x");
  EXPECT_EQ(screen_.Row(4).substr(2, 4), L"日本x ");
  EXPECT_EQ(screen_.at(3, 4).ch, 0) << "right half of the first character";
  EXPECT_EQ(screen_.cursor().x, 2 + 5);
  screen_.TypeBackspace();
  screen_.TypeBackspace();
  Pump();
  EXPECT_EQ(TextOf(edit_), L"日");
}

}  // namespace
}  // namespace velmo::testing
