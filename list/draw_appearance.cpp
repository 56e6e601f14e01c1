// Colours, fonts and the display mode of the list.
#include "list/draw_appearance.h"

#include "platform/ui/colours.h"
#include "platform/ui/gdi.h"
#include "settings/colors.h"
#include "settings/fonts.h"

namespace velmo {
namespace {

// How far the gradient runs toward the highlight colour at the list's bottom.
constexpr int kGradientPercent = 22;

COLORREF Mix(COLORREF from, COLORREF to, int percent) {
  auto channel = [percent](BYTE a, BYTE b) {
    return static_cast<BYTE>(a + (static_cast<int>(b) - a) * percent / 100);
  };
  return RGB(channel(GetRValue(from), GetRValue(to)), channel(GetGValue(from), GetGValue(to)),
             channel(GetBValue(from), GetBValue(to)));
}

bool& Compact() {
  static bool compact = true;
  return compact;
}

}  // namespace

ListAppearance MakeListAppearance(const Settings& s) {
  ListAppearance a;
  COLORREF window_text = GetSysColor(COLOR_WINDOWTEXT);
  auto text = [window_text](DWORD index) { return TextColourFromIndex(index, window_text); };
  a.colours[static_cast<int>(RowColour::kCompleted)] = text(s.completed_color);
  a.colours[static_cast<int>(RowColour::kUndated)] = text(s.undated_color);
  a.colours[static_cast<int>(RowColour::kFuture)] = text(s.future_color);
  a.colours[static_cast<int>(RowColour::kOverdue)] = text(s.overdue_color);
  a.colours[static_cast<int>(RowColour::kNormal)] = text(s.normal_color);
  a.colours[static_cast<int>(RowColour::kWindowText)] = window_text;
  a.window = GetSysColor(COLOR_WINDOW);
  a.highlight_background = BackgroundColourFromIndex(s.highlight_color);
  if (s.highlight_text_color != kTextColorNoChange) a.highlight_text = text(s.highlight_text_color);
  a.notes_background = BackgroundColourFromIndex(s.notes_preview_color);
  a.notes_text = GetSysColor(COLOR_INFOTEXT);
  a.normal_font = s.normal_font;
  a.today_font = s.today_font;
  a.gradient = s.gradient != 0;
  a.gradient_bottom = Mix(a.window, GetSysColor(COLOR_HIGHLIGHT), kGradientPercent);
  a.infos = s.infos;
  a.infos_compressed = s.infos_compressed;
  return a;
}

HFONT ListFont(DWORD style) {
  static HFONT fonts[kFontStyles.size()] = {};
  if (style >= kFontStyles.size()) style = 0;
  if (!fonts[style]) {
    LOGFONTW lf{};
    lf.lfWeight = kFontStyles[style].bold ? FW_BOLD : FW_NORMAL;
    lf.lfItalic = kFontStyles[style].italic ? 1 : 0;
    fonts[style] = CreateFontIndirectW(&lf);
  }
  return fonts[style];
}

void InitListDisplay(const Settings& s) { Compact() = s.compressed != 0; }
bool CompactList() { return Compact(); }
void SetCompactList(bool compact) { Compact() = compact; }
bool ToggleCompactList() { return Compact() = !Compact(); }
int ListRowLines() { return Compact() ? 1 : 2; }

}  // namespace velmo
