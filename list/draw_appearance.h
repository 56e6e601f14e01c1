// The list's look as the Appearance settings make it: the colour settings turned
// into colours, the font styles, the gradient, the packed information choices,
// and whether the list is compact (one line per task) or normal (two lines).
// "FontSize", "NotesFontSize" and "FontQuality" have no meaning on a terminal's
// fixed cells: the terminal's own font shows every size.
#pragma once

#include <array>
#include <optional>

#include "list/draw_colours.h"
#include "platform/ui/types.h"
#include "settings/settings.h"

namespace velmo {

struct ListAppearance {
  std::array<COLORREF, kRowColourCount> colours{};  // by RowColour
  COLORREF window = 0;                              // the list's own background
  COLORREF highlight_background = 0;                // "HighlightColor"
  std::optional<COLORREF> highlight_text;           // "HighlightTextColor"; none: "No change"
  COLORREF notes_background = 0;                    // "NotesPreviewColor"
  COLORREF notes_text = 0;
  DWORD normal_font = 0;  // "NormalFont", a font style index
  DWORD today_font = 0;   // "TodayFont"
  bool gradient = false;
  COLORREF gradient_bottom = 0;  // the ramp runs from `window` at the top to this
  DWORD infos = 0;
  DWORD infos_compressed = 0;
};

// Made from the settings and the current system colours; cheap enough to make
// for every paint, so a theme or settings change shows at the next one.
ListAppearance MakeListAppearance(const Settings& s = CurrentSettings());

// The list font of a style index (bold and italic as kFontStyles has them; an
// index outside the table is the normal style). Made once per style, kept.
HFONT ListFont(DWORD style);

// Compact list: one line per task, else two. Starts as "Compressed" says;
// command 40126 toggles it for the run.
constexpr UINT kCmdToggleCompact = 40126;
void InitListDisplay(const Settings& s = CurrentSettings());
bool CompactList();
void SetCompactList(bool compact);
// Returns the new state.
bool ToggleCompactList();
// Lines per row of the current mode.
int ListRowLines();

}  // namespace velmo
