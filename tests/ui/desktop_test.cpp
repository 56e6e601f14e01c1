#include "platform/ui/gdi.h"
#include "platform/ui/softkey_bar.h"
#include "tests/ui/ui_fixture.h"

namespace velmo::testing {
namespace {

class DesktopTest : public UiTest {};

TEST_F(DesktopTest, ResizeMovesTheWindowsAndTheBarAndRedraws) {
  HWND main = MakeMain(L"All Tasks");
  SOFTKEY left{L"New", 1, nullptr};
  SOFTKEY right{L"Menu", 2, nullptr};
  CreateSoftKeyBar(main, &left, &right);
  HWND box = CreateWindowExW(0, kClass, L"", WS_VISIBLE, 5, 4, 10, 3, main, nullptr, nullptr, nullptr);
  Pump();
  received_.clear();
  screen_.Resize(60, 20);
  Pump();
  auto sizes = Of(WM_SIZE);
  ASSERT_EQ(sizes.size(), 1u) << "only the window that fills the work area follows";
  EXPECT_EQ(sizes[0].hwnd, main);
  EXPECT_EQ(LOWORD(sizes[0].lparam), 60);
  EXPECT_EQ(HIWORD(sizes[0].lparam), 18);
  RECT rc;
  GetWindowRect(box, &rc);
  EXPECT_EQ(rc.left, 5);
  std::wstring bar = screen_.Row(19);
  EXPECT_EQ(bar.substr(0, 4), L" New");
  EXPECT_EQ(bar.substr(55), L"Menu ");
  EXPECT_EQ(screen_.Row(0).substr(0, 10), L" All Tasks");
}

TEST_F(DesktopTest, TooSmallAScreenShowsTheNoticeUntilItGrows) {
  MakeMain(L"All Tasks");
  ui::SetMinimumScreenSize(30, 10, L"Make the terminal larger");
  screen_.Resize(20, 8);
  Pump();
  EXPECT_TRUE(screen_.Contains(L"Make the"));
  EXPECT_FALSE(screen_.Contains(L"All Tasks"));
  screen_.Resize(30, 10);
  Pump();
  EXPECT_FALSE(screen_.Contains(L"Make the"));
  EXPECT_TRUE(screen_.Contains(L"All Tasks"));
}

TEST_F(DesktopTest, TraySignSitsAtTheRightOfTheTitleLine) {
  MakeMain(L"Today (2)");
  ui::SetTraySign(L"☑2", RGB(0, 128, 0));
  Pump();
  std::wstring title = screen_.Row(0);
  EXPECT_EQ(title.substr(title.size() - 3), L"☑2 ");
  EXPECT_EQ(screen_.at(37, 0).fg, RGB(0, 128, 0));
}

TEST_F(DesktopTest, WideCharactersCutInTwoLeaveNoHalf) {
  screen_.PutChar(3, 2, L'日', 0, 0, 0);
  EXPECT_EQ(screen_.at(4, 2).ch, 0);
  screen_.PutChar(4, 2, L'x', 0, 0, 0);  // over the right half
  EXPECT_EQ(screen_.at(3, 2).ch, L' ');
  screen_.PutChar(6, 2, L'本', 0, 0, 0);
  screen_.PutChar(6, 2, L'y', 0, 0, 0);  // over the left half
  EXPECT_EQ(screen_.at(7, 2).ch, L' ');
  EXPECT_EQ(screen_.PutChar(39, 2, L'日', 0, 0, 0), 1) << "no room for the right half";
  EXPECT_EQ(screen_.at(39, 2).ch, L' ');
  EXPECT_EQ(ui::TextWidth(L"日本x"), 5);
  EXPECT_EQ(ui::CellWidth(L'\u0301'), 0);
}

// A window that draws what the test gives it.
class DrawTest : public UiTest {
 protected:
  DrawTest() {
    handlers_[WM_PAINT] = [&](HWND h, UINT, WPARAM, LPARAM, bool*) -> LRESULT {
      PAINTSTRUCT ps;
      HDC hdc = BeginPaint(h, &ps);
      if (draw_) draw_(hdc);
      EndPaint(h, &ps);
      return 0;
    };
    main_ = MakeMain();
  }
  std::wstring Line(int y) { return screen_.Row(1 + y); }

