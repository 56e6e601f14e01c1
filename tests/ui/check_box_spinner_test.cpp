#include <algorithm>
#include <string>

#include "platform/ui/button.h"
#include "platform/ui/colours.h"
#include "platform/ui/dialog.h"
#include "platform/ui/edit.h"
#include "platform/ui/spinner.h"
#include "platform/ui/virtual_keys.h"
#include "tests/ui/ui_fixture.h"

namespace velmo::testing {
namespace {

constexpr int kBoxId = 10, kListId = 11, kUpDownId = 12, kCountId = 13, kCountUpDownId = 14;

class SpinnerTest : public UiTest {
 protected:
  SpinnerTest() { main_ = MakeMain(); }

  // A spinner list of the entries at (x, 2), 10 cells wide, with its up-down.
  HWND MakeSpinner(std::initializer_list<const wchar_t*> entries, DWORD up_down_style) {
    HWND list = MakeChild(main_, kListId, 2, 2, 10, 1, WC_LISTBOXW, WS_TABSTOP);
    MakeChild(main_, kUpDownId, 0, 0, 1, 1, UPDOWN_CLASSW, UDS_AUTOBUDDY | up_down_style);
    for (const wchar_t* e : entries) SendMessageW(list, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(e));
    SendMessageW(list, LB_SETCURSEL, 0, 0);
    SetFocus(list);
    return list;
  }
  int Notified(WORD code) const {
    int n = 0;
    for (const Received& r : Of(WM_COMMAND)) n += HIWORD(r.wparam) == code;
    return n;
  }
  void Type(UINT vk) {
    screen_.TypeKey(vk, vk == VK_SPACE ? L' ' : 0);
    Pump();
  }

