#include <string>

#include "platform/ui/clipboard.h"
#include "platform/ui/dialog.h"
#include "platform/ui/edit.h"
#include "platform/ui/virtual_keys.h"
#include "tests/ui/ui_fixture.h"

namespace velmo::testing {
namespace {

constexpr int kNotesId = 9;
constexpr BYTE kShift = ui::kModShift, kCtrl = ui::kModControl;

// Rows of a 10 x 4 edit at the work area's top left (screen rows 1-4):
//   0 "The quick "  1 "brown fox"  2 "jumps over"  3 "the lazy "  4 "dog"
constexpr wchar_t kFox[] = L"The quick brown fox\r\njumps over\r\nthe lazy dog";

std::wstring WholeText(HWND hwnd) {
  std::wstring text(static_cast<size_t>(GetWindowTextLengthW(hwnd)) + 1, L'\0');
  text.resize(static_cast<size_t>(GetWindowTextW(hwnd, text.data(), static_cast<int>(text.size()))));
  return text;
}

class MultiLineEditTest : public UiTest {
 protected:
  MultiLineEditTest() : UiTest(30, 10) {
    main_ = MakeMain();
    edit_ = Make(0);
  }
  HWND Make(DWORD style) {
    if (edit_) DestroyWindow(edit_);
    edit_ = MakeChild(main_, kNotesId, 0, 0, 10, 4, WC_EDITW, ES_MULTILINE | style, kFox);
    SetFocus(edit_);
    Pump();
    return edit_;
  }
  void Key(UINT vk, BYTE modifiers = 0) {
    screen_.TypeKey(vk, 0, modifiers);
    Pump();
  }
  std::pair<DWORD, DWORD> Selection() const {
    DWORD from = 0, to = 0;
    SendMessageW(edit_, EM_GETSEL, reinterpret_cast<WPARAM>(&from), reinterpret_cast<LPARAM>(&to));
    return {from, to};
  }
  DWORD Caret() const { return Selection().second; }
  std::pair<int, int> Cursor() const { return {screen_.cursor().x, screen_.cursor().y}; }
  // The edit's rows as the screen shows them.
  std::wstring ShownRow(int row) const { return screen_.Row(1 + row).substr(0, 10); }