  HWND main_;
  std::function<void(HDC)> draw_;
};

TEST_F(DrawTest, DrawTextPlacesFieldsFromTheRightEdge) {
  draw_ = [](HDC hdc) {
    // Fields laid from the right: each drawn right-aligned, the edge moved left.
    RECT rc{0, 0, 40, 1};
    for (const wchar_t* field : {L"+3", L"12/05 ", L"01/05-"}) {
      DrawTextW(hdc, field, -1, &rc, DT_RIGHT | DT_SINGLELINE | DT_NOPREFIX);
      SIZE size;
      GetTextExtentPoint32W(hdc, field, static_cast<int>(wcslen(field)), &size);
      rc.right -= size.cx;
    }
    RECT subject{0, 1, 12, 2};
    DrawTextW(hdc, L"A very long subject", -1, &subject, DT_SINGLELINE | DT_END_ELLIPSIS);
    RECT centred{0, 2, 10, 3};
    DrawTextW(hdc, L"mid", -1, &centred, DT_CENTER | DT_SINGLELINE);
    RECT tabs{0, 3, 40, 4};
    DrawTextW(hdc, L"a\tb", -1, &tabs, DT_SINGLELINE | DT_EXPANDTABS);
  };
  Pump();
  std::wstring first = Line(0);
  EXPECT_EQ(first.substr(first.size() - 14), L"01/05-12/05 +3");
  EXPECT_EQ(Line(1).substr(0, 13), L"A very long… ");
  EXPECT_EQ(Line(2).substr(0, 7), L"   mid ");
  EXPECT_EQ(Line(3).substr(0, 9), L"a       b");
}

TEST_F(DrawTest, ColoursFontsAndTransparentText) {
  draw_ = [](HDC hdc) {
    RECT row{0, 0, 40, 1};
    HBRUSH brush = CreateSolidBrush(RGB(0, 0, 128));
    FillRect(hdc, &row, brush);
    DeleteObject(brush);
    SetBkMode(hdc, TRANSPARENT);
    SetTextColor(hdc, RGB(255, 0, 0));
    LOGFONTW lf{};
    lf.lfWeight = FW_BOLD;
    lf.lfItalic = 1;
    HFONT font = CreateFontIndirectW(&lf);
    HGDIOBJ old = SelectObject(hdc, font);
    TextOutW(hdc, 2, 0, L"Due", 3);
    SelectObject(hdc, old);
    DeleteObject(font);
    SetBkMode(hdc, OPAQUE);
    SetBkColor(hdc, RGB(255, 255, 0));
    TextOutW(hdc, 6, 0, L"!", 1);
    RECT clip{10, 0, 12, 1};
    ExtTextOutW(hdc, 10, 0, ETO_CLIPPED, &clip, L"clipped", 7, nullptr);
  };
  Pump();
  const ui::Cell& d = screen_.at(2, 1);
  EXPECT_EQ(d.ch, L'D');
  EXPECT_EQ(d.fg, RGB(255, 0, 0));
  EXPECT_EQ(d.bg, RGB(0, 0, 128)) << "transparent text keeps the background";
  EXPECT_EQ(d.attrs, ui::kAttrBold | ui::kAttrItalic);
  EXPECT_EQ(screen_.at(6, 1).bg, RGB(255, 255, 0));
  EXPECT_EQ(screen_.at(6, 1).attrs, 0);
  EXPECT_EQ(Line(0).substr(10, 3), L"cl ");
}

TEST_F(DrawTest, ChildDrawingIsClippedToTheChild) {
  HWND child = MakeChild(main_, 1, 5, 2, 4, 1);
  ASSERT_TRUE(child);
  draw_ = [&](HDC hdc) { TextOutW(hdc, 0, 0, L"abcdefgh", 8); };
  Pump();
  EXPECT_EQ(Line(0).substr(0, 8), L"abcdefgh") << "the main window itself";
  EXPECT_EQ(Line(2).substr(4, 6), L" abcd ") << "the child: cut at its right edge";
}

}  // namespace
}  // namespace velmo::testing