  HWND main_;
};

TEST_F(SpinnerTest, CheckBoxTogglesOnSpaceAndEnterAndTellsItsParent) {
  HWND box = MakeChild(main_, kBoxId, 0, 0, 20, 1, WC_BUTTONW, BS_AUTOCHECKBOX | WS_TABSTOP,
                       L"Team task");
  SetFocus(box);
  struct Step { UINT vk; WPARAM check; const wchar_t* drawn; } const steps[] = {
      {VK_SPACE, BST_CHECKED, L"☑ Team task"}, {VK_RETURN, BST_UNCHECKED, L"☐ Team task"},
      {VK_LEFT, BST_UNCHECKED, L"☐ Team task"}, {VK_RETURN, BST_CHECKED, L"☑ Team task"},
  };
  for (const Step& s : steps) {
    Type(s.vk);
    EXPECT_EQ(static_cast<WPARAM>(SendMessageW(box, BM_GETCHECK, 0, 0)), s.check) << s.vk;
    EXPECT_EQ(screen_.Row(1).substr(0, 11), s.drawn) << s.vk;
  }
  EXPECT_EQ(Notified(BN_CLICKED), 3);
  SendMessageW(box, BM_SETCHECK, BST_UNCHECKED, 0);
  Pump();
  EXPECT_EQ(Notified(BN_CLICKED), 3) << "setting the box is not a click";
  EXPECT_EQ(screen_.Row(1).substr(0, 1), L"☐");
}

TEST_F(SpinnerTest, LeftAndRightStepTheEntriesWrappingOnlyWithWrap) {
  struct Case { DWORD style; const wchar_t* keys; int after; } const cases[] = {
      {UDS_WRAP, L"RRR", 0},  {UDS_WRAP, L"L", 2},  {UDS_WRAP, L"RL", 0},
      {0, L"RRRR", 2},         {0, L"L", 0},          {0, L"RRL", 1},
  };
  for (const Case& c : cases) {
    received_.clear();
    HWND list = MakeSpinner({L"Low", L"Normal", L"High"}, c.style);
    int changes = 0, at = 0;
    for (const wchar_t* k = c.keys; *k; ++k) {
      int next = at + (*k == L'R' ? 1 : -1);
      next = (c.style & UDS_WRAP) ? (next + 3) % 3 : std::clamp(next, 0, 2);
      changes += next != at;
      at = next;
      Type(*k == L'R' ? VK_RIGHT : VK_LEFT);
    }
    EXPECT_EQ(SendMessageW(list, LB_GETCURSEL, 0, 0), c.after) << c.keys;
    EXPECT_EQ(Notified(LBN_SELCHANGE), changes) << c.keys;
    const wchar_t* names[] = {L"◂Low       ▸", L"◂Normal    ▸", L"◂High      ▸"};
    EXPECT_EQ(screen_.Row(3).substr(1, 12), names[c.after]) << c.keys;
    DestroyWindow(GetDlgItem(main_, kUpDownId));
    DestroyWindow(list);
  }
}

TEST_F(SpinnerTest, ParentCanRefuseAStep) {
  HWND list = MakeSpinner({L"Once", L"Daily"}, UDS_WRAP);
  int asked = 0;
  handlers_[WM_NOTIFY] = [&](HWND, UINT, WPARAM, LPARAM l, bool*) -> LRESULT {
    auto* nm = reinterpret_cast<NMUPDOWN*>(l);
    EXPECT_EQ(nm->hdr.code, UDN_DELTAPOS);
    EXPECT_EQ(nm->iPos, 0);
    EXPECT_EQ(nm->iDelta, 1);
    ++asked;
    return 1;
  };
  Type(VK_RIGHT);
  EXPECT_EQ(asked, 1);
  EXPECT_EQ(SendMessageW(list, LB_GETCURSEL, 0, 0), 0);
  EXPECT_EQ(Notified(LBN_SELCHANGE), 0);
}

TEST_F(SpinnerTest, UpDownStepsANumberInItsBuddyWithinItsRange) {
  HWND count = MakeChild(main_, kCountId, 2, 4, 6, 1, WC_EDITW, WS_TABSTOP);
  HWND up_down = MakeChild(main_, kCountUpDownId, 0, 0, 1, 1, UPDOWN_CLASSW,
                           UDS_SETBUDDYINT | UDS_ARROWKEYS);
  EXPECT_EQ(SendMessageW(up_down, UDM_SETBUDDY, reinterpret_cast<WPARAM>(count), 0), 0);
  SendMessageW(up_down, UDM_SETRANGE, 0, MAKELPARAM(3, 1));
  SendMessageW(up_down, UDM_SETPOS, 0, MAKELPARAM(2, 0));
  EXPECT_EQ(TextOf(count), L"2");
  SetFocus(count);
  struct Step { UINT vk; const wchar_t* text; } const steps[] = {
      {VK_RIGHT, L"3"}, {VK_RIGHT, L"3"}, {VK_LEFT, L"2"}, {VK_LEFT, L"1"}, {VK_LEFT, L"1"},
  };
  for (const Step& s : steps) {
    Type(s.vk);
    EXPECT_EQ(TextOf(count), s.text);
  }
  EXPECT_EQ(LOWORD(SendMessageW(up_down, UDM_GETPOS, 0, 0)), 1);
  EXPECT_EQ(screen_.Row(5).substr(1, 8), L"◂1     ▸");
  SendMessageW(up_down, UDM_SETPOS, 0, MAKELPARAM(50, 0));
  EXPECT_EQ(TextOf(count), L"3") << "clamped to the range";
}

// Enter on a check box toggles it rather than ending the dialog; Down skips a
// disabled control, which is drawn grey; the focused control is drawn marked;
// a control stretched to the dialog's edge follows the terminal's width.
const DLGITEMTEMPLATEW kItems[] = {
    {WC_BUTTONW, L"Completed", kBoxId, BS_AUTOCHECKBOX | WS_TABSTOP, 0, 0, 0, 1},
    {WC_LISTBOXW, L"", kListId, WS_TABSTOP, 1, 1, -1, 1},
    {UPDOWN_CLASSW, L"", kUpDownId, UDS_AUTOBUDDY | UDS_WRAP, 0, 0, 1, 1},
    {WC_BUTTONW, L"Private", kCountId, BS_AUTOCHECKBOX | WS_TABSTOP, 0, 2, 12, 1},
};
const DLGTEMPLATEW kTemplate{L"Task", 0, 0, 0, kItems, 4};
int g_oks = 0;

INT_PTR RecordingProc(HWND dialog, UINT msg, WPARAM wparam, LPARAM) {
  if (msg == WM_INITDIALOG) {
    HWND list = GetDlgItem(dialog, kListId);
    for (const wchar_t* e : {L"Normal", L"Private"}) {
      SendMessageW(list, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(e));
    }
    SendMessageW(list, LB_SETCURSEL, 1, 0);
    EnableWindow(GetDlgItem(dialog, kCountId), FALSE);
    return TRUE;
  }
  if (msg == WM_COMMAND && LOWORD(wparam) == IDOK) ++g_oks;
  if (msg == WM_COMMAND && LOWORD(wparam) == IDCANCEL) EndDialog(dialog, IDCANCEL);
  return msg == WM_COMMAND;
}

TEST_F(SpinnerTest, InADialogFocusDisabledStateAndResize) {
  g_oks = 0;
  auto highlighted = [&](int x, int y) { return screen_.at(x, y).bg == GetSysColor(COLOR_HIGHLIGHT); };
  screen_.AddIdleStep([&] {
    HWND dialog = GetActiveWindow();
    EXPECT_TRUE(highlighted(0, 1)) << "the first box has the focus";
    EXPECT_FALSE(highlighted(1, 2));
    EXPECT_EQ(screen_.at(2, 3).fg, GetSysColor(COLOR_GRAYTEXT)) << "disabled";
    EXPECT_EQ(screen_.Row(2).substr(0, 9), L"◂Private ");
    EXPECT_EQ(screen_.Row(2).substr(39, 1), L"▸");
    screen_.TypeKey(VK_RETURN);
    screen_.TypeKey(VK_DOWN);
    screen_.TypeKey(VK_DOWN);  // the disabled box is skipped: back to the first
    screen_.TypeKey(VK_DOWN);
    screen_.TypeKey(VK_RIGHT);
    screen_.Resize(60, 12);
    screen_.AddIdleStep([&, dialog] {
      EXPECT_EQ(SendDlgItemMessageW(dialog, kBoxId, BM_GETCHECK, 0, 0), BST_CHECKED);
      EXPECT_EQ(SendDlgItemMessageW(dialog, kListId, LB_GETCURSEL, 0, 0), 0) << "wrapped";
      EXPECT_TRUE(highlighted(1, 2)) << "the spinner has the focus";
      EXPECT_EQ(screen_.Row(2).substr(0, 8), L"◂Normal ");
      EXPECT_EQ(screen_.Row(2).substr(59, 1), L"▸") << "stretched to the new width";
      EXPECT_TRUE(highlighted(58, 2));
      screen_.TypeKey(VK_ESCAPE);
    });
  });
  EXPECT_EQ(DialogBoxIndirectParamW(nullptr, &kTemplate, MakeMain(), RecordingProc, 0), IDCANCEL);
  EXPECT_EQ(g_oks, 0) << "Enter on the check box does not end the dialog";
}

}  // namespace
}  // namespace velmo::testing
