#include <gtest/gtest.h>

#include "platform/ui/colours.h"
#include "platform/ui/screen_ncurses.h"

namespace velmo::testing {
namespace {

TEST(ColoursTest, NearestOf256AndOf8) {
  struct Case { int (*nearest)(COLORREF); COLORREF colour; int index; } const cases[] = {
      {ui::NearestXterm256, RGB(255, 0, 0), 196},       {ui::NearestXterm256, RGB(0, 255, 0), 46},
      {ui::NearestXterm256, RGB(0, 0, 255), 21},        {ui::NearestXterm256, RGB(255, 255, 255), 231},
      {ui::NearestXterm256, RGB(0, 0, 0), 16},          {ui::NearestXterm256, RGB(128, 128, 128), 244},
      {ui::NearestXterm256, RGB(0x1C, 0x1C, 0x1C), 234}, {ui::NearestXterm256, RGB(255, 165, 0), 214},
      {ui::NearestXterm256, RGB(0, 0x50, 0xB0), 25},    {ui::NearestXterm256, RGB(238, 238, 238), 255},
      {ui::NearestAnsi8, RGB(255, 0, 0), 1},            {ui::NearestAnsi8, RGB(0xC0, 0, 0), 1},
      {ui::NearestAnsi8, RGB(0, 128, 0), 2},            {ui::NearestAnsi8, RGB(255, 255, 0), 3},
      {ui::NearestAnsi8, RGB(0, 0, 255), 4},            {ui::NearestAnsi8, RGB(0, 0x50, 0xB0), 4},
      {ui::NearestAnsi8, RGB(255, 0, 255), 5},          {ui::NearestAnsi8, RGB(0, 255, 255), 6},
      {ui::NearestAnsi8, RGB(255, 255, 255), 7},        {ui::NearestAnsi8, RGB(0xC0, 0xC0, 0xC0), 7},
      {ui::NearestAnsi8, RGB(0x20, 0x20, 0x20), 0},     {ui::NearestAnsi8, RGB(0xC0, 0x80, 0), 3},
  };
  for (const Case& c : cases)
    EXPECT_EQ(c.nearest(c.colour), c.index) << std::hex << c.colour;
}

TEST(ColoursTest, DepthFollowsTheTerminalAndCanOnlyBeLowered) {
  using ui::ColourDepth;
  struct Case { int colours; bool rgb; const char* asked; ColourDepth depth; } const cases[] = {
      {0x1000000, false, nullptr, ColourDepth::kTrue}, {256, true, nullptr, ColourDepth::kTrue},
      {256, false, nullptr, ColourDepth::k256},        {88, false, nullptr, ColourDepth::k8},
      {8, false, nullptr, ColourDepth::k8},            {0, false, nullptr, ColourDepth::kMono},
      {256, false, "8", ColourDepth::k8},              {256, false, "truecolor", ColourDepth::k256},
      {0x1000000, false, "256", ColourDepth::k256},    {8, false, "mono", ColourDepth::kMono},
      {256, false, "purple", ColourDepth::k256},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(ui::ChooseColourDepth(c.colours, c.rgb, c.asked), c.depth)
        << c.colours << " " << (c.asked ? c.asked : "-");
  }
}

TEST(ColoursTest, ThemesAndSystemColours) {
  ui::UseTheme(ui::Theme::kDark);
  COLORREF dark = GetSysColor(COLOR_WINDOW);
  ui::UseTheme(ui::Theme::kLight);
  EXPECT_EQ(GetSysColor(COLOR_WINDOW), RGB(255, 255, 255));
  EXPECT_NE(dark, RGB(255, 255, 255));
  EXPECT_EQ(GetSysColor(99), 0u);
  ui::UseTheme(ui::Theme::kLight);
}

}  // namespace
}  // namespace velmo::testing
