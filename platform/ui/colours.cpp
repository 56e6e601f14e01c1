// System colours and the terminal colour mapping.
#include "platform/ui/colours.h"

#include <array>
#include <cstdlib>
#include <cstring>

#include "platform/ui/ui_internal.h"

namespace velmo::ui {
namespace {

using ColourTable = std::array<COLORREF, kSystemColourCount>;

struct ThemeEntry {
  int index;
  COLORREF light;
  COLORREF dark;
};

// The colours that the window system and the controls use; the rest default to
// the window colours.
constexpr ThemeEntry kThemeEntries[] = {
    {COLOR_BACKGROUND, RGB(255, 255, 255), RGB(0x1C, 0x1C, 0x1C)},
    {COLOR_ACTIVECAPTION, RGB(0x00, 0x3C, 0x8C), RGB(0x26, 0x3A, 0x5A)},
    {COLOR_INACTIVECAPTION, RGB(0x80, 0x80, 0x80), RGB(0x3A, 0x3A, 0x3A)},
    {COLOR_MENU, RGB(0xF0, 0xF0, 0xF0), RGB(0x30, 0x30, 0x30)},
    {COLOR_WINDOW, RGB(255, 255, 255), RGB(0x1C, 0x1C, 0x1C)},
    {COLOR_WINDOWFRAME, RGB(0x60, 0x60, 0x60), RGB(0x80, 0x80, 0x80)},
    {COLOR_MENUTEXT, RGB(0, 0, 0), RGB(0xE0, 0xE0, 0xE0)},
    {COLOR_WINDOWTEXT, RGB(0, 0, 0), RGB(0xE0, 0xE0, 0xE0)},
    {COLOR_CAPTIONTEXT, RGB(255, 255, 255), RGB(0xF0, 0xF0, 0xF0)},
    {COLOR_HIGHLIGHT, RGB(0x00, 0x50, 0xB0), RGB(0x3A, 0x6E, 0xA5)},
    {COLOR_HIGHLIGHTTEXT, RGB(255, 255, 255), RGB(255, 255, 255)},
    {COLOR_BTNFACE, RGB(0x30, 0x30, 0x30), RGB(0x44, 0x44, 0x44)},
    {COLOR_GRAYTEXT, RGB(0x90, 0x90, 0x90), RGB(0x80, 0x80, 0x80)},
    {COLOR_BTNTEXT, RGB(255, 255, 255), RGB(0xF0, 0xF0, 0xF0)},
    {COLOR_INFOTEXT, RGB(0, 0, 0), RGB(0xE0, 0xE0, 0xE0)},
    {COLOR_INFOBK, RGB(0xFF, 0xFF, 0xE1), RGB(0x30, 0x30, 0x20)},
};

ColourTable MakeTable(Theme theme) {
  ColourTable table;
  table.fill(theme == Theme::kLight ? RGB(255, 255, 255) : RGB(0x1C, 0x1C, 0x1C));
  for (const ThemeEntry& e : kThemeEntries) {
    table[static_cast<size_t>(e.index)] = theme == Theme::kLight ? e.light : e.dark;
  }
  return table;
}

ColourTable& Table() {
  static ColourTable table = MakeTable(Theme::kLight);
  return table;
}

long Distance(int r1, int g1, int b1, int r2, int g2, int b2) {
  long dr = r1 - r2, dg = g1 - g2, db = b1 - b2;
  // Weighted for the eye: green counts most, blue least.
  return 3 * dr * dr + 4 * dg * dg + 2 * db * db;
}

constexpr int kCubeLevels[6] = {0, 95, 135, 175, 215, 255};

int NearestCubeLevel(int v) {
  int best = 0;
  for (int i = 1; i < 6; ++i) {
    if (std::abs(kCubeLevels[i] - v) < std::abs(kCubeLevels[best] - v)) best = i;
  }
  return best;
}

}  // namespace

void UseTheme(Theme theme) {
  Table() = MakeTable(theme);
  internal::MarkScreenDirty();
}

Theme ThemeFromEnvironment() {
  const char* name = std::getenv("VELMO_THEME");
  return name && std::strcmp(name, "dark") == 0 ? Theme::kDark : Theme::kLight;
}

int NearestXterm256(COLORREF colour) {
  int r = GetRValue(colour), g = GetGValue(colour), b = GetBValue(colour);
  int ri = NearestCubeLevel(r), gi = NearestCubeLevel(g), bi = NearestCubeLevel(b);
  int cube = 16 + 36 * ri + 6 * gi + bi;
  long cube_distance = Distance(r, g, b, kCubeLevels[ri], kCubeLevels[gi], kCubeLevels[bi]);
  // The grey ramp 232-255 runs 8, 18, ..., 238.
  int average = (r + g + b) / 3;
  int step = (average - 8 + 5) / 10;
  if (step < 0) step = 0;
  if (step > 23) step = 23;
  int level = 8 + 10 * step;
  long grey_distance = Distance(r, g, b, level, level, level);
  return grey_distance < cube_distance ? 232 + step : cube;
}

int NearestAnsi8(COLORREF colour) {
  // The colours as common terminals show them.
  static constexpr int kAnsi[8][3] = {{0, 0, 0},     {205, 0, 0},   {0, 205, 0},
                                      {205, 205, 0}, {0, 0, 238},   {205, 0, 205},
                                      {0, 205, 205}, {229, 229, 229}};
  int r = GetRValue(colour), g = GetGValue(colour), b = GetBValue(colour);
  int best = 0;
  long best_distance = -1;
  for (int i = 0; i < 8; ++i) {
    long d = Distance(r, g, b, kAnsi[i][0], kAnsi[i][1], kAnsi[i][2]);
    if (best_distance < 0 || d < best_distance) {
      best = i;
      best_distance = d;
    }
  }
  return best;
}

}  // namespace velmo::ui

COLORREF GetSysColor(int index) {
  if (index < 0 || index >= kSystemColourCount) return 0;
  return velmo::ui::Table()[static_cast<size_t>(index)];
}

BOOL SetSysColors(int count, const int* indexes, const COLORREF* values) {
  if (count < 0 || (count && (!indexes || !values))) return FALSE;
  for (int i = 0; i < count; ++i) {
    if (indexes[i] >= 0 && indexes[i] < kSystemColourCount) {
      velmo::ui::Table()[static_cast<size_t>(indexes[i])] = values[i];
    }
  }
  velmo::ui::internal::MarkScreenDirty();
  return TRUE;
}
