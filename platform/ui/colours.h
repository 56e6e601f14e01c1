// Colours: the system colours of the window system (after a light or a dark
// theme) and the mapping of RGB colours onto what a terminal can show.
#pragma once

#include "platform/ui/types.h"

constexpr int COLOR_SCROLLBAR = 0;
constexpr int COLOR_BACKGROUND = 1;
constexpr int COLOR_ACTIVECAPTION = 2;
constexpr int COLOR_INACTIVECAPTION = 3;
constexpr int COLOR_MENU = 4;
constexpr int COLOR_WINDOW = 5;
constexpr int COLOR_WINDOWFRAME = 6;
constexpr int COLOR_MENUTEXT = 7;
constexpr int COLOR_WINDOWTEXT = 8;
constexpr int COLOR_CAPTIONTEXT = 9;
constexpr int COLOR_HIGHLIGHT = 13;
constexpr int COLOR_HIGHLIGHTTEXT = 14;
constexpr int COLOR_BTNFACE = 15;
constexpr int COLOR_GRAYTEXT = 17;
constexpr int COLOR_BTNTEXT = 18;
constexpr int COLOR_INFOTEXT = 23;
constexpr int COLOR_INFOBK = 24;
constexpr int kSystemColourCount = 31;

COLORREF GetSysColor(int index);
// Replaces system colours; the screen is redrawn.
BOOL SetSysColors(int count, const int* indexes, const COLORREF* values);

namespace velmo::ui {

enum class Theme { kLight, kDark };
// Sets every system colour from the theme's table.
void UseTheme(Theme theme);
// The theme named by $VELMO_THEME ("dark" or "light"; light otherwise).
Theme ThemeFromEnvironment();

// Nearest colour of the xterm 256-colour palette (its 6x6x6 cube and grey ramp,
// indexes 16-255; the 16 first are left alone because terminals theme them).
int NearestXterm256(COLORREF colour);
// Nearest of the 8 ANSI colours (0 black, 1 red, 2 green, 3 yellow, 4 blue,
// 5 magenta, 6 cyan, 7 white).
int NearestAnsi8(COLORREF colour);

// Colours of the message-box signs.
constexpr COLORREF kSignRed = RGB(0xC0, 0x00, 0x00);
constexpr COLORREF kSignBlue = RGB(0x00, 0x50, 0xC0);
constexpr COLORREF kSignAmber = RGB(0xC0, 0x80, 0x00);

}  // namespace velmo::ui