  HWND main_ = nullptr;
  HWND edit_ = nullptr;
};

TEST_F(MultiLineEditTest, CaretMovesByCharacterWordRowAndPage) {
  struct Step {
    UINT vk;
    BYTE modifiers;
    DWORD caret;
    int first_row;  // EM_GETFIRSTVISIBLELINE afterwards
  } const steps[] = {
      {VK_RIGHT, 0, 1, 0},
      {VK_RIGHT, kCtrl, 4, 0},    // past "he" and the space
      {VK_RIGHT, kCtrl, 10, 0},   // to "brown", the start of the second row
      {VK_DOWN, 0, 21, 0},        // "jumps over"
      {VK_END, 0, 31, 0},
      {VK_RIGHT, 0, 33, 0},       // over "\r\n" in one step
      {VK_LEFT, 0, 31, 0},
      {VK_UP, 0, 19, 0},          // column 10 kept; "brown fox" ends at 19
      {VK_UP, 0, 9, 0},           // a wrapped row ends before its last space
      {VK_HOME, 0, 0, 0},
      {VK_END, kCtrl, 45, 1},     // scrolled to show the last row
      {VK_LEFT, kCtrl, 42, 1},    // to the start of "dog"
      {VK_HOME, kCtrl, 0, 0},
      {VK_NEXT, 0, 33, 1},        // a page less a row; the last page stays full
      {VK_TVOLUMEUP, 0, 0, 0},    // the volume key pages too
  };
  for (const Step& s : steps) {
    Key(s.vk, s.modifiers);
    EXPECT_EQ(Caret(), s.caret) << "key " << s.vk << " after caret " << s.caret;
    EXPECT_EQ(SendMessageW(edit_, EM_GETFIRSTVISIBLELINE, 0, 0), s.first_row) << "key " << s.vk;
  }
  EXPECT_EQ(SendMessageW(edit_, EM_GETLINECOUNT, 0, 0), 5);
  EXPECT_EQ(SendMessageW(edit_, EM_LINEINDEX, 3, 0), 33);
  EXPECT_EQ(SendMessageW(edit_, EM_LINEFROMCHAR, 42, 0), 4);
}

TEST_F(MultiLineEditTest, WrappedRowsAreDrawnAndScrollWithTheCaret) {
  EXPECT_EQ(ShownRow(0), L"The quick ");
  EXPECT_EQ(ShownRow(1), L"brown fox ");
  EXPECT_EQ(ShownRow(3), L"the lazy  ");
  EXPECT_EQ(Cursor(), (std::pair<int, int>{0, 1}));
  Key(VK_END, kCtrl);
  EXPECT_EQ(ShownRow(0), L"brown fox ");
  EXPECT_EQ(ShownRow(3), L"dog       ");
  EXPECT_EQ(Cursor(), (std::pair<int, int>{3, 4}));
  // Wider: the rows are made again for the new width.
  MoveWindow(edit_, 0, 0, 20, 4, TRUE);
  Pump();
  EXPECT_EQ(SendMessageW(edit_, EM_GETLINECOUNT, 0, 0), 3);
  EXPECT_EQ(ShownRow(0), L"The quick ");
  EXPECT_EQ(screen_.Row(1).substr(0, 20), L"The quick brown fox ");
}

TEST_F(MultiLineEditTest, WithoutWordWrapLinesScrollSideways) {
  Make(WS_HSCROLL);
  EXPECT_EQ(SendMessageW(edit_, EM_GETLINECOUNT, 0, 0), 3);
  EXPECT_EQ(ShownRow(0), L"The quick ");
  Key(VK_END);
  EXPECT_EQ(Caret(), 19u);
  EXPECT_EQ(ShownRow(0), L"own fox   ");
  EXPECT_EQ(Cursor(), (std::pair<int, int>{7, 1}));
  Key(VK_HOME);
  EXPECT_EQ(ShownRow(0), L"The quick ");
  // Word wrap switched on again.
  EXPECT_EQ(SendMessageW(edit_, EM_FMTLINES, TRUE, 0), TRUE);
  EXPECT_EQ(SendMessageW(edit_, EM_GETLINECOUNT, 0, 0), 5);
}

TEST_F(MultiLineEditTest, TypingLineBreaksAndDeletingThem) {
  SendMessageW(edit_, EM_SETSEL, 3, 3);
  struct Step {
    const wchar_t* typed;  // or the key
    UINT vk;
    const wchar_t* starts;  // the text's first characters afterwards
  } const steps[] = {
      {L"!", 0, L"The! quick"},
      {nullptr, VK_RETURN, L"The!\r\n quick"},
      {nullptr, VK_BACK, L"The! quick"},  // the break goes in one step
      {nullptr, VK_LEFT, L"The! quick"},
      {nullptr, VK_BACK, L"Th! quick"},
  };
  for (const Step& s : steps) {
    if (s.typed) {
      screen_.TypeText(s.typed);
    } else if (s.vk == VK_BACK) {
      screen_.TypeBackspace();
    } else {
      screen_.TypeKey(s.vk, s.vk == VK_RETURN ? L'\r' : 0);
    }
    Pump();
    EXPECT_EQ(WholeText(edit_).substr(0, wcslen(s.starts)), s.starts);
  }
  SendMessageW(edit_, EM_SETSEL, 19, 19);  // before "\r\njumps"
  Key(VK_DELETE);
  EXPECT_NE(WholeText(edit_).find(L"foxjumps"), std::wstring::npos);
  EXPECT_TRUE(SendMessageW(edit_, EM_GETMODIFY, 0, 0));
  SendMessageW(edit_, EM_SETREADONLY, TRUE, 0);
  screen_.TypeText(L"#");
  Pump();
  EXPECT_EQ(WholeText(edit_).find(L'#'), std::wstring::npos) << "read-only";
}

TEST_F(MultiLineEditTest, ShiftSelectsAndTheClipboardCarriesTheSelection) {
  Key(VK_RIGHT, kCtrl | kShift);
  Key(VK_RIGHT, kShift);
  EXPECT_EQ(Selection(), (std::pair<DWORD, DWORD>{0, 5}));
  SendMessageW(edit_, WM_COPY, 0, 0);
  EXPECT_EQ(ui::ClipboardText(), L"The q");
  EXPECT_EQ(screen_.terminal_clipboard(), L"The q");
  SendMessageW(edit_, WM_CUT, 0, 0);
  EXPECT_EQ(WholeText(edit_).substr(0, 5), L"uick ");
  Key(VK_END, kCtrl);
  SendMessageW(edit_, WM_PASTE, 0, 0);
  EXPECT_EQ(WholeText(edit_).substr(32), L"lazy dogThe q");
  // Down with Shift selects across the line break.
  Key(VK_HOME, kCtrl);
  Key(VK_DOWN, kShift);
  Key(VK_DOWN, kShift);
  EXPECT_EQ(Selection(), (std::pair<DWORD, DWORD>{0, 16}));
  SendMessageW(edit_, WM_CLEAR, 0, 0);
  EXPECT_EQ(WholeText(edit_).substr(0, 5), L"jumps");
  EXPECT_EQ(ui::ClipboardText(), L"The q") << "clear keeps the clipboard";
}

// In a dialog: Enter makes a line break, Up on the first row and Down on the
// last move to the neighbouring fields.
const DLGITEMTEMPLATEW kNotesItems[] = {
    {WC_EDITW, L"", 101, WS_TABSTOP, 0, 0, -1, 1},
    {WC_EDITW, L"one\r\ntwo", 102, WS_TABSTOP | ES_MULTILINE | ES_WANTRETURN, 0, 1, -1, 3},
    {WC_EDITW, L"", 103, WS_TABSTOP, 0, 4, -1, 1},
};
const DLGTEMPLATEW kNotesDialog{L"Notes", 0, 0, 0, kNotesItems, 3};

INT_PTR NotesProc(HWND dialog, UINT msg, WPARAM wparam, LPARAM) {
  if (msg == WM_COMMAND && LOWORD(wparam) == IDOK) EndDialog(dialog, IDOK);
  if (msg == WM_COMMAND && LOWORD(wparam) == IDCANCEL) EndDialog(dialog, IDCANCEL);
  return msg == WM_INITDIALOG ? TRUE : FALSE;
}

TEST_F(MultiLineEditTest, DialogGetsTheArrowsAtTheEdgesAndEnterStaysInTheText) {
  std::wstring typed;
  int focus_after_down = 0, focus_after_up = 0;
  screen_.AddIdleStep([&] {
    screen_.TypeKey(VK_DOWN);  // into the notes, caret at their start
    screen_.TypeKey(VK_DOWN);  // "two"
    screen_.TypeKey(VK_RETURN, L'\r');
    screen_.TypeKey(VK_DOWN);  // already on the last row: the next field
  });
  screen_.AddIdleStep([&] {
    focus_after_down = GetDlgCtrlID(GetFocus());
    typed = WholeText(GetDlgItem(GetParent(GetFocus()), 102));
    screen_.TypeKey(VK_UP);  // back into the notes, caret where it was
    screen_.TypeKey(VK_UP);
    screen_.TypeKey(VK_UP);
    screen_.TypeKey(VK_UP);  // off the first row
  });
  screen_.AddIdleStep([&] {
    focus_after_up = GetDlgCtrlID(GetFocus());
    screen_.TypeKey(VK_ESCAPE);
  });
  EXPECT_EQ(DialogBoxIndirectParamW(nullptr, &kNotesDialog, main_, NotesProc, 0), IDCANCEL);
  EXPECT_EQ(typed, L"one\r\n\r\ntwo");
  EXPECT_EQ(focus_after_down, 103);
  EXPECT_EQ(focus_after_up, 101);
}

TEST_F(MultiLineEditTest, AMegabyteOfTextOpensScrollsAndTakesTyping) {
  std::wstring big;
  for (int i = 0; big.size() < 1'000'000; ++i) {
    big += L"Line " + std::to_wstring(i) + L" of the notes, long enough to wrap once.\r\n";
  }
  big += L"The end";
  SendMessageW(edit_, EM_LIMITTEXT, 0, 0);
  SetWindowTextW(edit_, big.c_str());
  Key(VK_END, kCtrl);
  EXPECT_EQ(ShownRow(3), L"The end   ");
  screen_.TypeText(L"!");
  Key(VK_PRIOR, kShift);
  EXPECT_EQ(Selection().second, big.size() + 1);
  const std::wstring after = WholeText(edit_);
  EXPECT_EQ(after.size(), big.size() + 1);
  EXPECT_EQ(after.substr(after.size() - 8), L"The end!");
  EXPECT_GT(SendMessageW(edit_, EM_GETLINECOUNT, 0, 0), 100000);
}

}  // namespace
}  // namespace velmo::testing
