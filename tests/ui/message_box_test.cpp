#include "platform/ui/colours.h"
#include "platform/ui/message_box.h"
#include "platform/ui/virtual_keys.h"
#include "tests/ui/ui_fixture.h"

namespace velmo::testing {
namespace {

class MessageBoxTest : public UiTest {
 protected:
  MessageBoxTest() { main_ = MakeMain(L"Velmo ToDo List"); }
  HWND main_;
};

TEST_F(MessageBoxTest, AnswersByKey) {
  struct Case { UINT type; std::vector<UINT> keys; int answer; } const cases[] = {
      {MB_YESNO, {VK_TSOFT1}, IDYES},                 {MB_YESNO, {VK_TSOFT2}, IDNO},
      {MB_YESNO, {VK_RETURN}, IDYES},                 {MB_YESNO | MB_DEFBUTTON2, {VK_RETURN}, IDNO},
      {MB_YESNO, {VK_ESCAPE}, IDNO},
      {MB_YESNO, {VK_BACK}, IDNO},  // Backspace is the back key here
      {MB_YESNO, {'5', VK_UP, VK_TSOFT1}, IDYES},  // other keys do nothing
      {MB_OK, {VK_TSOFT2, VK_RETURN}, IDOK},          {MB_OK, {VK_ESCAPE}, IDOK},
      {MB_OKCANCEL, {VK_ESCAPE}, IDCANCEL},           {MB_OKCANCEL | MB_DEFBUTTON2, {VK_TSOFT1}, IDOK},
      {MB_YESNOCANCEL, {VK_ESCAPE}, IDCANCEL},
  };
  for (const Case& c : cases) {
    for (UINT vk : c.keys) screen_.TypeKey(vk, vk == VK_BACK ? 0x08 : 0);
    EXPECT_EQ(MessageBoxW(main_, L"Delete?", L"Velmo ToDo List", c.type), c.answer)
        << "type " << c.type << " first key " << c.keys[0];
    EXPECT_TRUE(IsWindowEnabled(main_));
    EXPECT_EQ(GetActiveWindow(), main_);
  }
  EXPECT_FALSE(screen_.stalled());
}

TEST_F(MessageBoxTest, BoxShowsCaptionSignWrappedTextAndSoftKeys) {
  screen_.AddIdleStep([&] {
    EXPECT_FALSE(IsWindowEnabled(main_));
    POINT caption = screen_.Find(L"┌─ Velmo ToDo List ─");
    ASSERT_GT(caption.y, 0) << "the caption is in the box's frame";
    POINT first = screen_.Find(L"Are you sure you want to");
    POINT second = screen_.Find(L"permanently delete this task?");
    ASSERT_GE(first.y, 0) << std::string(screen_.Text().begin(), screen_.Text().end());
    EXPECT_EQ(second.y, first.y + 1) << "wrapped to the box";
    EXPECT_EQ(second.x, first.x);
    std::wstring bar = screen_.Row(screen_.height() - 1);
    EXPECT_EQ(bar.substr(0, 4), L" Yes");
    EXPECT_EQ(bar.substr(bar.size() - 3), L"No ");
    EXPECT_EQ(screen_.Row(0).substr(0, 16), L" Velmo ToDo List") << "the window behind keeps the title";
    screen_.TypeKey(VK_TSOFT2);
  });
  EXPECT_EQ(MessageBoxW(main_, L"Are you sure you want to permanently delete this task?",
                        L"Velmo ToDo List", MB_YESNO | MB_ICONQUESTION), IDNO);
  Pump();
  EXPECT_FALSE(screen_.Contains(L"permanently"));
}

TEST_F(MessageBoxTest, SignsHaveTheirColours) {
  struct Case { UINT icon; wchar_t sign; COLORREF colour; } const cases[] = {
      {MB_ICONHAND, L'✖', ui::kSignRed}, {MB_ICONQUESTION, L'?', ui::kSignBlue},
      {MB_ICONEXCLAMATION, L'!', ui::kSignAmber}, {MB_ICONINFORMATION, L'i', ui::kSignBlue}};
  for (const Case& c : cases) {
    screen_.AddIdleStep([&] {
      POINT text = screen_.Find(L"Bad installation.");
      ASSERT_GE(text.y, 0);
      EXPECT_EQ(screen_.at(text.x - 2, text.y).ch, c.sign);
      EXPECT_EQ(screen_.at(text.x - 2, text.y).fg, c.colour);
      screen_.TypeKey(VK_RETURN);
    });
    EXPECT_EQ(MessageBoxW(nullptr, L"Bad installation.", L"Velmo ToDo List", MB_OK | c.icon), IDOK);
  }
}

TEST_F(MessageBoxTest, UnknownButtonsAreRefused) {
  EXPECT_EQ(MessageBoxW(main_, L"x", L"y", 0x0F), 0);
  EXPECT_TRUE(IsWindowEnabled(main_));
}

}  // namespace
}  // namespace velmo::testing
